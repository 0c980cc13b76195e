// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "models/favoritesfilter.h"

#include "models/entryparams.h"

#include "registry/treeitem.h"

#include <QVariantMap>

namespace
{
const QString s_grid = QStringLiteral("grid_favorites");
const QString s_list = QStringLiteral("list_favorites");
const QString s_simpleGrid = QStringLiteral("grid_favorites_simple");
const QString s_pages = QStringLiteral("grid_favorites_page");
const QString s_actions = QStringLiteral("action");

FavoritesRule ruleForSimpleGrid(const QVariantMap &params)
{
    const bool isSimple = params.value(QStringLiteral("simpleGrid"), true).toBool();
    return isSimple ? FavoritesRule::CustomForSimpleGrid : FavoritesRule::CustomNotSimple;
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
    return kinds().contains(name);
}

QStringList FavoritesFilter::kinds()
{
    return {s_grid, s_list, s_simpleGrid, s_pages, s_actions};
}

bool FavoritesFilter::admits(const TreeItem *item) const
{
    switch (ruleFor(item)) {
    case FavoritesRule::GridType:
    case FavoritesRule::ListType:
    case FavoritesRule::Page:
    case FavoritesRule::Action:
    case FavoritesRule::CustomForList:
    case FavoritesRule::CustomForGrid:
    case FavoritesRule::CustomForSimpleGrid:
        return true;
    case FavoritesRule::OtherType:
    case FavoritesRule::PageOnBlacklist:
    case FavoritesRule::PageForbidsIt:
    case FavoritesRule::ActionOnBlacklist:
    case FavoritesRule::CustomElsewhere:
    case FavoritesRule::CustomNotSimple:
        break;
    }
    return false;
}

FavoritesRule FavoritesFilter::ruleFor(const TreeItem *item) const
{
    const QString type = item->type();
    const bool isPage = type == QLatin1String("page");
    if (m_grid && (isPage || type == QLatin1String("bool") || type == QLatin1String("section"))) {
        return FavoritesRule::GridType;
    }
    if (m_list && (type == QLatin1String("integer") || type == QLatin1String("enum"))) {
        return FavoritesRule::ListType;
    }
    if (m_pages && isPage) {
        return ruleForPage(item);
    }
    if (m_actions && type == QLatin1String("action")) {
        return isBlacklisted(item) ? FavoritesRule::ActionOnBlacklist : FavoritesRule::Action;
    }
    return type.contains(QLatin1String("custom")) ? ruleForCustom(item) : FavoritesRule::OtherType;
}

bool FavoritesFilter::isBlacklisted(const TreeItem *item) const
{
    return m_blacklist.contains(item->value(QStringLiteral("path")).toString());
}

FavoritesRule FavoritesFilter::ruleForPage(const TreeItem *item) const
{
    if (isBlacklisted(item)) {
        return FavoritesRule::PageOnBlacklist;
    }
    const bool isAllowed = paramsOf(item).value(QStringLiteral("allow_favorite"), true).toBool();
    return isAllowed ? FavoritesRule::Page : FavoritesRule::PageForbidsIt;
}

FavoritesRule FavoritesFilter::ruleForCustom(const TreeItem *item) const
{
    const QVariantMap itemParams = paramsOf(item);
    const QString type = itemParams.value(QStringLiteral("type")).toString();
    if (type == QLatin1String("list")) {
        return m_list ? FavoritesRule::CustomForList : FavoritesRule::CustomElsewhere;
    }
    if (type != QLatin1String("grid") || !(m_grid || m_simpleGrid)) {
        return FavoritesRule::CustomElsewhere;
    }
    return m_grid ? FavoritesRule::CustomForGrid : ruleForSimpleGrid(itemParams);
}
