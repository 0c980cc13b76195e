// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QObject>

class QFileSystemWatcher;

/// Follows one file, also if it is replaced by another one, or is created later in an existing directory.
class FileWatcher : public QObject
{
    Q_OBJECT

public:
    /// The QFileSystemWatcher also becomes a child of @p parent, or of this object if there is none.
    explicit FileWatcher(const QString &path, QObject *parent = nullptr);

Q_SIGNALS:
    void fileChanged();

private:
    bool watch();

    const QString m_path;
    QFileSystemWatcher *const m_watcher;
};
