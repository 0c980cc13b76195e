// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applicationdirectory.h"

#include "pathwatcher.h"

#include <QDirIterator>
#include <QFile>

#include <sys/stat.h>

#include <tuple>

namespace
{
constexpr int MaxDepth = 16;

struct Place {
    QString path;
    int depth;
};

QString parentOf(const QString &path)
{
    return path.left(path.lastIndexOf(QLatin1Char('/')));
}

qint64 nanoseconds(const timespec &time)
{
    return qint64(time.tv_sec) * 1000000000 + time.tv_nsec;
}

FileStamp stampOf(const struct stat &status)
{
    return {status.st_dev, status.st_ino, status.st_size, nanoseconds(status.st_mtim),
            nanoseconds(status.st_ctim)};
}

quint64 nextRevision()
{
    static quint64 s_revision = 0;
    return ++s_revision;
}
}

bool operator==(const FileStamp &a, const FileStamp &b)
{
    return std::tie(a.device, a.inode, a.size, a.modified, a.changed)
           == std::tie(b.device, b.inode, b.size, b.modified, b.changed);
}

ApplicationDirectory::ApplicationDirectory(const QString &path, PathWatcher *watcher)
    : m_path(path)
    , m_watcher(watcher)
{
    update(path);
}

QString ApplicationDirectory::path() const
{
    return m_path;
}

QSet<QString> ApplicationDirectory::ids() const
{
    return {m_files.keyBegin(), m_files.keyEnd()};
}

std::optional<ApplicationFile> ApplicationDirectory::file(const QString &id) const
{
    const auto found = m_files.constFind(id);
    return found == m_files.cend() ? std::nullopt : std::make_optional(found->first());
}

bool ApplicationDirectory::leadsHere(const QString &path) const
{
    return m_path == path || m_path.startsWith(path + QLatin1Char('/'));
}

bool ApplicationDirectory::concerns(const QString &path) const
{
    return m_folders.contains(parentOf(path)) || leadsHere(path);
}

QSet<QString> ApplicationDirectory::update(const QString &path)
{
    Change change;
    if (leadsHere(path)) {
        watchParents();
        take(m_path, &change);
        add(m_path, 0, &change);
        return change.ids;
    }
    const auto folder = m_folders.constFind(parentOf(path));
    if (folder == m_folders.cend()) {
        return {}; // removed with its folder
    }
    const int depth = folder->depth + 1;
    take(path, &change);
    change.before.remove(path); // the file changed, even if its stamp did not
    add(path, depth, &change);
    return change.ids;
}

QString ApplicationDirectory::idOf(const QString &path) const
{
    return path.mid(m_path.size() + 1).replace(QLatin1Char('/'), QLatin1Char('-'));
}

// Any parent directory can be created, removed or replaced, and this directory with it.
void ApplicationDirectory::watchParents() const
{
    for (int slash = 0; slash >= 0; slash = m_path.indexOf(QLatin1Char('/'), slash + 1)) {
        m_watcher->watchNames(slash == 0 ? QStringLiteral("/") : m_path.left(slash));
    }
}

void ApplicationDirectory::take(const QString &path, Change *change)
{
    const auto parent = m_folders.find(parentOf(path));
    if (parent != m_folders.end()) {
        parent->entries.remove(path);
    }
    QStringList pending{path};
    while (!pending.isEmpty()) {
        const QString next = pending.takeLast();
        m_watcher->unwatch(next);
        if (m_folders.contains(next)) {
            pending += m_folders.take(next).entries.values();
        } else {
            takeFile(next, change);
        }
    }
}

void ApplicationDirectory::takeFile(const QString &path, Change *change)
{
    const QString id = idOf(path);
    const auto files = m_files.find(id);
    if (files == m_files.end() || !files->contains(path)) {
        return;
    }
    change->ids.insert(id);
    change->before.insert(path, files->take(path));
    if (files->isEmpty()) {
        m_files.erase(files);
    }
}

void ApplicationDirectory::add(const QString &path, int depth, Change *change)
{
    QVector<Place> pending{{path, depth}};
    while (!pending.isEmpty()) {
        const Place place = pending.takeLast();
        const QByteArray name = QFile::encodeName(place.path);
        struct stat status;
        if ((place.depth == 0 ? stat : lstat)(name.constData(), &status) != 0) {
            continue;
        }
        if (!S_ISDIR(status.st_mode)) {
            addFile(place.path, S_ISLNK(status.st_mode), change);
        } else if (place.depth <= MaxDepth) {
            const QStringList entries = addFolder(place.path, place.depth);
            for (const QString &entry : entries) {
                pending.append({entry, place.depth + 1});
            }
        }
    }
}

QStringList ApplicationDirectory::addFolder(const QString &path, int depth)
{
    // Watch before reading. Otherwise a file that is added in between would be lost.
    m_watcher->watchDirectory(path);
    m_folders.insert(path, {depth, {}});
    if (path != m_path) {
        m_folders[parentOf(path)].entries.insert(path);
    }
    QStringList entries;
    QDirIterator it(path, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    while (it.hasNext()) {
        entries.append(it.next());
    }
    return entries;
}

void ApplicationDirectory::addFile(const QString &path, bool isLink, Change *change)
{
    if (path == m_path || !path.endsWith(QLatin1String(".desktop"))) {
        return;
    }
    if (isLink) {
        m_watcher->watchFile(path);
    }
    const QByteArray name = QFile::encodeName(path);
    struct stat status;
    // A broken link is a file that cannot be read.
    if (stat(name.constData(), &status) != 0 && lstat(name.constData(), &status) != 0) {
        return;
    }
    if (S_ISDIR(status.st_mode)) {
        return;
    }
    const FileStamp stamp = stampOf(status);
    const auto before = change->before.constFind(path);
    const bool isSame = before != change->before.cend() && before->stamp == stamp;
    const QString id = idOf(path);
    change->ids.insert(id);
    m_folders[parentOf(path)].entries.insert(path);
    m_files[id].insert(path, {path, stamp, S_ISREG(status.st_mode), isSame ? before->revision : nextRevision()});
}
