// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "catalogs.h"
#include "rules.h"

#include <algorithm>

namespace Check
{
namespace
{
struct NamedCatalogs {
    QVector<const Catalog *> found;
    bool isNamed = false;
};

NamedCatalogs findCatalogs(const Document &document, Catalogs *catalogs, Findings *findings)
{
    NamedCatalogs result;
    for (const char *key : {"translation_catalog", "complementary_translation_catalog"}) {
        const QString name = document.read.toObject().value(QLatin1String(key)).toString();
        if (name.isEmpty()) {
            continue;
        }
        result.isNamed = true;
        const Catalog &catalog = catalogs->catalog(name);
        const Written &written = *document.root.member(QLatin1String(key));
        const QStringList errors = catalog.errors();
        for (const QString &error : errors) {
            findings->atValue(Tag::CatalogUnusable, written,
                              QStringLiteral("the library cannot use the catalog %1").arg(error));
        }
        if (catalog.isFound()) {
            result.found.append(&catalog);
        } else if (errors.isEmpty()) {
            findings->atValue(Tag::MissingCatalog, written,
                              QStringLiteral("there is no catalog %1 to check the ids with").arg(quoted(name)));
        }
    }
    return result;
}

bool hasFallback(const QVector<const Catalog *> &catalogs, const QString &id)
{
    return std::any_of(catalogs.cbegin(), catalogs.cend(),
                       [&id](const Catalog *catalog) { return catalog->hasFallback(id); });
}

/// Returns the languages of @p catalogs, and whether each has a text for @p id.
std::map<QString, bool> locales(const QVector<const Catalog *> &catalogs, const QString &id)
{
    std::map<QString, bool> isTranslated;
    for (const Catalog *catalog : catalogs) {
        const QStringList names = catalog->locales();
        for (const QString &name : names) {
            isTranslated[name] = isTranslated[name] || catalog->has(id, name);
        }
    }
    return isTranslated;
}

bool isKnown(const QVector<const Catalog *> &catalogs, const QString &id)
{
    const std::map<QString, bool> translated = locales(catalogs, id);
    return hasFallback(catalogs, id)
           || std::any_of(translated.cbegin(), translated.cend(),
                          [](const auto &locale) { return locale.second; });
}

void checkId(const Entry &entry, const char *key, const NamedCatalogs &catalogs, Findings *findings)
{
    const QString id = readString(entry.read, QLatin1String(key));
    if (id.isEmpty()) {
        return;
    }
    const Written &written = *entry.written->member(QLatin1String(key));
    if (std::any_of(id.cbegin(), id.cend(), [](QChar c) { return c.unicode() > 127; })) {
        findings->atValue(Tag::IdNotAscii, written, QStringLiteral("the id %1 is not ASCII").arg(quoted(id)));
    } else if (!catalogs.isNamed) {
        findings->atValue(Tag::IdWithoutCatalog, written, QStringLiteral("the file names no catalog for this id"));
    } else if (!catalogs.found.isEmpty() && !isKnown(catalogs.found, id)) {
        findings->atValue(Tag::IdUnknown, written,
                          QStringLiteral("no catalog of the file has the id %1").arg(quoted(id)));
    }
}

void checkTitle(const Entry &entry, const NamedCatalogs &catalogs, Findings *findings)
{
    if (!entry.writtenPath || !readString(entry.read, QLatin1String("title")).isEmpty()) {
        return;
    }
    const QString id = readString(entry.read, QLatin1String("translation_id"));
    if (id.isEmpty()) {
        findings->atValue(Tag::TitleMissing, *entry.written,
                          QStringLiteral("the entry has neither \"title\" nor \"translation_id\""));
        return;
    }
    QStringList missing;
    for (const auto &[locale, isTranslated] : locales(catalogs.found, id)) {
        if (!isTranslated) {
            missing.append(locale);
        }
    }
    if (!missing.isEmpty() && !hasFallback(catalogs.found, id)) {
        findings->atValue(
            Tag::TitleMissingInLocale, *entry.written->member(QLatin1String("translation_id")),
            QStringLiteral("the title is \"!!…\" in the languages %1").arg(missing.join(QStringLiteral(", "))));
    }
}
}

void checkTitles(const Document &document, Catalogs *catalogs, Findings *findings)
{
    const NamedCatalogs named = findCatalogs(document, catalogs, findings);
    for (const Entry &entry : document.entries) {
        checkId(entry, "translation_id", named, findings);
        checkId(entry, "translation_id_short", named, findings);
        checkTitle(entry, named, findings);
    }
}
}
