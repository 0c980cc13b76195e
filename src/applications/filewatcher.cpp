// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications/filewatcher.h"

#include <QFileInfo>
#include <QFileSystemWatcher>

#include <sys/stat.h>

#include <chrono>

using namespace std::chrono_literals;

namespace
{
constexpr auto LookInterval = 2s;
}

FileWatcher::FileWatcher(const QString &path, QObject *parent)
    : QObject(parent)
    , m_path(path)
    , m_watcher(new QFileSystemWatcher(parent ? parent : this))
{
    m_look.setInterval(LookInterval);
    connect(&m_look, &QTimer::timeout, this, &FileWatcher::look);
    connect(m_watcher, &QFileSystemWatcher::fileChanged, this, [this] {
        watchAll(); // what replaces a file is not watched with it
        Q_EMIT fileChanged();
    });
    connect(m_watcher, &QFileSystemWatcher::directoryChanged, this, [this] {
        if (m_watcher->files().isEmpty() && QFileInfo::exists(m_path)) {
            look();
        }
    });
    watchAll();
}

FileWatcher::Stamp FileWatcher::stamp() const
{
    struct stat status;
    if (stat(QFile::encodeName(m_path).constData(), &status) != 0) {
        return {};
    }
    return {qint64(status.st_dev),  qint64(status.st_ino), status.st_size,        status.st_mtim.tv_sec,
            status.st_mtim.tv_nsec, status.st_ctim.tv_sec, status.st_ctim.tv_nsec};
}

/// Returns false if what is at @p path cannot be watched.
bool FileWatcher::watch(const QString &path)
{
    return !QFileInfo::exists(path) || m_watcher->files().contains(path) || m_watcher->directories().contains(path)
           || m_watcher->addPath(path);
}

void FileWatcher::watchAll()
{
    m_seen = stamp();
    const bool isWatched = watch(QFileInfo(m_path).path());
    if (watch(m_path) && isWatched) {
        m_look.stop();
    } else {
        m_look.start();
    }
}

void FileWatcher::look()
{
    if (stamp() != m_seen) {
        watchAll();
        Q_EMIT fileChanged();
    }
}

#include "moc_filewatcher.cpp"
