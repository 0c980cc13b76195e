// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "treelisting.h"

#include "registry/treeitem.h"

QVector<TreeListing::ListedItem> TreeListing::itemsOf(TreeItem *root)
{
    constexpr int MaxDepth = 100;
    QVector<ListedItem> listed;
    QVector<TreeItem *> above; // the node before, and its ancestors
    const QList<TreeItem *> items = root->getSubitems(TreeItem::orderLessThan, -1);
    for (TreeItem *item : items) {
        while (!above.isEmpty() && above.last() != item->parentItem()) {
            above.removeLast();
        }
        above.append(item);
        if (above.size() <= MaxDepth || item->isDeclared()) {
            listed.append({item, above.size()});
        }
    }
    return listed;
}

QString TreeListing::pathOf(TreeItem *item)
{
    return item->location().join(QLatin1Char('/'));
}

QJsonObject TreeListing::toJson(TreeItem *item)
{
    return {{QStringLiteral("path"), pathOf(item)},
            {QStringLiteral("name"), item->name()},
            {QStringLiteral("title"), item->title()},
            {QStringLiteral("shortTitle"), item->shortTitle()},
            {QStringLiteral("type"), item->type()},
            {QStringLiteral("icon"), item->icon()},
            {QStringLiteral("controlIcon"), item->controlIcon()},
            {QStringLiteral("order"), item->order()},
            {QStringLiteral("declared"), item->isDeclared()},
            {QStringLiteral("data"), QJsonObject::fromVariantMap(item->data())}};
}
