// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QObject>
#include <QSet>
#include <QString>
#include <QTimer>
#include <QVector>

#include <sys/stat.h>

class QFileSystemWatcher;
struct inotify_event;

/**
 * Keeps a QFileSystemWatcher on the directory that is at a path, also when it or one above it is replaced, which that
 * class does not notice. Watches the names in the directories above. Without a watch it checks every few seconds.
 */
class DirectoryFollower : public QObject
{
    Q_OBJECT

public:
    /// Adds @p path to @p watcher. There need not be such a directory.
    DirectoryFollower(const QString &path, QFileSystemWatcher *watcher, QObject *parent);
    ~DirectoryFollower() override;

Q_SIGNALS:
    /// Another directory is at the path, or the one that is there changed and cannot be watched.
    void changed();

private:
    struct State {
        bool exists = false;
        dev_t device = 0;
        ino_t inode = 0;
        timespec changed{}; ///< when its entries or permissions changed
        bool isSettled = true; ///< no later change can have the same time
    };

    static State stateOf(const QString &path);
    static bool isSameDirectory(const State &a, const State &b);
    static bool isSameTime(const State &a, const State &b);
    void readEvents();
    bool concernsPath(const inotify_event &event) const;
    void look();
    bool watchParents();
    bool watchNames(const QString &directory, QVector<int> *watches) const;
    void replaceWatches(const QVector<int> &watches);
    bool isDirectoryWatched() const;
    void watchDirectory(const State &state);
    void setPolling(bool isPolling); ///< while something cannot be watched

    const QString m_path;
    QFileSystemWatcher *const m_watcher;
    const int m_inotify;
    QString m_canonicalPath; ///< where links led when there last was a directory
    QSet<QString> m_names; ///< of the directory and those above it
    QVector<int> m_watches;
    State m_state;
    bool m_isRefused = false; ///< there are no watches, and QFileSystemWatcher would log that each time
    QTimer m_timer; ///< only while something is not watched
};
