// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include <map>
#include <memory>

class CatalogTranslator;

namespace Check
{
/// The texts of a catalog in all available languages.
class Catalog
{
public:
    Catalog(const QString &name, const QString &directory);
    ~Catalog();
    Catalog(const Catalog &) = delete;
    Catalog &operator=(const Catalog &) = delete;

    bool isFound() const;
    QStringList errors() const; ///< the files that cannot be used, and the reasons
    QStringList locales() const;
    bool has(const QString &id, const QString &locale) const;
    bool hasFallback(const QString &id) const; ///< in engineering English
    QString name() const;
    /// Returns the names of files that seem to belong to the catalog, but that the library does not look for.
    QStringList misnamedFiles() const;
    QStringList filesWithoutIds() const; ///< those whose texts are looked up by their source texts

private:
    void addTranslation(const QString &file, const QString &directory);
    bool load(CatalogTranslator *translator, const QString &name, const QString &directory);

    const QString m_name;
    std::map<QString, std::unique_ptr<CatalogTranslator>> m_byLocale;
    const std::unique_ptr<CatalogTranslator> m_fallback;
    QStringList m_errors;
    QStringList m_misnamedFiles;
    QStringList m_filesWithoutIds;
};

/// The catalogs in a directory. Each is loaded once.
class Catalogs
{
public:
    explicit Catalogs(const QString &directory);
    const Catalog &catalog(const QString &name);

private:
    const QString m_directory;
    std::map<QString, std::unique_ptr<Catalog>> m_catalogs;
};
}
