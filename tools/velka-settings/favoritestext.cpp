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
        return QStringLiteral("it does not admit the type \"%1\"").arg(type);
    case FavoritesRule::GridType:
    case FavoritesRule::ListType:
        return QStringLiteral("it admits the type \"%1\"").arg(type);
    case FavoritesRule::Page:
        return QStringLiteral("a page that neither the blacklist nor its \"params\" exclude");
    case FavoritesRule::PageOnBlacklist:
    case FavoritesRule::ActionOnBlacklist:
        return QStringLiteral("the favourites blacklist contains its path");
    case FavoritesRule::PageForbidsIt:
        return QStringLiteral("\"allow_favorite\" in its \"params\" excludes it");
    case FavoritesRule::Action:
        return QStringLiteral("an action that the blacklist does not exclude");
    case FavoritesRule::CustomForList:
        return QStringLiteral("the \"type\" in its \"params\" is \"list\"");
    case FavoritesRule::CustomForGrid:
        return QStringLiteral("the \"type\" in its \"params\" is \"grid\"");
    case FavoritesRule::CustomForSimpleGrid:
        return QStringLiteral(
            "the \"type\" in its \"params\" is \"grid\", and \"simpleGrid\" does not exclude it");
    case FavoritesRule::CustomElsewhere:
        return QStringLiteral("the \"type\" in its \"params\" is another or missing");
    case FavoritesRule::CustomNotSimple:
        return QStringLiteral("\"simpleGrid\" in its \"params\" excludes it");
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
