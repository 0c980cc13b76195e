// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applicationfiles.h"

#include <QDir>

#include <chrono>
#include <utility>

using namespace std::chrono_literals;

namespace
{
// Long enough to see most installations as one change, too short for the user to notice.
constexpr auto Delay = 100ms;

QStringList absoluteOnce(const QStringList &directories)
{
    QStringList cleaned;
    for (const QString &directory : directories) {
        if (QDir::isAbsolutePath(directory)) {
            cleaned.append(QDir::cleanPath(directory));
        }
    }
    cleaned.removeDuplicates();
    return cleaned;
}
}

ApplicationFiles::ApplicationFiles(const QStringList &directories, QObject *parent)
    : QObject(parent)
{
    connect(&m_watcher, &PathWatcher::changed, this, &ApplicationFiles::markDirty);
    connect(&m_watcher, &PathWatcher::overflown, this, &ApplicationFiles::markAllDirty);
    m_delay.setSingleShot(true);
    m_delay.setInterval(Delay);
    connect(&m_delay, &QTimer::timeout, this, &ApplicationFiles::update);
    const QStringList paths = absoluteOnce(directories);
    for (const QString &path : paths) {
        m_directories.push_back({ApplicationDirectory(path, &m_watcher), {}});
    }
}

QSet<QString> ApplicationFiles::ids() const
{
    QSet<QString> ids;
    for (const Followed &followed : m_directories) {
        ids += followed.directory.ids();
    }
    return ids;
}

std::optional<ApplicationFile> ApplicationFiles::file(const QString &id) const
{
    for (const Followed &followed : m_directories) {
        if (auto file = followed.directory.file(id)) {
            return file;
        }
    }
    return std::nullopt;
}

void ApplicationFiles::markDirty(const QString &path)
{
    for (Followed &followed : m_directories) {
        if (!followed.directory.concerns(path)) {
            continue;
        }
        followed.dirty.insert(path);
        // A running timer is not restarted: a steady stream of changes must not delay the first of them for ever.
        if (!m_delay.isActive()) {
            m_delay.start();
        }
    }
}

void ApplicationFiles::markAllDirty()
{
    for (const Followed &followed : m_directories) {
        markDirty(followed.directory.path());
    }
}

void ApplicationFiles::update()
{
    QSet<QString> ids;
    for (Followed &followed : m_directories) {
        const QSet<QString> paths = std::exchange(followed.dirty, {});
        for (const QString &path : paths) {
            ids += followed.directory.update(path);
        }
    }
    Q_EMIT changed(ids);
}
