// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "catalogs.h"

#include "localename.h"
#include "registry/catalogtranslator.h"
#include "registry/filename.h"

#include <QDir>

namespace Check
{
namespace
{
bool hasText(const QTranslator &translator, const QString &id)
{
    const QString text = translator.translate("", id.toLatin1().constData());
    return !text.isEmpty() && text != id;
}

bool looksLikeId(const QByteArray &text)
{
    return !text.contains(' ') && (text.contains('-') || text.contains('_'));
}

/// Returns whether the messages seem to be looked up by their source texts, not by ids.
bool lacksIds(const CatalogTranslator &translator)
{
    int ids = 0;
    int others = 0;
    const QList<QByteArray> texts = translator.sourceTexts();
    for (const QByteArray &text : texts) {
        ids += looksLikeId(text) ? 1 : 0;
        others += text.isEmpty() || looksLikeId(text) ? 0 : 1;
    }
    return others > ids;
}

/// Returns whether @p file has the name of the catalog and a language, but not as the library joins them.
bool isMisnamed(const QString &file, const QString &catalog)
{
    if (!file.startsWith(catalog) || file.size() <= catalog.size() + 4) {
        return false;
    }
    const QChar separator = file.at(catalog.size());
    const QString language = file.mid(catalog.size() + 1).chopped(3);
    const bool isFallback = language == QLatin1String("eng_en") || language == QLatin1String("eng");
    const bool isForeign = separator == QLatin1Char('_') || separator == QLatin1Char('.');
    return (isForeign && !isFallback && isLocale(language))
           || (separator == QLatin1Char('-') && !file.endsWith(QLatin1String(".qm")));
}
}

Catalog::Catalog(const QString &name, const QString &directory)
    : m_name(name)
    , m_fallback(std::make_unique<CatalogTranslator>())
{
    const QString fallback = name + QLatin1String("_eng_en");
    if (isFileName(fallback)) {
        load(m_fallback.get(), fallback, directory);
    }
    const QStringList files = QDir(directory).entryList({QStringLiteral("*.qm")}, QDir::Files); // in any case
    for (const QString &file : files) {
        if (isMisnamed(file, name)) {
            m_misnamedFiles.append(file);
        } else if (file.startsWith(name + QLatin1Char('-'))) {
            addTranslation(file, directory);
        }
    }
}

Catalog::~Catalog() = default;

void Catalog::addTranslation(const QString &file, const QString &directory)
{
    auto translator = std::make_unique<CatalogTranslator>();
    if (!load(translator.get(), file, directory)) {
        return;
    }
    if (lacksIds(*translator)) {
        m_filesWithoutIds.append(file);
    }
    m_byLocale.emplace(file.mid(m_name.size() + 1).chopped(3), std::move(translator));
}

bool Catalog::load(CatalogTranslator *translator, const QString &name, const QString &directory)
{
    const bool isLoaded = translator->load(name, directory);
    if (!translator->error().isEmpty()) {
        m_errors.append(translator->error());
    }
    return isLoaded;
}

QStringList Catalog::errors() const
{
    return m_errors;
}

QString Catalog::name() const
{
    return m_name;
}

QStringList Catalog::misnamedFiles() const
{
    return m_misnamedFiles;
}

QStringList Catalog::filesWithoutIds() const
{
    return m_filesWithoutIds;
}

bool Catalog::isFound() const
{
    return !m_byLocale.empty() || !m_fallback->isEmpty();
}

QStringList Catalog::locales() const
{
    QStringList locales;
    for (const auto &[locale, translator] : m_byLocale) {
        locales.append(locale);
    }
    return locales;
}

bool Catalog::has(const QString &id, const QString &locale) const
{
    const auto it = m_byLocale.find(locale);
    return it != m_byLocale.end() && hasText(*it->second, id);
}

bool Catalog::hasFallback(const QString &id) const
{
    return hasText(*m_fallback, id);
}

Catalogs::Catalogs(const QString &directory)
    : m_directory(directory)
{
}

const Catalog &Catalogs::catalog(const QString &name)
{
    std::unique_ptr<Catalog> &catalog = m_catalogs[name];
    if (!catalog) {
        catalog = std::make_unique<Catalog>(name, m_directory);
    }
    return *catalog;
}
}
