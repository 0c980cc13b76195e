// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <pluginregistry.h>
#include <treeitem.h>

#include <QCoreApplication>
#include <QTextStream>

namespace
{
/// Prints the titles of all entries in one line.
void printTitles()
{
    QStringList titles;
    const QList<TreeItem *> items = PluginRegistry::instance()->getItem({})->getSubitems(TreeItem::orderLessThan,
                                                                                         -1);
    for (const TreeItem *item : items) {
        titles.append(item->title());
    }
    QTextStream(stdout) << '[' << titles.join(QStringLiteral(", ")) << "]\n";
}
}

/// Prints the entries at the start and after each update, until it is ended.
int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    printTitles();
    QObject::connect(PluginRegistry::instance(), &PluginRegistry::contentChanged, printTitles);
    return QCoreApplication::exec();
}
