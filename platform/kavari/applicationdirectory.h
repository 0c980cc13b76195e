// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "applicationscan.h"

#include <QMap>
#include <QStringList>

#include <optional>

/// A desktop file in the directory. A pipe or a device with such a name hides other files with the same id, too.
struct ApplicationFile : FoundFile {
    quint64 revision; ///< a new one whenever the content may have changed; no two files have the same
};

/**
 * The desktop files of an application directory and its subdirectories, by the id that results from their path.
 *
 * It has bounds. What exceeds them is left out, with one warning.
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
    /// ids that may have changed. If descriptors or memory are short, changes nothing.
    QSet<QString> update(const QString &path);

    /// Returns why files may be missing or outdated; empty if all of them could be found.
    QString problem() const;
    /// Returns whether the directory should be read whole again, for that reason or because there is room again.
    bool isOutdated() const;

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
    bool isKnown(const QString &path) const;
    QStringList knownBelow(const QString &path) const;
    ScanRoom roomWithout(const QStringList &paths) const;
    QSet<QString> replace(const QString &path, int depth, bool isChanged);
    void remove(const QString &path, Change *change);
    void abandon(const ScannedTree &tree);
    void addFolders(const ScannedTree &tree);
    void addFile(const FoundFile &file, Change *change);
    void addToParent(const QString &path);
    void warnOfExcess();

    const QString m_path;
    PathWatcher *const m_watcher;
    QHash<QString, Folder> m_folders;
    QHash<QString, QMap<QString, ApplicationFile>> m_files; ///< by id, then by path: the first has the id
    QString m_problem;
    ScanRoom m_room; ///< what is left
    bool m_isExceeded = false;
    bool m_hasRoomAgain = false;
};
