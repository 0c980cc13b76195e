// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "models/favoritesfilter.h"

#include "registry/treeitem.h"

#include <QVariantMap>

namespace
{
const QString s_grid = QStringLiteral("grid_favorites");
const QString s_list = QStringLiteral("list_favorites");
const QString s_simpleGrid = QStringLiteral("grid_favorites_simple");
const QString s_pages = QStringLiteral("grid_favorites_page");
const QString s_actions = QStringLiteral("action");

QVariantMap params(const TreeItem *item)
{
    return item->value(QStringLiteral("params")).toMap();
}
}

FavoritesFilter::FavoritesFilter(const QStringList &kinds, const QSet<QString> &blacklist)
    : m_grid(kinds.contains(s_grid))
    , m_list(kinds.contains(s_list))
    , m_simpleGrid(kinds.contains(s_simpleGrid))
    , m_pages(kinds.contains(s_pages))
    , m_actions(kinds.contains(s_actions))
    , m_blacklist(blacklist)
{
}

bool FavoritesFilter::isKind(const QString &name)
{
    return name == s_grid || name == s_list || name == s_simpleGrid || name == s_pages || name == s_actions;
}

bool FavoritesFilter::admits(const TreeItem *item) const
{
    const QString type = item->type();
    const bool isPage = type == QLatin1String("page");
    if (m_grid && (isPage || type == QLatin1String("bool") || type == QLatin1String("section"))) {
        return true;
    }
    if (m_list && (type == QLatin1String("integer") || type == QLatin1String("enum"))) {
        return true;
    }
    if (m_pages && isPage) {
        return !isBlacklisted(item) && params(item).value(QStringLiteral("allow_favorite"), true).toBool();
    }
    if (m_actions && type == QLatin1String("action")) {
        return !isBlacklisted(item);
    }
    return type.contains(QLatin1String("custom")) && admitsCustom(item);
}

bool FavoritesFilter::isBlacklisted(const TreeItem *item) const
{
    return m_blacklist.contains(item->value(QStringLiteral("path")).toString());
}

bool FavoritesFilter::admitsCustom(const TreeItem *item) const
{
    const QVariantMap itemParams = params(item);
    const QString type = itemParams.value(QStringLiteral("type")).toString();
    if (type == QLatin1String("list")) {
        return m_list;
    }
    if (type == QLatin1String("grid")) {
        return m_grid || (m_simpleGrid && itemParams.value(QStringLiteral("simpleGrid"), true).toBool());
    }
    return false;
}
