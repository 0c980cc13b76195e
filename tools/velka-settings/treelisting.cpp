// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "treelisting.h"

#include "registry/treeitem.h"

QList<TreeItem *> TreeListing::itemsOf(TreeItem *root)
{
    return root->getSubitems(TreeItem::orderLessThan, -1);
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
