// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QHash>
#include <QSet>
#include <QString>
#include <QVector>

class PathWatcher;

/// Distinguishes two states of a file without reading it.
struct FileStamp {
    quint64 device;
    quint64 inode;
    qint64 size;
    qint64 modified; ///< nanoseconds
    qint64 changed; ///< nanoseconds
};
bool operator==(const FileStamp &a, const FileStamp &b);

/// A desktop file that was found and has not been read.
struct FoundFile {
    QString path;
    FileStamp stamp;
    bool regular;

    /// Returns how much of it is read.
    qint64 cost() const;
};

/// The numbers of directories and files that may still be found.
struct ScanRoom {
    int directories;
    int files; ///< of any name
    qint64 bytes; ///< of desktop files
};

constexpr int MaxScanDepth = 16; ///< of directories below an application directory

struct ScannedTree {
    QHash<QString, int> folders; ///< their depth by their path
    QVector<FoundFile> files;
    QSet<QString> watched;
    QString error; ///< not empty if descriptors or memory were short: then files are missing here
    bool exceeded = false; ///< there is more than there was room for, or it is too deep
};

/**
 * Finds the desktop files in the directory @p path, or the desktop file @p path, and watches what it finds with
 * @p watcher. @p depth is that of the path below the application directory.
 *
 * Links to directories are not followed, except if the application directory is one: otherwise a file would have
 * several ids. Directories are read level by level, so that a large one leaves room for its siblings.
 */
ScannedTree scanApplications(const QString &path, int depth, const ScanRoom &room, PathWatcher *watcher);
