// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/directoryfollower.h"

#include "common/stringset.h"

#include <QFile>
#include <QFileInfo>
#include <QFileSystemWatcher>
#include <QSocketNotifier>

#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <ctime>
#include <tuple>

using namespace std::chrono_literals;

namespace
{
constexpr auto PollInterval = 3000ms;
constexpr quint32 NameEvents = IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_ONLYDIR;

QStringList namesOf(const QString &path)
{
    return path.split(QLatin1Char('/'), Qt::SkipEmptyParts);
}

/// Returns the directories above @p path, the root first.
QStringList parentsOf(const QString &path)
{
    QStringList parents;
    QString parent = QStringLiteral("/");
    const QStringList names = namesOf(path);
    for (const QString &name : names) {
        parents.append(parent);
        parent += name + QLatin1Char('/');
    }
    return parents;
}
}

DirectoryFollower::DirectoryFollower(const QString &path, QFileSystemWatcher *watcher, QObject *parent)
    : QObject(parent)
    , m_path(path)
    , m_watcher(watcher)
    , m_inotify(inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
    , m_timer(this)
{
    m_timer.setTimerType(Qt::VeryCoarseTimer);
    m_timer.setInterval(PollInterval);
    connect(&m_timer, &QTimer::timeout, this, &DirectoryFollower::look);
    connect(m_watcher, &QFileSystemWatcher::directoryChanged, this, &DirectoryFollower::look);
    if (m_inotify >= 0) {
        const auto *notifier = new QSocketNotifier(m_inotify, QSocketNotifier::Read, this);
        connect(notifier, &QSocketNotifier::activated, this, &DirectoryFollower::readEvents);
    }
    look();
}

DirectoryFollower::~DirectoryFollower()
{
    if (m_inotify >= 0) {
        close(m_inotify);
    }
}

DirectoryFollower::State DirectoryFollower::stateOf(const QString &path)
{
    struct stat status {
    };
    if (stat(QFile::encodeName(path).constData(), &status) != 0 || !S_ISDIR(status.st_mode)) {
        return {};
    }
    const bool isSettled = std::time(nullptr) > status.st_ctim.tv_sec + 1;
    return {true, status.st_dev, status.st_ino, status.st_ctim, isSettled};
}

void DirectoryFollower::readEvents()
{
    alignas(inotify_event) std::array<char, 65536> buffer;
    const ssize_t length = read(m_inotify, buffer.data(), buffer.size());
    bool isConcerned = false;
    for (ssize_t offset = 0; offset < length;) {
        const auto *event = reinterpret_cast<const inotify_event *>(buffer.data() + offset);
        isConcerned = isConcerned || concernsPath(*event);
        offset += ssize_t(sizeof(inotify_event)) + event->len;
    }
    if (isConcerned) {
        look();
    }
}

bool DirectoryFollower::concernsPath(const inotify_event &event) const
{
    return (event.mask & IN_Q_OVERFLOW) != 0 || (event.len > 0 && m_names.contains(QFile::decodeName(event.name)));
}

void DirectoryFollower::look()
{
    // Before the directory itself, so that no replacement in between is lost.
    const bool areParentsWatched = watchParents();
    const State state = stateOf(m_path);
    const bool isOther = !isSameDirectory(state, m_state);
    if (isOther || !isDirectoryWatched()) {
        watchDirectory(state);
    }
    const bool isFollowed = !state.exists || isDirectoryWatched();
    const bool mayHaveChanged = !isFollowed && (!isSameTime(state, m_state) || !m_state.isSettled);
    m_state = state;
    setPolling(!areParentsWatched || !isFollowed);
    if (isOther || mayHaveChanged) {
        Q_EMIT changed();
    }
}

bool DirectoryFollower::isSameDirectory(const State &a, const State &b)
{
    return std::tie(a.exists, a.device, a.inode) == std::tie(b.exists, b.device, b.inode);
}

bool DirectoryFollower::isSameTime(const State &a, const State &b)
{
    return std::tie(a.changed.tv_sec, a.changed.tv_nsec) == std::tie(b.changed.tv_sec, b.changed.tv_nsec);
}

bool DirectoryFollower::isDirectoryWatched() const
{
    return m_watcher->directories().contains(m_path);
}

void DirectoryFollower::setPolling(bool isPolling)
{
    if (isPolling) {
        m_timer.start();
    } else {
        m_timer.stop();
    }
}

/// Watches the directories above the path, as it is written and where its links lead. Returns whether all of them that
/// exist are watched.
bool DirectoryFollower::watchParents()
{
    const QString canonical = QFileInfo(m_path).canonicalFilePath();
    if (!canonical.isEmpty()) {
        m_canonicalPath = canonical;
    }
    const QStringList names = namesOf(m_path) + namesOf(m_canonicalPath);
    m_names = toSet(names);
    QStringList parents = parentsOf(m_path) + parentsOf(m_canonicalPath);
    parents.removeDuplicates();
    QVector<int> watches;
    bool areWatched = m_inotify >= 0;
    for (const QString &parent : qAsConst(parents)) {
        areWatched = watchNames(parent, &watches) && areWatched;
    }
    replaceWatches(watches);
    return areWatched;
}

/// Appends the watch of @p directory to @p watches. Returns false if there is a directory that cannot be watched.
bool DirectoryFollower::watchNames(const QString &directory, QVector<int> *watches) const
{
    const int watch = inotify_add_watch(m_inotify, QFile::encodeName(directory).constData(), NameEvents);
    if (watch >= 0) {
        watches->append(watch);
    }
    return watch >= 0 || errno == ENOENT || errno == ENOTDIR;
}

void DirectoryFollower::replaceWatches(const QVector<int> &watches)
{
    for (const int watch : qAsConst(m_watches)) {
        if (!watches.contains(watch)) {
            inotify_rm_watch(m_inotify, watch);
        }
    }
    m_watches = watches;
}

void DirectoryFollower::watchDirectory(const State &state)
{
    m_watcher->removePath(m_path); // it may watch the directory that was there before
    if (state.exists && !m_isRefused) {
        m_isRefused = !m_watcher->addPath(m_path) && stateOf(m_path).exists;
    }
}

#include "moc_directoryfollower.cpp"
