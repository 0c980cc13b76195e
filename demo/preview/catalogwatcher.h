// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QFileSystemWatcher>
#include <QMap>
#include <QTimer>
#include <QVector>

/// Notifies of catalogs (*.qm) that were compiled again, appeared or are gone. All changes of one moment are one.
class CatalogWatcher : public QObject
{
    Q_OBJECT

public:
    /// @p copies has a directory for each of @p directories, with copies of its catalogs. Those that differ have changed.
    CatalogWatcher(const QStringList &directories, const QStringList &copies);

Q_SIGNALS:
    void changed();

private:
    void compare();

    const QStringList m_directories;
    QVector<QMap<QString, QByteArray>> m_state; ///< of each directory: the hashes of the catalogs by their names
    QFileSystemWatcher m_watcher;
    QTimer m_settle;
};
