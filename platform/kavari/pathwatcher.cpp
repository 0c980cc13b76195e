// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "pathwatcher.h"

#include <QFile>
#include <QSocketNotifier>

#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace
{
constexpr quint32 NameEvents = IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO;
constexpr quint32 ContentEvents = IN_CLOSE_WRITE | IN_ATTRIB;
}

PathWatcher::PathWatcher(QObject *parent)
    : QObject(parent)
{
    open();
}

PathWatcher::~PathWatcher()
{
    if (m_inotify >= 0) {
        close(m_inotify);
    }
}

void PathWatcher::open()
{
    m_inotify = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    if (m_inotify < 0) {
        m_problem = QStringLiteral("cannot follow the applications: ") + qt_error_string(errno);
        return;
    }
    const auto *notifier = new QSocketNotifier(m_inotify, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &PathWatcher::readOnce);
}

QString PathWatcher::problem() const
{
    return m_problem;
}

void PathWatcher::retry()
{
    m_problem.clear();
    if (m_inotify < 0) {
        open();
    }
}

void PathWatcher::watchDirectory(const QString &path)
{
    watch(path, NameEvents | ContentEvents | IN_ONLYDIR);
}

void PathWatcher::watchNames(const QString &path)
{
    watch(path, NameEvents | IN_ONLYDIR);
}

void PathWatcher::watchFile(const QString &path)
{
    watch(path, ContentEvents);
}

void PathWatcher::watch(const QString &path, quint32 events)
{
    if (m_inotify < 0) {
        return;
    }
    // IN_MASK_ADD: a directory can be watched for several purposes.
    const int descriptor = inotify_add_watch(m_inotify, QFile::encodeName(path).constData(), events | IN_MASK_ADD);
    if (descriptor < 0) {
        if ((errno == ENOSPC || errno == ENOMEM) && m_problem.isEmpty()) {
            const QString reason = errno == ENOSPC ? QStringLiteral("too many watches") : qt_error_string(errno);
            m_problem = QStringLiteral("cannot follow \"%1\": %2").arg(path, reason);
        }
        return;
    }
    if (m_descriptors.value(path, descriptor) != descriptor) {
        unwatch(path);
    }
    m_descriptors.insert(path, descriptor);
    m_paths[descriptor].insert(path);
}

void PathWatcher::unwatch(const QString &path)
{
    const auto found = m_descriptors.constFind(path);
    if (found == m_descriptors.cend()) {
        return;
    }
    const int descriptor = *found;
    m_descriptors.erase(found);
    QSet<QString> &paths = m_paths[descriptor];
    paths.remove(path);
    if (paths.isEmpty()) {
        m_paths.remove(descriptor);
        inotify_rm_watch(m_inotify, descriptor);
    }
}

void PathWatcher::read()
{
    while (readOnce()) {}
}

bool PathWatcher::readOnce()
{
    alignas(inotify_event) std::array<char, 65536> buffer;
    const ssize_t length = ::read(m_inotify, buffer.data(), buffer.size());
    for (ssize_t offset = 0; offset < length;) {
        const auto *event = reinterpret_cast<const inotify_event *>(buffer.data() + offset);
        handle(*event);
        offset += ssize_t(sizeof(inotify_event)) + event->len;
    }
    return length > 0;
}

void PathWatcher::handle(const inotify_event &event)
{
    if (event.mask & IN_Q_OVERFLOW) {
        Q_EMIT overflown();
        return;
    }
    const QSet<QString> paths = m_paths.value(event.wd);
    if (event.mask & IN_IGNORED) {
        for (const QString &path : paths) {
            m_descriptors.remove(path);
        }
        m_paths.remove(event.wd);
        return;
    }
    const QString name = event.len ? QFile::decodeName(event.name) : QString();
    for (const QString &path : paths) {
        const bool isRoot = path == QLatin1String("/");
        Q_EMIT changed(name.isEmpty() ? path : (isRoot ? path : path + QLatin1Char('/')) + name);
    }
}

#include "moc_pathwatcher.cpp"
