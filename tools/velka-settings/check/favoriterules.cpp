// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "knownkeys.h"
#include "rules.h"

namespace Check
{
namespace
{
bool isCustom(const Entry &entry)
{
    return entry.type.contains(QLatin1String("custom"));
}

const Written *paramOf(const Entry &entry, const char *key)
{
    return entry.writtenParams ? entry.writtenParams->member(QLatin1String(key)) : nullptr;
}

QString placeOf(const Entry &entry)
{
    return readString(entry.params, QLatin1String("type"));
}

/// Returns whether the place may be in "params" that another rule reports.
bool hasUnclearPlace(const Entry &entry)
{
    return misspeltMember(*entry.written, KnownKeys::entry(), QLatin1String("params"))
           || (entry.written->member(QLatin1String("params")) && !entry.writtenParams)
           || (entry.writtenParams
               && misspeltMember(*entry.writtenParams, KnownKeys::params(), QLatin1String("type")));
}

void misplacedFavorite(const Entry &entry, Findings *findings)
{
    if (const Written *value = entry.written->member(QLatin1String("allow_favorite"))) {
        findings->atKey(Tag::FavoriteMisplaced, *value,
                        QStringLiteral("\"allow_favorite\" is only read in \"params\""));
    }
}

void unreadFavorite(const Entry &entry, Findings *findings)
{
    if (hasUnclearType(entry)) {
        return;
    }
    const Written *allowed = paramOf(entry, "allow_favorite");
    if (allowed && entry.type != QLatin1String("page")) {
        findings->atKey(Tag::FavoriteUnread, *allowed,
                        QStringLiteral("\"allow_favorite\" is only read for the type \"page\""));
    }
    const Written *simple = paramOf(entry, "simpleGrid");
    if (simple && !(isCustom(entry) && placeOf(entry) == QLatin1String("grid"))) {
        findings->atKey(Tag::FavoriteUnread, *simple,
                        QStringLiteral("\"simpleGrid\" is only read for custom types in a grid"));
    }
}

void customWithoutPlace(const Entry &entry, Findings *findings)
{
    const QString place = placeOf(entry);
    if (isCustom(entry) && !hasUnclearPlace(entry) && place != QLatin1String("grid")
        && place != QLatin1String("list")) {
        const Written *written = paramOf(entry, "type");
        findings->atValue(
            Tag::CustomWithoutPlace, written ? *written : *entry.written->member(QLatin1String("type")),
            QStringLiteral(
                "without \"type\": \"grid\" or \"list\" in \"params\" this is not offered as a favourite"));
    }
}
}

QVector<EntryRule> favoriteRules()
{
    return {misplacedFavorite, unreadFavorite, customWithoutPlace};
}
}
