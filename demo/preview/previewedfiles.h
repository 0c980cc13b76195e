// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QDir>
#include <QObject>
#include <QStringList>

/**
 * Registration files of a working copy, copied to the directory that the registry reads. A file that is saved is copied
 * and loaded again without the delay of the registry.
 */
class PreviewedFiles
{
public:
    /// Must be called before the registry is created. Of two files with the same name, the last one is used.
    explicit PreviewedFiles(const QStringList &paths);

    void follow();

private:
    bool copy(const QString &path) const;
    void reload(const QString &path) const;

    const QStringList m_paths;
    const QDir m_entries;
    QObject m_watchers; ///< the parent of the watchers
};
