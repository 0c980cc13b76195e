// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applicationdirectory.h"

#include "pathwatcher.h"
#include "printable.h"

#include <utility>

namespace
{
// Some ten times what large systems have. A directory that leads elsewhere, such as a link to "/", has more.
constexpr int MaxDirectories = 1000;
constexpr int MaxFiles = 100000;
constexpr int MaxMebibytes = 64;

QString parentOf(const QString &path)
{
    return path.left(path.lastIndexOf(QLatin1Char('/')));
}

quint64 nextRevision()
{
    static quint64 s_revision = 0;
    return ++s_revision;
}
}

ApplicationDirectory::ApplicationDirectory(const QString &path, PathWatcher *watcher)
    : m_path(path)
    , m_watcher(watcher)
    , m_room{MaxDirectories, MaxFiles, qint64(MaxMebibytes) << 20}
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
    if (leadsHere(path)) {
        watchParents();
        return replace(m_path, 0, false);
    }
    const auto folder = m_folders.constFind(parentOf(path));
    if (folder == m_folders.cend()) {
        return {}; // removed with its folder
    }
    return replace(path, folder->depth + 1, true); // the file changed, even if its stamp did not
}

QString ApplicationDirectory::problem() const
{
    return m_problem;
}

bool ApplicationDirectory::isOutdated() const
{
    return !m_problem.isEmpty() || m_hasRoomAgain;
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

bool ApplicationDirectory::isKnown(const QString &path) const
{
    return m_folders.contains(path) || m_files.value(idOf(path)).contains(path);
}

/// Returns the known folders and files below @p path, and itself if it is known.
QStringList ApplicationDirectory::knownBelow(const QString &path) const
{
    QStringList paths;
    if (isKnown(path)) {
        paths.append(path);
    }
    for (int i = 0; i < paths.size(); ++i) {
        const auto folder = m_folders.constFind(paths.at(i));
        if (folder != m_folders.cend()) {
            paths += folder->entries.values();
        }
    }
    return paths;
}

ScanRoom ApplicationDirectory::roomWithout(const QStringList &paths) const
{
    ScanRoom room = m_room;
    for (const QString &path : paths) {
        if (m_folders.contains(path)) {
            ++room.directories;
        } else {
            ++room.files;
            room.bytes += m_files.value(idOf(path)).value(path).cost();
        }
    }
    return room;
}

/// Scans what is at @p path. A file with an equal stamp keeps its revision unless it @p isChanged.
QSet<QString> ApplicationDirectory::replace(const QString &path, int depth, bool isChanged)
{
    const QStringList known = knownBelow(path);
    const ScannedTree tree = scanApplications(path, depth, roomWithout(known), m_watcher);
    if (!tree.error.isEmpty()) {
        m_problem = tree.error;
        abandon(tree);
        return {};
    }
    Change change;
    for (const QString &removed : known) {
        remove(removed, &change);
        if (!tree.watched.contains(removed)) {
            m_watcher->unwatch(removed);
        }
    }
    if (isChanged) {
        change.before.remove(path);
    }
    addFolders(tree);
    for (const FoundFile &file : tree.files) {
        addFile(file, &change);
    }
    if (path == m_path) {
        m_problem.clear();
        m_isExceeded = m_isExceeded && tree.exceeded;
        m_hasRoomAgain = false;
    } else if (m_isExceeded && known.size() > tree.folders.size() + tree.files.size()) {
        m_hasRoomAgain = true;
    }
    if (tree.exceeded) {
        warnOfExcess();
    }
    return change.ids;
}

void ApplicationDirectory::abandon(const ScannedTree &tree)
{
    for (const QString &path : tree.watched) {
        if (!isKnown(path)) {
            m_watcher->unwatch(path);
        }
    }
}

void ApplicationDirectory::remove(const QString &path, Change *change)
{
    const auto parent = m_folders.find(parentOf(path));
    if (parent != m_folders.end()) {
        parent->entries.remove(path);
    }
    if (m_folders.remove(path)) {
        ++m_room.directories;
        return;
    }
    const QString id = idOf(path);
    const auto files = m_files.find(id);
    const ApplicationFile file = files->take(path);
    if (files->isEmpty()) {
        m_files.erase(files);
    }
    ++m_room.files;
    m_room.bytes += file.cost();
    change->ids.insert(id);
    change->before.insert(path, file);
}

void ApplicationDirectory::addFolders(const ScannedTree &tree)
{
    for (auto folder = tree.folders.cbegin(); folder != tree.folders.cend(); ++folder) {
        m_folders.insert(folder.key(), {folder.value(), {}});
        --m_room.directories;
    }
    for (auto folder = tree.folders.keyBegin(); folder != tree.folders.keyEnd(); ++folder) {
        addToParent(*folder);
    }
}

void ApplicationDirectory::addFile(const FoundFile &file, Change *change)
{
    if (isKnown(file.path)) {
        return; // a directory that changes may list it twice
    }
    const auto before = change->before.constFind(file.path);
    const bool isSame = before != change->before.cend() && before->stamp == file.stamp;
    const QString id = idOf(file.path);
    m_files[id].insert(file.path, {file, isSame ? before->revision : nextRevision()});
    addToParent(file.path);
    --m_room.files;
    m_room.bytes -= file.cost();
    change->ids.insert(id);
}

void ApplicationDirectory::addToParent(const QString &path)
{
    const auto parent = m_folders.find(parentOf(path));
    if (parent != m_folders.end()) {
        parent->entries.insert(path);
    }
}

void ApplicationDirectory::warnOfExcess()
{
    if (std::exchange(m_isExceeded, true)) {
        return;
    }
    qWarning(
        "LauncherFolderModel: \"%s\" has more than %d directories, %d files or %d MiB of desktop files, or is "
        "deeper than %d directories: not all of its applications are listed",
        qUtf8Printable(printable(m_path)), MaxDirectories, MaxFiles, MaxMebibytes, MaxScanDepth);
}
