// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/entrytree.h"

#include "common/logging.h"
#include "common/messages.h"
#include "registry/fileentries.h"
#include "registry/fileindex.h"
#include "registry/filename.h"
#include "registry/filereport.h"
#include "registry/loadobserver.h"
#include "registry/registrationfile.h"
#include "registry/treeitem_p.h"

#include <QCoreApplication>
#include <QDir>
#include <QJsonObject>
#include <QLocale>
#include <QPointer>
#include <QTranslator>

namespace
{
/// The largest size of a file, in bytes for each entry, whose text is kept: the rest of it may be anything.
constexpr qint64 MaxTextOfEntry = 4096;
}

EntryTree::EntryTree(const EntrySources &sources, QObject *translatorParent, LoadObserver *observer)
    : m_sources(sources)
    , m_translatorParent(translatorParent)
    , m_observer(observer)
    , m_index(std::make_unique<FileIndex>())
    , m_root(std::make_unique<TreeItem>(QString(), QVariantMap()))
{
    TreeItemPrivate::of(m_root.get())->setIndex(m_index.get());
}

EntryTree::~EntryTree()
{
    m_root->removeItems([](const TreeItem *) { return true; });
    for (QTranslator *translator : qAsConst(m_translators)) {
        QCoreApplication::removeTranslator(translator);
        delete translator;
    }
}

TreeItem *EntryTree::root() const
{
    return m_root.get();
}

bool EntryTree::scan()
{
    const QStringList listed = QDir(m_sources.entriesDirectory).entryList(QDir::Files);
    const QSet<QString> present(listed.cbegin(), listed.cend());
    const QSet<QString> known(m_knownFiles.cbegin(), m_knownFiles.cend());
    const QSet<QString> vanished = known - present;
    if (!vanished.isEmpty()) {
        unload(vanished);
        const auto isGone = [&vanished](const QString &name) { return vanished.contains(name); };
        m_knownFiles.erase(std::remove_if(m_knownFiles.begin(), m_knownFiles.end(), isGone), m_knownFiles.end());
    }
    QStringList added;
    for (const QString &name : listed) {
        if (isRegistrationFile(name) && !known.contains(name)) {
            added.append(name);
        }
    }
    if (m_observer) {
        m_observer->scanStarted(added.size());
    }
    for (const QString &name : qAsConst(added)) {
        m_knownFiles.append(name);
        load(name);
    }
    return !vanished.isEmpty() || !added.isEmpty();
}

void EntryTree::load(const QString &fileName)
{
    qCInfo(lcSettings) << Messages::ParsingFile << "parsing" << fileName;
    const FileReport report = readRegistrationFile(m_sources, fileName);
    if (m_observer) {
        m_observer->fileRead(report);
    }
    if (report.status != FileStatus::Loaded) {
        return;
    }
    loadCatalog(report.file->translationCatalog);
    loadCatalog(report.file->complementaryTranslationCatalog);
    m_loadedFiles.insert(fileName);
    m_outlivedFiles.remove(fileName);
    insertEntries(report);
}

void EntryTree::insertEntries(const FileReport &report)
{
    const bool isText = report.content.size() <= MaxTextOfEntry * report.file->entries.size();
    const NodeData::Entries entries(new FileEntries(report.file->entries, isText ? report.content : QByteArray()));
    for (int index = 0; index < report.file->entries.size(); ++index) {
        const TreeItem *item = nullptr;
        const EntryStatus status = insertEntry(entries, index, report.name, &item);
        if (m_observer) {
            m_observer->entryRead(report.name, index, status, item);
        }
    }
    entries->forget();
}

EntryStatus EntryTree::insertEntry(const NodeData::Entries &entries, int index, const QString &fileName,
                                   const TreeItem **item)
{
    const std::optional<QString> path = pathOfEntry(entries->at(index));
    if (!path) {
        qCWarning(lcSettings) << Messages::PathMissing << fileName;
        return EntryStatus::Pathless;
    }
    if (m_maskedPaths.contains(*path)) {
        maskEntry(*path, fileName);
        return EntryStatus::Masked;
    }
    *item = TreeItemPrivate::of(m_root.get())->insert(splitPath(*path), NodeData(entries, index, fileName));
    return EntryStatus::Inserted;
}

void EntryTree::maskEntry(const QString &path, const QString &fileName)
{
    m_maskedEntries.insert(path, fileName);
    // Entries of other files may have kept the node when this file was unloaded. It must not show the masked entry.
    TreeItem *item = m_root->lookup(splitPath(path));
    if (item && item->fromFile() == fileName && item->value(QStringLiteral("path")).toString() == path) {
        item->clearData();
    }
}

void EntryTree::unload(const QSet<QString> &fileNames)
{
    removeEntries(fileNames, fileNames + m_outlivedFiles);
}

/// Unloads @p fileNames. Removes the nodes that they declared, and above these the nodes that only @p removable
/// declared. Nodes with children keep their data.
void EntryTree::removeEntries(const QSet<QString> &fileNames, const QSet<QString> &removable)
{
    for (auto it = m_maskedEntries.begin(); it != m_maskedEntries.end();) {
        it = fileNames.contains(it.value()) ? m_maskedEntries.erase(it) : std::next(it);
    }
    const QVector<QPointer<TreeItem>> items = m_index->removableWith(fileNames);
    prune(items, removable);
    for (const QPointer<TreeItem> &item : items) {
        if (item && item->isDeclared()) {
            TreeItemPrivate::of(item)->keepEntryAlone();
        }
    }
    m_outlivedFiles = withNodes(m_outlivedFiles + (fileNames & m_loadedFiles));
    m_loadedFiles -= fileNames;
}

QSet<QString> EntryTree::withNodes(const QSet<QString> &fileNames) const
{
    QSet<QString> files;
    for (const QString &file : fileNames) {
        if (m_index->contains(file)) {
            files.insert(file);
        }
    }
    return files;
}

/// Removes each of @p items without children, and then its parents that only it kept.
void EntryTree::prune(const QVector<QPointer<TreeItem>> &items, const QSet<QString> &removable)
{
    for (QPointer<TreeItem> item : items) {
        while (item && isRemovable(item, removable)) {
            // Handlers of destroyed() run code of their own.
            const QPointer<TreeItem> parent = item->parentItem();
            parent->removeChild(item);
            item = parent;
        }
    }
}

bool EntryTree::isRemovable(const TreeItem *item, const QSet<QString> &removable) const
{
    return item->count() == 0 && item != m_root.get()
           && (!item->isDeclared() || removable.contains(item->fromFile()));
}

void EntryTree::loadCatalog(const QString &catalog)
{
    if (catalog.isEmpty()) {
        return;
    }
    const QString &directory = m_sources.translationsDirectory;
    installCatalog(catalog + QLatin1String("_eng_en"), [&](QTranslator *translator, const QString &name) {
        return translator->load(name, directory);
    });
    // The one installed last takes precedence.
    installCatalog(catalog, [&](QTranslator *translator, const QString &name) {
        return translator->load(QLocale(), name, QStringLiteral("-"), directory);
    });
}

template<typename Load>
void EntryTree::installCatalog(const QString &name, const Load &load)
{
    if (m_translators.contains(name)) {
        return;
    }
    auto *translator = new QTranslator(m_translatorParent);
    m_translators.insert(name, translator);
    if (isFileName(name)) {
        load(translator, name);
    }
    QCoreApplication::installTranslator(translator);
    if (m_observer) {
        m_observer->catalogInstalled(name, translator);
    }
}

void EntryTree::setMasked(const QSet<QString> &paths)
{
    m_maskedPaths = paths;
}

bool EntryTree::changeMasked(const QSet<QString> &paths)
{
    const QSet<QString> reload = filesToReload(paths);
    m_maskedPaths = paths; // the files are loaded by the new list
    if (reload.isEmpty()) {
        return false;
    }
    // A node that has outlived its own file stays, because its children are loaded again below.
    removeEntries(reload, reload);
    // In the order of a scan, so that of two files with one path the same one wins.
    QStringList fileNames = reload.values();
    fileNames.sort(Qt::CaseInsensitive);
    for (const QString &fileName : qAsConst(fileNames)) {
        load(fileName);
    }
    prune(m_index->removableWith(m_outlivedFiles), m_outlivedFiles);
    m_outlivedFiles = withNodes(m_outlivedFiles);
    return true;
}

QSet<QString> EntryTree::filesToReload(const QSet<QString> &masked) const
{
    QSet<QString> files;
    for (auto it = m_maskedEntries.cbegin(); it != m_maskedEntries.cend(); ++it) {
        if (!masked.contains(it.key())) {
            files.insert(it.value());
        }
    }
    const QSet<QString> newlyMasked = masked - m_maskedPaths;
    for (const QString &path : newlyMasked) {
        if (const TreeItem *item = m_root->lookup(splitPath(path))) {
            files.insert(item->fromFile());
        }
    }
    return files;
}
