// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QFileSystemWatcher>
#include <QTimer>

/// Notifies of catalogs (*.qm) that were compiled again, appeared or are gone. All changes of one moment are one.
class CatalogWatcher : public QObject
{
    Q_OBJECT

public:
    explicit CatalogWatcher(const QStringList &directories);

Q_SIGNALS:
    void changed();

private:
    QStringList state() const;
    void compare();

    const QStringList m_directories;
    QStringList m_state; ///< names, sizes and times of the catalogs
    QFileSystemWatcher m_watcher;
    QTimer m_settle;
};
