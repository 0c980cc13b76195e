// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QObject>

class QFileSystemWatcher;

/// Follows one file, also when it is replaced by another one, or is made later in a directory that is there.
class FileWatcher : public QObject
{
    Q_OBJECT

public:
    /// The file system's watcher becomes a child of @p parent, too, or of this when there is none.
    explicit FileWatcher(const QString &path, QObject *parent = nullptr);

Q_SIGNALS:
    void fileChanged();

private:
    bool watch();

    const QString m_path;
    QFileSystemWatcher *const m_watcher;
};
