// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications/filewatcher.h"

#include <QFileInfo>
#include <QFileSystemWatcher>

FileWatcher::FileWatcher(const QString &path, QObject *parent)
    : QObject(parent)
    , m_path(path)
    , m_watcher(new QFileSystemWatcher({QFileInfo(path).path()}, parent ? parent : this))
{
    watch();
    connect(m_watcher, &QFileSystemWatcher::fileChanged, this, [this] {
        watch(); // a file that replaces another one must be watched again
        Q_EMIT fileChanged();
    });
    connect(m_watcher, &QFileSystemWatcher::directoryChanged, this, [this] {
        if (m_watcher->files().isEmpty() && watch()) {
            Q_EMIT fileChanged();
        }
    });
}

bool FileWatcher::watch()
{
    return QFileInfo::exists(m_path) && m_watcher->addPath(m_path);
}
