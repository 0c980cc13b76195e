// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QHash>
#include <QObject>
#include <QSet>

struct inotify_event;

/**
 * Reports which entry of a directory changed, including files that are written in place. QFileSystemWatcher reports the
 * directory only, and needs a watch for each file to notice a write.
 */
class PathWatcher : public QObject
{
    Q_OBJECT

public:
    explicit PathWatcher(QObject *parent = nullptr);
    ~PathWatcher() override;

    // The path need not exist. It may be watched already.
    void watchDirectory(const QString &path); ///< its entries and their content
    void watchNames(const QString &path); ///< entries that are added to or removed from the directory
    void watchFile(const QString &path); ///< the content of the file, also through a link

    void unwatch(const QString &path);

    /// Emits the signals for all changes until now, which is otherwise done in the event loop.
    void read();

    /// Returns why changes may be missed; empty if all of them are reported.
    QString problem() const;
    /// Forgets the problem. To be called before all paths are watched again.
    void retry();

Q_SIGNALS:
    /// @p path is that of an entry of a watched directory, or a watched path itself.
    void changed(const QString &path);
    /// Events were lost, so anything may have changed.
    void overflown();

private:
    void open();
    void watch(const QString &path, quint32 events);
    bool readOnce();
    void handle(const inotify_event &event);

    int m_inotify = -1;
    QHash<QString, int> m_descriptors;
    QHash<int, QSet<QString>> m_paths; ///< a directory has several paths when links lead to it
    QString m_problem;
};
