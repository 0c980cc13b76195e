// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "toolkit/entrywatcher.h"

#include "registry/fileindex.h"
#include "registry/pluginregistry.h"
#include "registry/treeitem.h"
#include "registry/treeitem_p.h"
#include "toolkit/settingsentry.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>

#include <utility>

namespace
{
/// Returns @p top and all below it.
QVector<WatchedPath *> subtree(WatchedPath *top)
{
    QVector<WatchedPath *> paths{top};
    for (int i = 0; i < paths.size(); ++i) {
        for (WatchedPath *child : qAsConst(paths.at(i)->children)) {
            paths.append(child);
        }
    }
    return paths;
}

bool hasOtherTitle(const EntryState &before, const EntryState &now)
{
    return before.exists() != now.exists() || before.title() != now.title();
}
}

EntryWatcher *EntryWatcher::instance()
{
    static auto *const watcher = new EntryWatcher(PluginRegistry::instance());
    return watcher;
}

EntryWatcher::EntryWatcher(PluginRegistry *registry)
{
    setItem(&m_root, registry->getItem({}));
    TreeItemPrivate::of(m_root.item)->index()->addObserver(this);
    connect(registry, &PluginRegistry::contentChanged, this, &EntryWatcher::update);
    QCoreApplication::instance()->installEventFilter(this);
}

const WatchedPath *EntryWatcher::watch(const QStringList &path, SettingsEntry *entry)
{
    WatchedPath *watched = &m_root;
    for (const QString &name : path) {
        watched = child(watched, name);
    }
    watched->entries.append(entry);
    return watched;
}

void EntryWatcher::unwatch(const WatchedPath *path, SettingsEntry *entry)
{
    auto *watched = const_cast<WatchedPath *>(path);
    watched->entries.removeOne(entry);
    prune(watched);
}

QVector<SettingsEntry *> EntryWatcher::entriesAt(const QStringList &path) const
{
    const WatchedPath *watched = &m_root;
    for (auto name = path.cbegin(); watched && name != path.cend(); ++name) {
        watched = watched->children.value(*name);
    }
    return watched ? watched->entries : QVector<SettingsEntry *>();
}

QVariantList EntryWatcher::breadcrumb(const WatchedPath *path)
{
    QVector<const WatchedPath *> steps;
    for (const WatchedPath *step = path; step->parent && path->state.exists(); step = step->parent) {
        steps.prepend(step);
    }
    QVariantList breadcrumb;
    QStringList names;
    for (const WatchedPath *step : qAsConst(steps)) {
        names.append(step->name);
        breadcrumb.append(QVariantMap{{QStringLiteral("title"), step->state.title()},
                                      {QStringLiteral("path"), names.join(QLatin1Char('/'))}});
    }
    return breadcrumb;
}

bool EntryWatcher::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() == QEvent::LanguageChange && object == QCoreApplication::instance()) {
        m_isLanguageChanged = true;
        scheduleUpdate();
    }
    return false;
}

void EntryWatcher::nodeEntered(TreeItem *item)
{
    WatchedPath *parent = m_pathOf.value(item->parentItem());
    if (!parent) {
        return;
    }
    markDirty(parent); // one more child
    if (WatchedPath *path = parent->children.value(item->name())) {
        setItem(path, item);
        markDirty(path);
    }
}

void EntryWatcher::nodeLeaves(TreeItem *item)
{
    if (item == m_root.item) {
        return;
    }
    if (WatchedPath *path = m_pathOf.take(item)) {
        path->item = nullptr;
        markDirty(path);
        markDirty(path->parent);
    } else if (WatchedPath *parent = m_pathOf.value(item->parentItem())) {
        markDirty(parent);
    }
}

/// Returns the watched path @p name below @p parent. It is created if there is none.
WatchedPath *EntryWatcher::child(WatchedPath *parent, const QString &name)
{
    WatchedPath *&child = parent->children[name];
    if (!child) {
        child = new WatchedPath;
        child->parent = parent;
        child->name = name;
        if (parent->item) {
            setItem(child, parent->item->lookup({name}));
        }
        child->state = EntryState(child->item);
    }
    return child;
}

/// Deletes @p path and those above it that are not watched.
void EntryWatcher::prune(WatchedPath *path)
{
    while (path != &m_root && path->entries.isEmpty() && path->children.isEmpty()) {
        WatchedPath *parent = path->parent;
        parent->children.remove(path->name);
        m_pathOf.remove(path->item);
        if (path->isDirty) {
            m_dirty.removeOne(path);
        }
        delete path;
        path = parent;
    }
}

void EntryWatcher::setItem(WatchedPath *path, TreeItem *item)
{
    path->item = item;
    if (item) {
        m_pathOf.insert(item, path);
    }
}

void EntryWatcher::markDirty(WatchedPath *path)
{
    if (!path->isDirty) {
        path->isDirty = true;
        m_dirty.append(path);
        scheduleUpdate();
    }
}

/// Updates the entries when the registry does not announce the change as a batch.
void EntryWatcher::scheduleUpdate()
{
    if (!std::exchange(m_isScheduled, true)) {
        QMetaObject::invokeMethod(this, &EntryWatcher::update, Qt::QueuedConnection);
    }
}

QVector<WatchedPath *> EntryWatcher::takeDirty()
{
    QVector<WatchedPath *> dirty = std::exchange(m_dirty, {});
    for (WatchedPath *path : qAsConst(dirty)) {
        path->isDirty = false;
    }
    return dirty;
}

/// Brings all states up to date before any entry is notified: handlers may read each of them, and delete entries.
void EntryWatcher::update()
{
    m_isScheduled = false;
    const bool isLanguageChanged = std::exchange(m_isLanguageChanged, false);
    const QVector<WatchedPath *> dirty = takeDirty();
    Changes changes;
    for (WatchedPath *path : isLanguageChanged ? subtree(&m_root) : dirty) {
        refresh(path, isLanguageChanged, &changes);
    }
    notify(changes);
}

void EntryWatcher::refresh(WatchedPath *path, bool isLanguageChanged, Changes *changes)
{
    const EntryState now(path->item);
    if (!isLanguageChanged && now == path->state) {
        return; // its titles are announced already
    }
    EntryChange change;
    change.before = std::exchange(path->state, now);
    change.hasUnknownTitles = isLanguageChanged && change.before.mayHaveHadOtherTitles();
    change.hasOtherBreadcrumb = changes->value(path).hasOtherBreadcrumb;
    changes->insert(path, change);
    const bool isInBreadcrumb = path->parent; // the root is not
    if (isInBreadcrumb && (change.hasUnknownTitles || hasOtherTitle(change.before, now))) {
        markBreadcrumbs(path, changes);
    }
}

/// Marks the breadcrumbs of @p top and all below it, but visits none twice: many on one path may have other titles.
void EntryWatcher::markBreadcrumbs(WatchedPath *top, Changes *changes)
{
    QVector<WatchedPath *> paths{top};
    while (!paths.isEmpty()) {
        WatchedPath *path = paths.takeLast();
        if (!changes->contains(path)) {
            (*changes)[path].before = path->state;
        }
        if (!std::exchange((*changes)[path].hasOtherBreadcrumb, true)) {
            for (WatchedPath *child : qAsConst(path->children)) {
                paths.append(child);
            }
        }
    }
}

void EntryWatcher::notify(const Changes &changes)
{
    struct Notification {
        QPointer<SettingsEntry> entry;
        const WatchedPath *path;
        EntryChange change;
    };
    QVector<Notification> notifications;
    for (auto it = changes.cbegin(); it != changes.cend(); ++it) {
        EntryChange change = *it;
        change.now = it.key()->state;
        for (SettingsEntry *entry : qAsConst(it.key()->entries)) {
            notifications.append({entry, it.key(), change});
        }
    }
    for (const Notification &notification : qAsConst(notifications)) {
        if (notification.entry && notification.entry->isWatching(notification.path)) {
            notification.entry->notify(notification.change);
        }
    }
}

#include "moc_entrywatcher.cpp"
