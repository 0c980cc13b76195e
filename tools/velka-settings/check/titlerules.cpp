// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "catalogs.h"
#include "knownkeys.h"
#include "printable.h"
#include "rules.h"
#include "translationid.h"

#include <algorithm>

namespace Check
{
namespace
{
struct WrittenId {
    const Entry *entry;
    const Written *written;
    QString id;
};

/// The translation ids of a file, and the catalogs that it names for them.
class FileTitles
{
public:
    FileTitles(const Document &document, Catalogs *catalogs, Findings *findings);
    void check();

private:
    void findCatalogs(Catalogs *catalogs);
    void reportErrors(const Catalog &catalog, const Written &written);
    void reportMisnamed(const Catalog &catalog, const Written &written);
    void collectIds();
    bool checkIdsHaveCatalogs();
    bool checkIdsAreInCatalogs();
    void checkId(const WrittenId &id);
    void checkTitle(const Entry &entry);
    QStringList missingLanguages(const QString &id) const;
    bool isTranslated(const QString &id, const QString &language) const;
    bool hasFallback(const QString &id) const;
    bool isKnown(const QString &id) const;

    const Document &m_document;
    Findings *const m_findings;
    QVector<const Catalog *> m_found;
    bool m_isNamed = false;
    bool m_isReported = false; ///< why ids are not found
    QVector<WrittenId> m_ids;
    QStringList m_languages; ///< of the catalogs
};

FileTitles::FileTitles(const Document &document, Catalogs *catalogs, Findings *findings)
    : m_document(document)
    , m_findings(findings)
{
    findCatalogs(catalogs);
    collectIds();
}

void FileTitles::findCatalogs(Catalogs *catalogs)
{
    for (const char *key : {"translation_catalog", "complementary_translation_catalog"}) {
        const QString name = m_document.read.toObject().value(QLatin1String(key)).toString();
        if (name.isEmpty()) {
            continue;
        }
        m_isNamed = true;
        const Catalog &catalog = catalogs->catalog(name);
        const Written &written = *m_document.root.member(QLatin1String(key));
        reportErrors(catalog, written);
        if (catalog.isFound()) {
            m_found.append(&catalog);
        } else if (catalog.errors().isEmpty() && catalog.misnamedFiles().isEmpty()) {
            m_findings->atValue(
                Tag::MissingCatalog, written,
                QStringLiteral("there is no catalog %1 to check the ids with: select its directory "
                               "with --translations")
                    .arg(quoted(name)));
        }
        reportMisnamed(catalog, written);
    }
}

void FileTitles::reportErrors(const Catalog &catalog, const Written &written)
{
    const QStringList errors = catalog.errors();
    for (const QString &error : errors) {
        m_isReported = true;
        m_findings->atValue(Tag::CatalogUnusable, written,
                            QStringLiteral("the library cannot use the catalog %1").arg(error));
    }
}

void FileTitles::reportMisnamed(const Catalog &catalog, const Written &written)
{
    const QStringList files = catalog.misnamedFiles();
    if (files.isEmpty()) {
        return;
    }
    const QString language = files.first().mid(catalog.name().size() + 1).chopped(3);
    const QString others = files.size() == 1 ? QString() : QStringLiteral(" (and %1 more)").arg(files.size() - 1);
    m_isReported = true;
    m_findings->atValue(
        Tag::CatalogName, written,
        QStringLiteral("the library does not load \"%1\"%2: it looks for \"%3-%4.qm\"")
            .arg(printable(files.first()), others, printable(catalog.name()), printable(language)));
}

void FileTitles::collectIds()
{
    for (const Entry &entry : m_document.entries) {
        for (const char *key : {"translation_id", "translation_id_short", "keywords_id"}) {
            const QString id = readString(entry.read, QLatin1String(key));
            if (!id.isEmpty()) {
                m_ids.append({&entry, entry.written->member(QLatin1String(key)), id});
            }
        }
    }
    for (const Catalog *catalog : std::as_const(m_found)) {
        m_languages += catalog->locales();
    }
    m_languages.removeDuplicates();
}

void FileTitles::check()
{
    const bool canCheckIds = checkIdsHaveCatalogs() && checkIdsAreInCatalogs();
    for (const WrittenId &id : std::as_const(m_ids)) {
        if (std::any_of(id.id.cbegin(), id.id.cend(), [](QChar c) { return c.unicode() > 127; })) {
            m_findings->atValue(Tag::IdNotAscii, *id.written,
                                QStringLiteral("the id %1 is not ASCII").arg(quoted(id.id)));
        } else if (!isWritableId(id.id)) {
            m_findings->atValue(Tag::IdUnwritable, *id.written,
                                QStringLiteral("the id %1 breaks catalogs (*.ts)").arg(quoted(id.id)));
        } else if (canCheckIds) {
            checkId(id);
        }
    }
    for (const Entry &entry : m_document.entries) {
        checkTitle(entry);
    }
}

/// Reports once that the file has ids but names no catalog.
bool FileTitles::checkIdsHaveCatalogs()
{
    if (m_isNamed || m_ids.isEmpty() || m_document.root.member(QLatin1String("translation_catalog"))
        || misspeltMember(m_document.root, KnownKeys::topLevel(), QLatin1String("translation_catalog"))
        || std::any_of(m_document.entries.cbegin(), m_document.entries.cend(), [](const Entry &entry) {
               return entry.written->member(QLatin1String("translation_catalog"));
           })) {
        return m_isNamed;
    }
    const QString ids = m_ids.size() == 1 ? QStringLiteral("a translation id")
                                          : QStringLiteral("%1 translation ids").arg(m_ids.size());
    m_findings->atValue(Tag::IdWithoutCatalog, *m_ids.first().written,
                        QStringLiteral("the file has %1 but no \"translation_catalog\"").arg(ids));
    return false;
}

/// Reports once that a catalog has no ids, or none of the ids of the file.
bool FileTitles::checkIdsAreInCatalogs()
{
    if (m_found.isEmpty() || m_isReported || m_ids.isEmpty()) {
        return false;
    }
    const char *key = m_document.read.toObject().value(QLatin1String("translation_catalog")).toString().isEmpty()
                          ? "complementary_translation_catalog"
                          : "translation_catalog";
    const Written &written = *m_document.root.member(QLatin1String(key));
    QStringList withoutIds;
    for (const Catalog *catalog : std::as_const(m_found)) {
        withoutIds += catalog->filesWithoutIds();
    }
    if (!withoutIds.isEmpty()) {
        m_findings->atValue(Tag::CatalogWithoutIds, written,
                            QStringLiteral("%1 has no ids: compile it with \"lrelease -idbased\"")
                                .arg(printable(withoutIds.join(QStringLiteral(", ")))));
        return false;
    }
    const bool isAnyKnown = std::any_of(m_ids.cbegin(), m_ids.cend(),
                                        [this](const WrittenId &id) { return isKnown(id.id); });
    if (!isAnyKnown && m_ids.size() > 1) {
        m_findings->atValue(Tag::IdUnknown, written,
                            QStringLiteral("the catalog %1 has none of the %2 ids of the file")
                                .arg(quoted(m_found.first()->name()))
                                .arg(m_ids.size()));
        return false;
    }
    return true;
}

void FileTitles::checkId(const WrittenId &id)
{
    if (!isKnown(id.id)) {
        m_findings->atValue(Tag::IdUnknown, *id.written,
                            QStringLiteral("no catalog of the file has the id %1").arg(quoted(id.id)));
        return;
    }
    const QStringList missing = missingLanguages(id.id);
    const bool isTitle = id.written->key == QLatin1String("translation_id");
    const bool isKeywords = id.written->key == QLatin1String("keywords_id");
    const QString plain = isTitle      ? QStringLiteral("title")
                          : isKeywords ? QStringLiteral("keywords")
                                       : QStringLiteral("title_short");
    const bool isShown = !isTitle || hasFallback(id.id)
                         || !readString(id.entry->read, QLatin1String("title")).isEmpty();
    if (!missing.isEmpty() && isShown) {
        m_findings->atValue(Tag::IdUntranslated, *id.written,
                            QStringLiteral("the id %1 has no text in %2: %3 %4 there")
                                .arg(quoted(id.id), missing.join(QStringLiteral(", ")),
                                     hasFallback(id.id) ? QStringLiteral("engineering English")
                                                        : QStringLiteral("the plain \"%1\"").arg(plain),
                                     isKeywords ? QStringLiteral("is searched") : QStringLiteral("is shown")));
    }
}

void FileTitles::checkTitle(const Entry &entry)
{
    if (!entry.writtenPath || !readString(entry.read, QLatin1String("title")).isEmpty()) {
        return;
    }
    const QString id = readString(entry.read, QLatin1String("translation_id"));
    if (id.isEmpty()) {
        const QString shown = quoted(QStringLiteral("!!") + entry.names.value(entry.names.size() - 1));
        const Written *title = entry.written->member(QLatin1String("title"));
        if (title && title->kind == Written::String) {
            m_findings->atValue(Tag::TitleMissing, *title,
                                QStringLiteral("the title is empty: the entry is shown as %1").arg(shown));
            return;
        }
        const auto isMeant = [&entry](const char *name) {
            const QLatin1String key(name);
            return entry.written->member(key) || misspeltMember(*entry.written, KnownKeys::entry(), key);
        };
        if (!isMeant("title") && !isMeant("translation_id")) {
            m_findings->atValue(Tag::TitleMissing, *entry.written,
                                QStringLiteral("the entry has neither \"title\" nor \"translation_id\": it is "
                                               "shown as %1")
                                    .arg(shown));
        }
        return;
    }
    const QStringList missing = isKnown(id) ? missingLanguages(id) : QStringList();
    if (!missing.isEmpty() && !hasFallback(id)) {
        m_findings->atValue(
            Tag::TitleMissingInLocale, *entry.written->member(QLatin1String("translation_id")),
            QStringLiteral("the title is \"!!…\" in the languages %1").arg(missing.join(QStringLiteral(", "))));
    }
}

QStringList FileTitles::missingLanguages(const QString &id) const
{
    QStringList missing;
    for (const QString &language : m_languages) {
        if (!isTranslated(id, language)) {
            missing.append(language);
        }
    }
    return missing;
}

bool FileTitles::isTranslated(const QString &id, const QString &language) const
{
    return std::any_of(m_found.cbegin(), m_found.cend(),
                       [&](const Catalog *catalog) { return catalog->has(id, language); });
}

bool FileTitles::hasFallback(const QString &id) const
{
    return std::any_of(m_found.cbegin(), m_found.cend(),
                       [&id](const Catalog *catalog) { return catalog->hasFallback(id); });
}

bool FileTitles::isKnown(const QString &id) const
{
    return hasFallback(id) || std::any_of(m_languages.cbegin(), m_languages.cend(), [&](const QString &language) {
               return isTranslated(id, language);
           });
}
}

void checkTitles(const Document &document, Catalogs *catalogs, Findings *findings)
{
    FileTitles(document, catalogs, findings).check();
}
}
