// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QHash>
#include <QMap>
#include <QSet>
#include <QStringList>

#include <optional>

class PathWatcher;
struct stat;

/// Distinguishes two states of a file without reading it.
struct FileStamp {
    quint64 device;
    quint64 inode;
    qint64 size;
    qint64 modified; ///< nanoseconds
    qint64 changed; ///< nanoseconds
};
bool operator==(const FileStamp &a, const FileStamp &b);

/// A desktop file in the directory, which has not been read yet.
struct ApplicationFile {
    QString path;
    FileStamp stamp;
    bool regular; ///< a pipe or a device with such a name hides other files with the same id, too
    quint64 revision; ///< a new one whenever the content may have changed; no two files have the same
};

/**
 * The desktop files of an application directory and its subdirectories, by the id that results from their path.
 *
 * Links to directories are not followed, except to the application directory itself: otherwise a file would have
 * several ids.
 */
class ApplicationDirectory
{
public:
    /// Follows its files through @p watcher.
    ApplicationDirectory(const QString &path, PathWatcher *watcher);

    QString path() const;
    QSet<QString> ids() const;
    std::optional<ApplicationFile> file(const QString &id) const;

    /// Returns whether a change of @p path can affect this directory.
    bool concerns(const QString &path) const;
    /// Reads the file or directory at @p path again, or all of them when the path leads to this directory. Returns the
    /// ids that may have changed.
    QSet<QString> update(const QString &path);

private:
    struct Folder {
        int depth;
        QSet<QString> entries; ///< paths of desktop files and folders
    };
    struct Change {
        QHash<QString, ApplicationFile> before; ///< by path
        QSet<QString> ids;
    };

    bool leadsHere(const QString &path) const;
    QString idOf(const QString &path) const;
    void watchParents() const;
    void take(const QString &path, Change *change);
    void takeFile(const QString &path, Change *change);
    void add(const QString &path, int depth, Change *change);
    QStringList addFolder(const QString &path, int depth);
    void addFile(const QString &path, bool isLink, Change *change);

    const QString m_path;
    PathWatcher *const m_watcher;
    QHash<QString, Folder> m_folders;
    QHash<QString, QMap<QString, ApplicationFile>> m_files; ///< by id, then by path: the first has the id
};
