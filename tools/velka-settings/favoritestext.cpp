// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "favoritestext.h"

#include "models/favoritesfilter.h"
#include "registry/treeitem.h"

namespace
{
QString textOf(FavoritesRule rule, const QString &type)
{
    switch (rule) {
    case FavoritesRule::OtherType:
        return QStringLiteral("it does not take the type \"%1\"").arg(type);
    case FavoritesRule::GridType:
    case FavoritesRule::ListType:
        return QStringLiteral("it takes the type \"%1\"").arg(type);
    case FavoritesRule::Page:
        return QStringLiteral("a page that neither the blacklist nor its \"params\" forbid");
    case FavoritesRule::PageOnBlacklist:
    case FavoritesRule::ActionOnBlacklist:
        return QStringLiteral("the favourites blacklist names its path");
    case FavoritesRule::PageForbidsIt:
        return QStringLiteral("\"allow_favorite\" in its \"params\" forbids it");
    case FavoritesRule::Action:
        return QStringLiteral("an action that the blacklist does not forbid");
    case FavoritesRule::CustomForList:
        return QStringLiteral("the \"type\" in its \"params\" is \"list\"");
    case FavoritesRule::CustomForGrid:
        return QStringLiteral("the \"type\" in its \"params\" is \"grid\"");
    case FavoritesRule::CustomForSimpleGrid:
        return QStringLiteral("the \"type\" in its \"params\" is \"grid\", \"simpleGrid\" does not forbid it");
    case FavoritesRule::CustomElsewhere:
        return QStringLiteral("the \"type\" in its \"params\" gives it no place here");
    case FavoritesRule::CustomNotSimple:
        return QStringLiteral("\"simpleGrid\" in its \"params\" forbids it");
    }
    return {};
}
}

QVector<FavoritesAnswer> favoritesAnswers(const TreeItem *item, const QSet<QString> &blacklist)
{
    QVector<FavoritesAnswer> answers;
    const QStringList kinds = FavoritesFilter::kinds();
    for (const QString &kind : kinds) {
        const FavoritesFilter filter({kind}, blacklist);
        answers.append({kind, filter.admits(item), textOf(filter.ruleFor(item), item->type())});
    }
    return answers;
}
