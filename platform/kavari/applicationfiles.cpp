// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applicationfiles.h"

#include <QDir>

#include <algorithm>
#include <utility>

namespace
{
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

QSet<QString> ApplicationFiles::update()
{
    m_watcher.read();
    QSet<QString> ids;
    for (Followed &followed : m_directories) {
        const QSet<QString> paths = std::exchange(followed.dirty, {});
        for (const QString &path : paths) {
            ids += followed.directory.update(path);
        }
    }
    return ids;
}

QSet<QString> ApplicationFiles::updateAll()
{
    m_watcher.retry();
    markAllDirty();
    return update();
}

QString ApplicationFiles::problem() const
{
    for (const Followed &followed : m_directories) {
        if (!followed.directory.problem().isEmpty()) {
            return followed.directory.problem();
        }
    }
    return m_watcher.problem();
}

bool ApplicationFiles::isOutdated() const
{
    const auto isOutdated = [](const Followed &followed) { return followed.directory.isOutdated(); };
    return !m_watcher.problem().isEmpty() || std::any_of(m_directories.cbegin(), m_directories.cend(), isOutdated);
}

void ApplicationFiles::markDirty(const QString &path)
{
    for (Followed &followed : m_directories) {
        if (!followed.directory.concerns(path)) {
            continue;
        }
        followed.dirty.insert(path);
        Q_EMIT changed();
    }
}

void ApplicationFiles::markAllDirty()
{
    for (const Followed &followed : m_directories) {
        markDirty(followed.directory.path());
    }
}

#include "moc_applicationfiles.cpp"
