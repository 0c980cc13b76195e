// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QDir>
#include <QObject>
#include <QStringList>

/**
 * Registration files of a working copy, in the directory that the registry reads. Whenever one is saved it is read
 * anew, without the registry's own delay.
 */
class PreviewedFiles
{
public:
    /// Before the registry is made. Names of the same file in two directories replace each other.
    explicit PreviewedFiles(const QStringList &paths);

    void follow();

private:
    bool copy(const QString &path) const;
    void reload(const QString &path) const;

    const QStringList m_paths;
    const QDir m_entries;
    QObject m_watchers; ///< their parent
};
