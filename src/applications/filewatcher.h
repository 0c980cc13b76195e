// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QObject>
#include <QTimer>

#include <array>

class QFileSystemWatcher;

/**
 * Follows one file, also if it is replaced by another one, or is created later in an existing directory.
 *
 * If it cannot be watched, because the user has too many watches, it is checked every few seconds.
 */
class FileWatcher : public QObject
{
    Q_OBJECT

public:
    /// The QFileSystemWatcher also becomes a child of @p parent, or of this object if there is none.
    explicit FileWatcher(const QString &path, QObject *parent = nullptr);

Q_SIGNALS:
    void fileChanged();

private:
    /// Distinguishes two states of the file: all zero if there is none.
    using Stamp = std::array<qint64, 7>;

    Stamp stamp() const;
    bool watch(const QString &path);
    void watchAll();
    void look();

    const QString m_path;
    QFileSystemWatcher *const m_watcher;
    QTimer m_look;
    Stamp m_seen = {};
};
