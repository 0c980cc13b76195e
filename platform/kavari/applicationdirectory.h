// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef APPLICATIONDIRECTORY_H
#define APPLICATIONDIRECTORY_H

#include <QHash>
#include <QMap>
#include <QSet>
#include <QStringList>

#include <optional>

class PathWatcher;
struct stat;

/// What tells one state of a file from the next without reading it.
struct FileStamp {
    quint64 device;
    quint64 inode;
    qint64 size;
    qint64 modified; ///< nanoseconds
    qint64 changed; ///< nanoseconds
};
bool operator==(const FileStamp &a, const FileStamp &b);

/// A desktop file as the directory has it. It is not read yet.
struct ApplicationFile {
    QString path;
    FileStamp stamp;
    bool regular; ///< a pipe or a device of such a name still hides other files of its id
    quint64 revision; ///< another one whenever the content may have changed, never the same for two files
};

/**
 * The desktop files of one application directory and the directories in it, by the id that their path gives them.
 *
 * A link to a directory below the first is not followed: what a file is called would depend on the way to it.
 */
class ApplicationDirectory
{
public:
    /// Its files are followed through @p watcher.
    ApplicationDirectory(const QString &path, PathWatcher *watcher);

    QString path() const;
    QSet<QString> ids() const;
    std::optional<ApplicationFile> file(const QString &id) const;

    /// Whether a change of the entry at @p path can be one here.
    bool concerns(const QString &path) const;
    /// Looks again at the file or directory at @p path, at all of them when it leads to this directory. Returns the
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
    void watchWay() const;
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

#endif
