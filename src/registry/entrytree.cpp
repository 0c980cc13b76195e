// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/entrytree.h"

#include "common/logging.h"
#include "common/logtext.h"
#include "common/messages.h"
#include "common/stringset.h"
#include "registry/catalogtranslator.h"
#include "registry/directorylisting.h"
#include "registry/fileentries.h"
#include "registry/fileindex.h"
#include "registry/filename.h"
#include "registry/filereport.h"
#include "registry/loadobserver.h"
#include "registry/registrationfile.h"
#include "registry/treeitem_p.h"

#include <QCoreApplication>
#include <QJsonObject>
#include <QLocale>
#include <QPointer>

#include <algorithm>
#include <iterator>
#include <utility>

namespace
{
/// The text of a file is kept up to this size, in bytes for each of its nodes: most of a larger one is something else.
constexpr qint64 MaxTextOfNode = 4096;
constexpr int MaxWarningsOfFile = 1000;
constexpr char EngineeringEnglish[] = "_eng_en";
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
    for (CatalogTranslator *translator : qAsConst(m_translators)) {
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
    const std::optional<QSet<QString>> masked = std::exchange(m_postponedMasked, std::nullopt);
    const bool isMaskChanged = masked && changeMasked(*masked);
    const DirectoryListing listing = listFiles(m_sources.entriesDirectory);
    if (isReadLater(listing.shortage)) {
        return isMaskChanged;
    }
    const bool isAnyUnloaded = unloadVanished(listing.files);
    return loadAdded(listing.files) || isAnyUnloaded || isMaskChanged;
}

bool EntryTree::unloadVanished(const QStringList &present)
{
    const QSet<QString> vanished = toSet(m_knownFiles) - toSet(present);
    if (vanished.isEmpty()) {
        return false;
    }
    unload(vanished);
    const auto isGone = [&vanished](const QString &name) { return vanished.contains(name); };
    m_knownFiles.erase(std::remove_if(m_knownFiles.begin(), m_knownFiles.end(), isGone), m_knownFiles.end());
    return true;
}

QStringList EntryTree::unknownFiles(const QStringList &present) const
{
    const QSet<QString> known = toSet(m_knownFiles);
    QStringList unknown;
    std::copy_if(present.cbegin(), present.cend(), std::back_inserter(unknown),
                 [&known](const QString &name) { return isRegistrationFile(name) && !known.contains(name); });
    return unknown;
}

bool EntryTree::loadAdded(const QStringList &present)
{
    const QStringList added = unknownFiles(present);
    if (m_observer) {
        m_observer->scanStarted(added.size());
    }
    for (const QString &name : added) {
        const FileReport report = read(name);
        if (isReadLater(report.shortage)) {
            return name != added.constFirst(); // the others must not be loaded before it
        }
        m_knownFiles.append(name);
        insert(report);
    }
    m_isShort = m_postponedMasked.has_value();
    return !added.isEmpty();
}

bool EntryTree::isShort() const
{
    return m_isShort;
}

/// Returns whether there is a @p shortage. The first one since all was read is logged.
bool EntryTree::isReadLater(const QString &shortage)
{
    if (!shortage.isEmpty() && !std::exchange(m_isShort, true)) {
        qCWarning(lcSettings) << Messages::TryingAgain << shortage;
    }
    return !shortage.isEmpty();
}

void EntryTree::load(const QString &fileName)
{
    const FileReport report = read(fileName);
    if (!report.shortage.isEmpty()) {
        qCWarning(lcSettings) << Messages::CannotReadEntries << quoted(fileName);
        return;
    }
    insert(report);
}

FileReport EntryTree::read(const QString &fileName) const
{
    qCInfo(lcSettings) << Messages::ParsingFile << "parsing" << quoted(fileName);
    FileReport report = readRegistrationFile(m_sources, fileName);
    if (m_observer) {
        m_observer->fileRead(report);
    }
    return report;
}

void EntryTree::insert(const FileReport &report)
{
    if (report.status != FileStatus::Loaded) {
        return;
    }
    loadCatalog(report.file->translationCatalog);
    loadCatalog(report.file->complementaryTranslationCatalog);
    m_loadedFiles.insert(report.name);
    m_outlivedFiles.remove(report.name);
    insertEntries(report);
}

void EntryTree::insertEntries(const FileReport &report)
{
    const NodeData::Entries entries(
        new FileEntries(report.file->entries, report.content, catalogsOf(*report.file)));
    insertEach(entries, report);
    if (m_root->fromFile() == report.name) {
        TreeItemPrivate::of(m_root.get())->keepEntryAlone(); // it is never unloaded
    }
    m_textSizes.insert(report.name, report.content.size());
    dropTexts(m_index->takeReplaced() + QSet<QString>{report.name});
    entries->forget();
}

void EntryTree::insertEach(const NodeData::Entries &entries, const FileReport &report)
{
    int pathless = 0;
    for (int index = 0; index < report.file->entries.size(); ++index) {
        const TreeItem *item = nullptr;
        const EntryStatus status = insertEntry(entries, index, report.name, &item);
        if (status == EntryStatus::Pathless && ++pathless <= MaxWarningsOfFile) {
            qCWarning(lcSettings) << Messages::PathMissing << quoted(report.name);
        }
        if (m_observer) {
            m_observer->entryRead(report.name, index, status, item);
        }
    }
    if (pathless > MaxWarningsOfFile) {
        qCWarning(lcSettings) << pathless - MaxWarningsOfFile << Messages::MorePathsMissing << quoted(report.name);
    }
}

/// Releases the text of files of which few nodes are left: these then keep only their own entries.
void EntryTree::dropTexts(const QSet<QString> &fileNames)
{
    for (const QString &fileName : fileNames) {
        const QVector<TreeItem *> items = m_index->declaredBy(fileName);
        if (m_textSizes.value(fileName) <= MaxTextOfNode * items.size()) {
            continue;
        }
        for (const TreeItem *item : items) {
            TreeItemPrivate::of(item)->keepEntryAlone();
        }
        m_textSizes.remove(fileName);
    }
}

EntryStatus EntryTree::insertEntry(const NodeData::Entries &entries, int index, const QString &fileName,
                                   const TreeItem **item)
{
    const std::optional<QString> path = pathOfEntry(entries->at(index));
    if (!path) {
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
    forgetFiles(fileNames);
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

void EntryTree::forgetFiles(const QSet<QString> &fileNames)
{
    for (auto it = m_maskedEntries.begin(); it != m_maskedEntries.end();) {
        it = fileNames.contains(it.value()) ? m_maskedEntries.erase(it) : std::next(it);
    }
    for (const QString &fileName : fileNames) {
        m_textSizes.remove(fileName);
    }
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
    installCatalog(
        catalog + QLatin1String(EngineeringEnglish),
        [&](CatalogTranslator *translator, const QString &name) { return translator->load(name, directory); });
    // The one installed last takes precedence.
    installCatalog(catalog, [&](CatalogTranslator *translator, const QString &name) {
        return translator->load(QLocale(), name, QStringLiteral("-"), directory);
    });
}

FileCatalogs EntryTree::catalogsOf(const RegistrationFile &file) const
{
    const auto translatorsOf = [this](const QString &name) {
        return FileCatalogs::Catalog{m_translators.value(name),
                                     m_translators.value(name + QLatin1String(EngineeringEnglish))};
    };
    return {translatorsOf(file.complementaryTranslationCatalog), translatorsOf(file.translationCatalog)};
}

template<typename Load>
void EntryTree::installCatalog(const QString &name, const Load &load)
{
    if (m_translators.contains(name)) {
        return;
    }
    auto *translator = new CatalogTranslator(m_translatorParent);
    m_translators.insert(name, translator);
    if (isFileName(name)) {
        load(translator, name);
    }
    logCatalogError(translator->error());
    QCoreApplication::installTranslator(translator);
    if (m_observer) {
        m_observer->catalogInstalled(name, translator);
    }
}

/// Logs each error once: a file without a suffix can be found under several names.
void EntryTree::logCatalogError(const QString &error)
{
    if (!error.isEmpty() && !m_catalogErrors.contains(error)) {
        m_catalogErrors.insert(error);
        qCWarning(lcSettings) << Messages::CannotUseCatalog << qUtf8Printable(error);
    }
}

void EntryTree::setMasked(const QSet<QString> &paths)
{
    m_maskedPaths = paths;
}

bool EntryTree::changeMasked(const QSet<QString> &paths)
{
    m_postponedMasked.reset();
    const QSet<QString> reload = filesToReload(paths);
    // Read before the first is unloaded, or what cannot be read now would be lost.
    const std::optional<QVector<FileReport>> reports = readAll(reload);
    if (!reports) {
        m_postponedMasked = paths;
        return false;
    }
    m_maskedPaths = paths; // the files are loaded by the new list
    if (reload.isEmpty()) {
        return false;
    }
    replaceEntries(reload, *reports);
    return true;
}

void EntryTree::replaceEntries(const QSet<QString> &fileNames, const QVector<FileReport> &reports)
{
    // A node that has outlived its own file stays, because its children are loaded again below.
    removeEntries(fileNames, fileNames);
    std::for_each(reports.cbegin(), reports.cend(), [this](const FileReport &report) { insert(report); });
    prune(m_index->removableWith(m_outlivedFiles), m_outlivedFiles);
    m_outlivedFiles = withNodes(m_outlivedFiles);
}

std::optional<QVector<FileReport>> EntryTree::readAll(const QSet<QString> &files)
{
    // In the order of a scan, so that of two files with one path the same one wins.
    QStringList fileNames = files.values();
    fileNames.sort(Qt::CaseInsensitive);
    QVector<FileReport> reports;
    reports.reserve(fileNames.size());
    for (const QString &fileName : std::as_const(fileNames)) {
        reports.append(read(fileName));
        if (isReadLater(reports.constLast().shortage)) {
            return std::nullopt;
        }
    }
    return reports;
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
