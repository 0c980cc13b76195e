// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "applicationdirectory.h"
#include "pathwatcher.h"

#include <QObject>

#include <vector>

/// The desktop files of several application directories. The first directory that has an id provides its file.
class ApplicationFiles : public QObject
{
    Q_OBJECT

public:
    explicit ApplicationFiles(const QStringList &directories, QObject *parent = nullptr);

    QSet<QString> ids() const;
    std::optional<ApplicationFile> file(const QString &id) const;

    /// Reads what has changed. Returns the ids of files that may have been added, removed or changed; compare the
    /// revision of file().
    QSet<QString> update();
    /// Reads everything, and tries again to watch it. Returns the same ids as update().
    QSet<QString> updateAll();

    /// Returns why files or changes may be missing; empty if none are.
    QString problem() const;
    /// Returns whether updateAll() is needed, because changes may have been missed.
    bool isOutdated() const;

Q_SIGNALS:
    /// update() is needed.
    void changed();

private:
    struct Followed {
        ApplicationDirectory directory;
        QSet<QString> dirty; ///< paths to read again
    };

    void markDirty(const QString &path);
    void markAllDirty();

    PathWatcher m_watcher;
    std::vector<Followed> m_directories;
};
