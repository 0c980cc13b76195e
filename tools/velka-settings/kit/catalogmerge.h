// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "identifiedtexts.h"

#include <QTemporaryDir>

/// Merges the texts of registration files into catalogs (*.ts) with Qt's lupdate, which keeps all translations. It
/// reads no JSON: it gets C++ that has the same ids in the same lines of files of the same names.
class CatalogMerge
{
public:
    /// Adds the registration file at @p path.
    void add(const QString &path, const QVector<IdentifiedText> &texts);
    /// Returns @p content of the catalog at @p path, which may be empty, with the texts of all files. Texts of a new
    /// catalog are translated into @p language. Returns nothing, and sets @p problem, when that is not possible.
    std::optional<QByteArray> merged(const QString &path, const QByteArray &content, const QString &language,
                                     QString *problem) const;

private:
    QString run(const QString &program, const QString &catalog, const QString &language) const;
    QString mirrored(const QString &path) const;

    QTemporaryDir m_mirror; ///< of the root directory, so that relative places in catalogs are right
    QStringList m_sources;
};
