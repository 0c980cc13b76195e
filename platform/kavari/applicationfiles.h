// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "applicationdirectory.h"
#include "pathwatcher.h"

#include <QTimer>

#include <vector>

/// The desktop files of several application directories. The first directory that has an id provides its file.
class ApplicationFiles : public QObject
{
    Q_OBJECT

public:
    explicit ApplicationFiles(const QStringList &directories, QObject *parent = nullptr);

    QSet<QString> ids() const;
    std::optional<ApplicationFile> file(const QString &id) const;

Q_SIGNALS:
    /// Files of these ids may have been added, removed or changed; compare the revision of file().
    void changed(const QSet<QString> &ids);

private:
    struct Followed {
        ApplicationDirectory directory;
        QSet<QString> dirty; ///< paths to read again
    };

    void markDirty(const QString &path);
    void markAllDirty();
    void update();

    PathWatcher m_watcher;
    QTimer m_delay;
    std::vector<Followed> m_directories;
};
