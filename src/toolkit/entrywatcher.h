// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "registry/nodeobserver.h"
#include "toolkit/entrystate.h"

#include <QHash>
#include <QObject>
#include <QStringList>
#include <QVariantList>
#include <QVector>

class PluginRegistry;
class SettingsEntry;

/// What has happened to a path.
struct EntryChange {
    EntryState before;
    EntryState now;
    bool hasUnknownTitles = false; ///< titles in an earlier language that were never read
    bool hasOtherBreadcrumb = false;
};

/// A path that is watched, or one above such a path.
struct WatchedPath {
    WatchedPath *parent = nullptr;
    QString name;
    QHash<QString, WatchedPath *> children;
    TreeItem *item = nullptr; ///< null while there is no node
    EntryState state; ///< what the entries show
    QVector<SettingsEntry *> entries;
    bool isDirty = false;
};

/**
 * Notifies SettingsEntry objects of the changes of their paths, and of those of no other path.
 *
 * The watched paths are a tree like that of the nodes, so that each node that changes is found in it at once. Entries
 * are notified after each batch, or, for nodes that are changed in between, from the event loop.
 */
class EntryWatcher : public QObject, private NodeObserver
{
    Q_OBJECT

public:
    /// The watcher of the process: created on the first call, with the registry, and never deleted.
    static EntryWatcher *instance();

    /// Watches @p path, which must not be empty, for @p entry. Valid until unwatch().
    const WatchedPath *watch(const QStringList &path, SettingsEntry *entry);
    void unwatch(const WatchedPath *path, SettingsEntry *entry);
    /// Returns the entries that watch @p path.
    QVector<SettingsEntry *> entriesAt(const QStringList &path) const;
    /// Returns a map with "title" and "path" for each node from the top down to @p path, none without a node there.
    static QVariantList breadcrumb(const WatchedPath *path);

    bool eventFilter(QObject *object, QEvent *event) override;

private:
    using Changes = QHash<WatchedPath *, EntryChange>;

    explicit EntryWatcher(PluginRegistry *registry);

    void nodeEntered(TreeItem *item) override;
    void nodeLeaves(TreeItem *item) override;

    WatchedPath *child(WatchedPath *parent, const QString &name);
    void prune(WatchedPath *path);
    void setItem(WatchedPath *path, TreeItem *item);
    void markDirty(WatchedPath *path);
    void scheduleUpdate();
    void update();
    QVector<WatchedPath *> takeDirty();
    static void refresh(WatchedPath *path, bool isLanguageChanged, Changes *changes);
    static void markBreadcrumbs(WatchedPath *top, Changes *changes);
    static void notify(const Changes &changes);

    WatchedPath m_root;
    QHash<const TreeItem *, WatchedPath *> m_pathOf; ///< of the nodes at watched paths
    QVector<WatchedPath *> m_dirty;
    bool m_isScheduled = false;
    bool m_isLanguageChanged = false;
};
