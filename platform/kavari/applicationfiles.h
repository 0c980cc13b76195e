// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef APPLICATIONFILES_H
#define APPLICATIONFILES_H

#include "applicationdirectory.h"
#include "pathwatcher.h"

#include <QTimer>

#include <vector>

/// The desktop files of several application directories: an id's file is that of the first directory with one.
class ApplicationFiles : public QObject
{
    Q_OBJECT

public:
    explicit ApplicationFiles(const QStringList &directories, QObject *parent = nullptr);

    QSet<QString> ids() const;
    std::optional<ApplicationFile> file(const QString &id) const;

Q_SIGNALS:
    /// The ids whose files may have come, gone or changed: file() tells by the revision.
    void changed(const QSet<QString> &ids);

private:
    struct Followed {
        ApplicationDirectory directory;
        QSet<QString> doubtful; ///< paths to look at again
    };

    void doubt(const QString &path);
    void doubtAll();
    void lookAgain();

    PathWatcher m_watcher;
    QTimer m_delay;
    std::vector<Followed> m_directories;
};

#endif
