// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "registry/compiledcatalog.h"

#include <QTranslator>

#include <memory>
#include <vector>

struct CatalogFile;

/**
 * A translator that loads its catalog from memory, after it has checked it and what it depends on.
 *
 * QTranslator trusts a catalog: a damaged one, one that depends on itself, or a file that shrinks while it is loaded can
 * end the process. What is found and what look-ups return is the same as with QTranslator.
 */
class CatalogTranslator : public QTranslator
{
public:
    using QTranslator::QTranslator;
    ~CatalogTranslator() override;

    // In place of the functions of QTranslator. They return false when there is no such catalog, or it cannot be used.
    bool load(const QString &name, const QString &directory);
    bool load(const QLocale &locale, const QString &name, const QString &prefix, const QString &directory);
    QString filePath() const;
    /// Returns the path of the catalog that was found and cannot be used, and the reason. Otherwise it is empty.
    QString error() const;
    /// Returns the source text or the id of each message, without those of dependencies.
    QList<QByteArray> sourceTexts() const;

    bool isEmpty() const override;
    QString translate(const char *context, const char *sourceText, const char *disambiguation = nullptr,
                      int n = -1) const override;

private:
    bool loadFile(const QString &path, const QString &directory);
    void use(const CatalogFile &file);

    QString m_filePath;
    QString m_error;
    CompiledCatalog m_catalog; ///< QTranslator does not copy it
    std::vector<std::unique_ptr<CatalogTranslator>> m_dependencies;
};
