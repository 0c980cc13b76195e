// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QSet>
#include <QStringList>

class TreeItem;

/// The rule by which an entry is admitted or rejected.
enum class FavoritesRule {
    OtherType, ///< no kind admits the type
    GridType,
    ListType,
    Page,
    PageOnBlacklist,
    PageForbidsIt,
    Action,
    ActionOnBlacklist,
    CustomForList,
    CustomForGrid,
    CustomForSimpleGrid,
    CustomElsewhere, ///< its place is another one, or none
    CustomNotSimple,
};

/**
 * The settings entries that a kind of favourites admits. The kinds: "grid_favorites" (types "bool", "section", "page" and
 * custom entries for a grid), "list_favorites" ("integer", "enum" and custom entries for a list),
 * "grid_favorites_simple" (custom entries for a simple grid), "grid_favorites_page" (pages that neither the blacklist
 * nor their "params" forbid) and "action" (actions that the blacklist does not forbid).
 */
class FavoritesFilter
{
public:
    FavoritesFilter(const QStringList &kinds, const QSet<QString> &blacklist);

    static bool isKind(const QString &name);
    static QStringList kinds();

    bool admits(const TreeItem *item) const;
    FavoritesRule ruleFor(const TreeItem *item) const;

private:
    bool isBlacklisted(const TreeItem *item) const;
    FavoritesRule ruleForPage(const TreeItem *item) const;
    FavoritesRule ruleForCustom(const TreeItem *item) const;

    const bool m_grid;
    const bool m_list;
    const bool m_simpleGrid;
    const bool m_pages;
    const bool m_actions;
    const QSet<QString> m_blacklist; ///< entry paths
};
