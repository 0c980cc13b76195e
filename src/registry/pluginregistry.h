// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "common/velkasettings_export.h"

#include <QObject>
#include <QSet>
#include <QStringList>
#include <QTimer>

#include <memory>

class EntryTree;
class MGConfItem;
class QFileSystemWatcher;
class StoredBlacklist;
class TreeItem;

/**
 * The settings entries of this process: one tree, built from the registration files in
 * /usr/share/velka-settings/entries.
 *
 * Added and removed files are loaded and unloaded 2000 ms after the last change of the directory. Files are known by
 * their names only, so one that is rewritten in place is not read again. Entries whose "path" is in the dconf key
 * /apps/velka-settings/maskedSettings are left out. Errors in a file are logged to
 * "org.orvantaos.settings.framework", and affect only their own entry or file. To be used in the GUI thread only.
 */
class VELKASETTINGS_EXPORT PluginRegistry : public QObject
{
    Q_OBJECT

public:
    /// The registry of the process: created on the first call, which reads all files, and never deleted. While that call
    /// runs, others return the registry with what it has read so far.
    static PluginRegistry *instance();

    /// For tests and special programs. All others share instance().
    explicit PluginRegistry(QObject *parent = nullptr);
    ~PluginRegistry() override;

    /// Returns the node at @p path, the root for an empty list, null when there is none. Valid until contentChanged().
    TreeItem *getItem(const QStringList &path) const;

    /// Loads @p fileName (a name without directory). Does not emit contentChanged().
    void addEntriesForFile(const QString &fileName);
    /**
     * Removes the nodes that @p fileName declared, and undeclared nodes, that have no children left. A node with
     * children of other files keeps its data until they are removed as well. Catalogs stay. Does not emit contentChanged().
     */
    void removeEntriesForFile(const QString &fileName);
    /**
     * Installs <catalog>_eng_en.qm and the catalog of the default locale, <catalog>-<locale>.qm, from
     * /usr/share/translations/, once in the registry's life. A missing file is not looked for again.
     */
    void loadTranslationCatalog(const QString &catalog);

Q_SIGNALS:
    /// Emitted once after each batch of files that were loaded or unloaded: look up the nodes again.
    void contentChanged();

private Q_SLOTS:
    void monitoredDirectoryChanged();
    void maskedSettingsChanged();

private:
    Q_DECL_HIDDEN void finishBatch(bool isChanged);
    enum UnreadTag { Unread };
    Q_DECL_HIDDEN PluginRegistry(UnreadTag, QObject *parent);
    Q_DECL_HIDDEN void readEntries();
    Q_DECL_HIDDEN void followDirectory();

    QFileSystemWatcher *const m_watcher;
    const std::unique_ptr<EntryTree> m_entries;
    MGConfItem *const m_maskedItem;
    QTimer m_scanTimer;
    StoredBlacklist *const m_favoritesBlacklist;
};
