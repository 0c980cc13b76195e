// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "catalogwatcher.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>

#include <chrono>

namespace
{
constexpr std::chrono::milliseconds SettleDelay(300);

/// Returns the hashes of the catalogs in @p directory by their names.
QMap<QString, QByteArray> catalogsIn(const QDir &directory)
{
    QMap<QString, QByteArray> catalogs;
    const QStringList names = directory.entryList({QStringLiteral("*.qm")}, QDir::Files);
    for (const QString &name : names) {
        QFile file(directory.filePath(name));
        const QByteArray content = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        catalogs.insert(name, QCryptographicHash::hash(content, QCryptographicHash::Sha256));
    }
    return catalogs;
}

QVector<QMap<QString, QByteArray>> stateOf(const QStringList &directories)
{
    QVector<QMap<QString, QByteArray>> state;
    for (const QString &directory : directories) {
        state.append(catalogsIn(directory));
    }
    return state;
}
}

CatalogWatcher::CatalogWatcher(const QStringList &directories, const QStringList &copies)
    : m_directories(directories)
    , m_state(stateOf(copies))
{
    m_settle.setSingleShot(true);
    m_settle.setInterval(SettleDelay);
    connect(&m_settle, &QTimer::timeout, this, &CatalogWatcher::compare);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, &m_settle, qOverload<>(&QTimer::start));
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, &m_settle, qOverload<>(&QTimer::start));
    for (const QString &directory : directories) {
        m_watcher.addPath(directory);
        const QStringList catalogs = catalogsIn(directory).keys();
        for (const QString &catalog : catalogs) {
            m_watcher.addPath(QDir(directory).filePath(catalog));
        }
    }
    m_settle.start(); // for changes before this
}

void CatalogWatcher::compare()
{
    const auto current = stateOf(m_directories);
    if (current != m_state) {
        m_state = current;
        Q_EMIT changed();
    }
}
