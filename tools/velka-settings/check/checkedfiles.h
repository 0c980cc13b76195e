// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "entriesplace.h"

#include <QSet>
#include <QString>
#include <QVector>

namespace Check
{
struct CheckedFile {
    QString path; ///< as it was given
    QString translations; ///< the directory of its catalogs, empty for that of the system
    QString vocabulary; ///< the path of that of its host, which need not exist
    bool isInstalled = false; ///< whether it is only compared with
    bool isStandardInput = false;
};

using FileGroup = QVector<CheckedFile>;

/// The files to check, in groups of files that the library loads together. Each is a member once, whatever its names.
class CheckedFiles
{
public:
    void add(const EntriesPlace &place);
    void addStandardInput();
    /// Compares all files with those of @p place, unless it has files of the same names: they are older versions.
    void compareWith(const EntriesPlace &place);

    /// Returns the groups, and the files of each in the order in which the library loads them.
    QVector<FileGroup> groups() const;
    int count() const;

private:
    QVector<CheckedFile> m_files;
    QVector<CheckedFile> m_installed;
    QSet<QString> m_known;
};

/// Returns whether @p path is that of a favourites blacklist.
bool isBlacklistPath(const QString &path);
}
