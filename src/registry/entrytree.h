// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "registry/entrysources.h"
#include "registry/treeitem.h"

#include <QHash>
#include <QMap>
#include <QSet>
#include <QStringList>

#include <memory>

class FileIndex;
class LoadObserver;
class QObject;
class QTranslator;
enum class EntryFate;
struct FileReport;

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

    /// Unloads the files that went from the directory and loads those that have come. Whether there were any.
    bool scan();
    void load(const QString &fileName);
    void unload(const QSet<QString> &fileNames);
    /// Each name is looked for once, whatever comes of it.
    void loadCatalog(const QString &catalog);

    /// Holds for what is loaded from now on.
    void setMasked(const QSet<QString> &paths);
    /// The same, and loads the files again that it concerns. Whether there were any.
    bool changeMasked(const QSet<QString> &paths);

private:
    void insertEntries(const FileReport &report);
    EntryFate insertEntry(const TreeItem::Entries &entries, int index, const QString &fileName,
                          const TreeItem **item);
    void maskEntry(const QString &path, const QString &fileName);
    void pruneUpwards(TreeItem *item, const QSet<QString> &fileNames);
    bool isRemovable(const TreeItem *item, const QSet<QString> &fileNames) const;
    QSet<QString> filesToReload(const QSet<QString> &masked) const;
    template<typename Load>
    void installCatalog(const QString &name, const Load &load);

    const EntrySources m_sources;
    QObject *const m_translatorParent;
    LoadObserver *const m_observer;
    const std::unique_ptr<FileIndex> m_index; ///< outlives the tree
    const std::unique_ptr<TreeItem> m_root;
    QStringList m_knownFiles;
    QSet<QString> m_loadedFiles;
    QSet<QString> m_maskedPaths;
    QMap<QString, QString> m_maskedEntries; ///< masked path -> file that declared it
    QHash<QString, QTranslator *> m_translators;
};
