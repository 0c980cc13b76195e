// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applicationscan.h"

#include "pathwatcher.h"
#include "regularfile.h"

#include <QFile>

#include <dirent.h>
#include <sys/stat.h>

#include <cerrno>
#include <memory>
#include <tuple>

namespace
{
struct CloseDirectory {
    void operator()(DIR *directory) const
    {
        closedir(directory);
    }
};

qint64 nanoseconds(const timespec &time)
{
    return qint64(time.tv_sec) * 1000000000 + time.tv_nsec;
}

FileStamp stampOf(const struct stat &status)
{
    return {status.st_dev, status.st_ino, status.st_size, nanoseconds(status.st_mtim),
            nanoseconds(status.st_ctim)};
}

bool isDotName(const char *name)
{
    return qstrcmp(name, ".") == 0 || qstrcmp(name, "..") == 0;
}

bool isDesktopFile(const QString &name)
{
    return name.endsWith(QLatin1String(".desktop"));
}

class Scanner
{
public:
    Scanner(const ScanRoom &room, PathWatcher *watcher);

    ScannedTree scan(const QString &path, int depth);

private:
    struct Place {
        QString path;
        int depth;
    };

    bool isFull() const;
    void addEntry(const QString &path, int depth, unsigned char type);
    void addFolder(const Place &place);
    void addEntries(DIR *directory, const Place &place);
    void addFile(const QString &path, bool isLink);
    void fail(const QString &path, int error);

    ScanRoom m_room;
    PathWatcher *const m_watcher;
    ScannedTree m_tree;
    QVector<Place> m_pending; ///< directories that were found and are read after all before them
};

Scanner::Scanner(const ScanRoom &room, PathWatcher *watcher)
    : m_room(room)
    , m_watcher(watcher)
{
}

ScannedTree Scanner::scan(const QString &path, int depth)
{
    if (depth == 0) {
        m_pending.append({path, depth}); // may be a link to a directory
    } else {
        addEntry(path, depth, DT_UNKNOWN);
    }
    for (int i = 0; i < m_pending.size() && m_tree.error.isEmpty() && !isFull(); ++i) {
        addFolder(Place(m_pending.at(i)));
    }
    return m_tree;
}

bool Scanner::isFull() const
{
    return m_room.files == 0 && m_tree.exceeded;
}

void Scanner::addEntry(const QString &path, int depth, unsigned char type)
{
    if (m_room.files == 0) {
        m_tree.exceeded = true;
        return;
    }
    --m_room.files;
    if (type == DT_UNKNOWN) {
        struct stat status;
        if (lstat(QFile::encodeName(path).constData(), &status) != 0) {
            fail(path, errno);
            return;
        }
        type = IFTODT(status.st_mode);
    }
    if (type == DT_DIR) {
        m_pending.append({path, depth});
    } else if (isDesktopFile(path)) {
        addFile(path, type == DT_LNK);
    }
}

void Scanner::addFolder(const Place &place)
{
    if (place.depth > MaxScanDepth || m_room.directories == 0) {
        m_tree.exceeded = true;
        return;
    }
    // Watch before reading. Otherwise a file that is added in between would be lost.
    m_watcher->watchDirectory(place.path);
    m_tree.watched.insert(place.path);
    const std::unique_ptr<DIR, CloseDirectory> directory(opendir(QFile::encodeName(place.path).constData()));
    if (!directory && errno != EACCES) {
        fail(place.path, errno);
        return;
    }
    --m_room.directories;
    m_tree.folders.insert(place.path, place.depth);
    if (directory) {
        addEntries(directory.get(), place);
    }
}

void Scanner::addEntries(DIR *directory, const Place &place)
{
    while (!isFull()) {
        errno = 0;
        const dirent *entry = readdir(directory);
        if (!entry) {
            fail(place.path, errno);
            return;
        }
        if (!isDotName(entry->d_name)) {
            addEntry(place.path + QLatin1Char('/') + QFile::decodeName(entry->d_name), place.depth + 1,
                     entry->d_type);
        }
    }
}

void Scanner::addFile(const QString &path, bool isLink)
{
    if (isLink) {
        m_watcher->watchFile(path);
        m_tree.watched.insert(path);
    }
    const QByteArray name = QFile::encodeName(path);
    struct stat status;
    // A broken link is a file that cannot be read.
    if (stat(name.constData(), &status) != 0 && lstat(name.constData(), &status) != 0) {
        fail(path, errno);
        return;
    }
    if (S_ISDIR(status.st_mode)) {
        return;
    }
    const FoundFile file{path, stampOf(status), S_ISREG(status.st_mode)};
    if (file.cost() > m_room.bytes) {
        m_tree.exceeded = true;
        return;
    }
    m_room.bytes -= file.cost();
    m_tree.files.append(file);
}

// Any other error means that the file or directory does not exist or may not be read.
void Scanner::fail(const QString &path, int error)
{
    if (isShortage(error)) {
        m_tree.error = QStringLiteral("cannot read \"%1\": %2").arg(path, qt_error_string(error));
    }
}
}

bool operator==(const FileStamp &a, const FileStamp &b)
{
    return std::tie(a.device, a.inode, a.size, a.modified, a.changed)
           == std::tie(b.device, b.inode, b.size, b.modified, b.changed);
}

qint64 FoundFile::cost() const
{
    constexpr qint64 MaxSize = 1 << 20; // MDesktopEntry refuses a larger one
    return regular && stamp.size <= MaxSize ? stamp.size : 0;
}

ScannedTree scanApplications(const QString &path, int depth, const ScanRoom &room, PathWatcher *watcher)
{
    return Scanner(room, watcher).scan(path, depth);
}
