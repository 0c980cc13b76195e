// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef PATHWATCHER_H
#define PATHWATCHER_H

#include <QHash>
#include <QObject>
#include <QSet>

struct inotify_event;

/**
 * Tells which entry of a directory changed, and also when a file is written in place. QFileSystemWatcher tells the
 * directory alone, and needs a watch on each file for the other.
 */
class PathWatcher : public QObject
{
    Q_OBJECT

public:
    explicit PathWatcher(QObject *parent = nullptr);
    ~PathWatcher() override;

    // There need be nothing at the path, and what is watched already may be watched again.
    void watchDirectory(const QString &path); ///< its entries and their content
    void watchNames(const QString &path); ///< entries of the directory that come and go
    void watchFile(const QString &path); ///< the content of the file behind a link

    void unwatch(const QString &path);

Q_SIGNALS:
    /// The path of an entry of a watched directory, or a watched path itself.
    void changed(const QString &path);
    /// Events were lost: anything may have changed.
    void overflown();

private:
    void watch(const QString &path, quint32 events);
    void read();
    void handle(const inotify_event &event);

    const int m_inotify;
    QHash<QString, int> m_descriptors;
    QHash<int, QSet<QString>> m_paths; ///< one directory can have several, through links
    bool m_exhausted = false; ///< said once, not for every path
};

#endif
