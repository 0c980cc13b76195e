// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "catalogwatcher.h"

#include <QDateTime>
#include <QDir>

#include <chrono>

namespace
{
constexpr std::chrono::milliseconds SettleDelay(300);
}

CatalogWatcher::CatalogWatcher(const QStringList &directories)
    : m_directories(directories)
    , m_state(state())
{
    m_settle.setSingleShot(true);
    m_settle.setInterval(SettleDelay);
    connect(&m_settle, &QTimer::timeout, this, &CatalogWatcher::compare);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, &m_settle, qOverload<>(&QTimer::start));
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, &m_settle, qOverload<>(&QTimer::start));
    for (const QString &directory : directories) {
        m_watcher.addPath(directory);
        const QFileInfoList catalogs = QDir(directory).entryInfoList({QStringLiteral("*.qm")}, QDir::Files);
        for (const QFileInfo &catalog : catalogs) {
            m_watcher.addPath(catalog.filePath());
        }
    }
}

QStringList CatalogWatcher::state() const
{
    QStringList lines;
    for (const QString &directory : m_directories) {
        const QFileInfoList catalogs = QDir(directory).entryInfoList({QStringLiteral("*.qm")}, QDir::Files);
        for (const QFileInfo &catalog : catalogs) {
            lines.append(QStringLiteral("%1 %2 %3")
                             .arg(catalog.filePath())
                             .arg(catalog.size())
                             .arg(catalog.lastModified().toMSecsSinceEpoch()));
        }
    }
    return lines;
}

void CatalogWatcher::compare()
{
    const QStringList current = state();
    if (current != m_state) {
        m_state = current;
        Q_EMIT changed();
    }
}
