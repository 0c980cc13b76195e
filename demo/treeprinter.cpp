// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "treeprinter.h"

#include "pluginregistry.h"
#include "treeitem.h"

#include <QTextStream>

void printTree(QTextStream &out)
{
    TreeItem *const root = PluginRegistry::instance()->getItem({});
    const QList<TreeItem *> items = root->getSubitems(TreeItem::orderLessThan, -1);
    for (const TreeItem *item : items) {
        const QString indent(2 * (item->depth(root) - 1), QLatin1Char(' '));
        const QString line = QString(indent + item->name()).leftJustified(28) + item->title().leftJustified(30)
                             + item->type().leftJustified(10) + item->fromFile();
        out << line << '\n';
    }
}
