// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "registry/entrysources.h"
#include "registry/nodedata.h"

#include <QHash>
#include <QMap>
#include <QPointer>
#include <QSet>
#include <QStringList>
#include <QVector>

#include <memory>
#include <optional>

class CatalogTranslator;
class FileIndex;
class LoadObserver;
class QObject;
class TreeItem;
enum class EntryStatus;
struct FileReport;
struct RegistrationFile;

/// The tree of the entries that the registration files of one directory declare, kept up to date file by file.
class EntryTree
{
public:
    /// @p translatorParent is the parent of the catalogs' translators, which live no longer than this tree.
    EntryTree(const EntrySources &sources, QObject *translatorParent, LoadObserver *observer = nullptr);
    ~EntryTree();
    EntryTree(const EntryTree &) = delete;
    EntryTree &operator=(const EntryTree &) = delete;

    TreeItem *root() const;

    /// Unloads the files that left the directory and loads the new ones. Returns whether there were any.
    bool scan();
    /// Returns whether there is something that could not be read because descriptors or memory were short: scan() is to
    /// be called again.
    bool isShort() const;
    void load(const QString &fileName);
    void unload(const QSet<QString> &fileNames);
    /// Searches for each name only once, even if there is no such catalog.
    void loadCatalog(const QString &catalog);

    /// Sets the paths of entries that load() leaves out.
    void setMasked(const QSet<QString> &paths);
    /// The same, and reloads the files that are affected. Returns whether there were any. If descriptors or memory are
    /// short, the next scan() does it.
    bool changeMasked(const QSet<QString> &paths);

private:
    bool unloadVanished(const QStringList &present);
    bool loadAdded(const QStringList &present);
    bool isReadLater(const QString &shortage);
    FileReport read(const QString &fileName) const;
    void insert(const FileReport &report);
    void insertEntries(const FileReport &report);
    void dropTexts(const QSet<QString> &fileNames);
    EntryStatus insertEntry(const NodeData::Entries &entries, int index, const QString &fileName,
                            const TreeItem **item);
    void maskEntry(const QString &path, const QString &fileName);
    void removeEntries(const QSet<QString> &fileNames, const QSet<QString> &removable);
    QSet<QString> withNodes(const QSet<QString> &fileNames) const;
    void prune(const QVector<QPointer<TreeItem>> &items, const QSet<QString> &removable);
    bool isRemovable(const TreeItem *item, const QSet<QString> &removable) const;
    QSet<QString> filesToReload(const QSet<QString> &masked) const;
    /// Returns nothing if descriptors or memory are short.
    std::optional<QVector<FileReport>> readAll(const QSet<QString> &files);
    FileCatalogs catalogsOf(const RegistrationFile &file) const;
    template<typename Load>
    void installCatalog(const QString &name, const Load &load);

    const EntrySources m_sources;
    QObject *const m_translatorParent;
    LoadObserver *const m_observer;
    const std::unique_ptr<FileIndex> m_index; ///< outlives the tree
    const std::unique_ptr<TreeItem> m_root;
    QHash<QString, qint64> m_textSizes; ///< of the files whose nodes share their text
    QStringList m_knownFiles;
    QSet<QString> m_loadedFiles;
    QSet<QString> m_outlivedFiles; ///< unloaded, but some of their nodes stayed for their children
    QSet<QString> m_maskedPaths;
    std::optional<QSet<QString>> m_postponedMasked; ///< to take the place of m_maskedPaths
    bool m_isShort = false;
    QMap<QString, QString> m_maskedEntries; ///< masked path -> file that declared it
    QHash<QString, CatalogTranslator *> m_translators;
    QSet<QString> m_catalogErrors; ///< that were reported
};
