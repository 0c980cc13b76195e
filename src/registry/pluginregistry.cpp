// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/pluginregistry.h"

#include "plugin/constants.h"
#include "registry/favoritesblacklist.h"
#include "registry/fileindex.h"
#include "registry/jsonvariant.h"
#include "registry/logging.h"
#include "registry/messages.h"
#include "registry/registrationfile.h"
#include "registry/treeitem.h"

#include <mgconfitem.h>
#include <orvantaaccesscontrol.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFileSystemWatcher>
#include <QJsonObject>
#include <QLocale>
#include <QPointer>
#include <QTranslator>

#include <unistd.h>

#include <chrono>
#include <climits>

using namespace std::chrono_literals;

namespace
{
constexpr auto ScanDelay = 2000ms;

QStringList splitPath(const QString &path)
{
    return path.split(QLatin1Char('/'), Qt::SkipEmptyParts);
}

bool isRegistrationFile(const QString &fileName)
{
    return fileName.endsWith(QLatin1String(".json")) && !fileName.startsWith(QLatin1String("fake"));
}

bool userHasGroup(const QString &group)
{
    return orvanta_access_control_hasgroup(geteuid(), group.toLocal8Bit().constData());
}

/// Whether a file can have @p name. QTranslator would look for a longer one in ever shorter forms, for hours.
bool isFileName(const QString &name)
{
    return QFile::encodeName(name).size() <= NAME_MAX;
}

/// Whether the groups that @p file names let the effective user have its entries.
bool isForUser(const RegistrationFile &file)
{
    if (!file.requiredGroup.isEmpty() && !userHasGroup(file.requiredGroup)) {
        qCDebug(lcSettings) << geteuid() << Messages::NotInGroup << file.requiredGroup;
        return false;
    }
    if (!file.disabledGroup.isEmpty() && userHasGroup(file.disabledGroup)) {
        qCDebug(lcSettings) << geteuid() << Messages::DisabledForGroup << file.disabledGroup;
        return false;
    }
    return true;
}

/// The content of a registration file, nothing and a warning when it cannot be read.
std::optional<QByteArray> readEntriesFile(const QString &fileName)
{
    QFile file(Constants::EntriesDirectory + QLatin1Char('/') + fileName);
    // To open a pipe would wait for its writer.
    if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly)) {
        qCWarning(lcSettings) << Messages::CannotReadEntries << fileName;
        return {};
    }
    // What QIODevice::Text does, at a fraction of its cost
    QByteArray content = file.readAll();
    if (content.contains('\r')) {
        content.replace('\r', "");
    }
    return content;
}
}

PluginRegistry *PluginRegistry::instance()
{
    static auto *const registry = new PluginRegistry;
    return registry;
}

PluginRegistry::PluginRegistry(QObject *parent)
    : QObject(parent)
    , m_watcher(new QFileSystemWatcher(this))
    , m_index(std::make_unique<FileIndex>())
    , m_root(std::make_unique<TreeItem>(QString(), QVariantMap()))
    , m_maskedItem(new MGConfItem(Constants::MaskedSettingsKey, this))
    , m_scanTimer(this)
    , m_favoritesBlacklist(readFavoritesBlacklist())
{
    m_root->setIndex(m_index.get());
    // Unlike later values, the first one masks blacklisted paths, too.
    const QStringList masked = m_maskedItem->value().toStringList();
    m_maskedSettings = {masked.cbegin(), masked.cend()};
    connect(m_maskedItem, &MGConfItem::valueChanged, this, &PluginRegistry::maskedSettingsChanged);

    m_scanTimer.setSingleShot(true);
    m_scanTimer.setInterval(ScanDelay);
    connect(&m_scanTimer, &QTimer::timeout, this, &PluginRegistry::monitoredDirectoryChanged);

    // Watched before it is read, so that no change in between is lost.
    m_watcher->addPath(Constants::EntriesDirectory);
    monitoredDirectoryChanged();
    connect(m_watcher, &QFileSystemWatcher::directoryChanged, &m_scanTimer, qOverload<>(&QTimer::start));
}

PluginRegistry::~PluginRegistry()
{
    m_root->removeItems([](const TreeItem *) { return true; });
    for (QTranslator *translator : qAsConst(m_translators)) {
        QCoreApplication::removeTranslator(translator);
        delete translator;
    }
}

TreeItem *PluginRegistry::getItem(const QStringList &path) const
{
    return m_root->lookup(path);
}

void PluginRegistry::addEntriesForFile(const QString &fileName)
{
    qCInfo(lcSettings) << Messages::ParsingFile << "parsing" << fileName;
    const std::optional<QByteArray> json = readEntriesFile(fileName);
    if (!json) {
        return;
    }
    const std::optional<RegistrationFile> file = parseRegistrationFile(*json, fileName);
    if (!file || !isForUser(*file)) {
        return;
    }
    loadTranslationCatalog(file->translationCatalog);
    loadTranslationCatalog(file->complementaryTranslationCatalog);
    m_loadedFiles.insert(fileName);
    insertEntries(*file, fileName);
}

void PluginRegistry::insertEntries(const RegistrationFile &file, const QString &fileName)
{
    for (const QJsonValue &element : file.entries) {
        const QJsonObject entry = element.toObject();
        const auto pathValue = entry.constFind(QLatin1String("path"));
        if (pathValue == entry.constEnd()) {
            qCWarning(lcSettings) << Messages::PathMissing << fileName;
            continue;
        }
        const QString path = jsonToVariant(*pathValue).toString();
        if (m_maskedSettings.contains(path)) {
            maskEntry(path, fileName);
            continue;
        }
        m_root->insertEntry(splitPath(path), entry, fileName);
    }
}

void PluginRegistry::maskEntry(const QString &path, const QString &fileName)
{
    m_maskedEntries.insert(path, fileName);
    // Entries of other files may have kept the node when this file was unloaded. It must not show what is masked.
    TreeItem *item = m_root->lookup(splitPath(path));
    if (item && item->fromFile() == fileName && item->value(QStringLiteral("path")).toString() == path) {
        item->clearData();
    }
}

void PluginRegistry::removeEntriesForFile(const QString &fileName)
{
    unload({fileName});
}

void PluginRegistry::unload(const QSet<QString> &fileNames)
{
    for (auto it = m_maskedEntries.begin(); it != m_maskedEntries.end();) {
        it = fileNames.contains(it.value()) ? m_maskedEntries.erase(it) : std::next(it);
    }
    m_loadedFiles.subtract(fileNames);
    const QVector<QPointer<TreeItem>> items = m_index->removableWith(fileNames);
    for (const QPointer<TreeItem> &item : items) {
        pruneUpwards(item, fileNames);
    }
}

void PluginRegistry::pruneUpwards(TreeItem *item, const QSet<QString> &fileNames)
{
    while (item && isRemovable(item, fileNames)) {
        // Whoever hears that the item is gone runs code of its own.
        const QPointer<TreeItem> parent = item->parentItem();
        parent->removeChild(item);
        item = parent;
    }
}

bool PluginRegistry::isRemovable(const TreeItem *item, const QSet<QString> &fileNames) const
{
    if (item->count() > 0 || item == m_root.get()) {
        return false;
    }
    // A node of a file that was unloaded earlier lived on for its children alone.
    return !item->isDeclared() || fileNames.contains(item->fromFile())
           || !m_loadedFiles.contains(item->fromFile());
}

void PluginRegistry::loadTranslationCatalog(const QString &catalog)
{
    if (catalog.isEmpty()) {
        return;
    }
    const QString engineeringEnglish = catalog + QLatin1String("_eng_en");
    if (!m_translators.contains(engineeringEnglish)) {
        auto *translator = new QTranslator(this);
        m_translators.insert(engineeringEnglish, translator);
        if (isFileName(engineeringEnglish)) {
            translator->load(engineeringEnglish, Constants::TranslationsDirectory);
        }
        QCoreApplication::installTranslator(translator);
    }
    // Installed last, asked first.
    if (!m_translators.contains(catalog)) {
        auto *translator = new QTranslator(this);
        m_translators.insert(catalog, translator);
        if (isFileName(catalog)) {
            translator->load(QLocale(), catalog, QStringLiteral("-"), Constants::TranslationsDirectory);
        }
        QCoreApplication::installTranslator(translator);
    }
}

void PluginRegistry::monitoredDirectoryChanged()
{
    const QStringList listed = QDir(Constants::EntriesDirectory).entryList(QDir::Files);
    const QSet<QString> present(listed.cbegin(), listed.cend());
    const QSet<QString> known(m_knownFiles.cbegin(), m_knownFiles.cend());
    const QSet<QString> vanished = known - present;
    bool changed = !vanished.isEmpty();
    if (changed) {
        unload(vanished);
        const auto isGone = [&vanished](const QString &name) { return vanished.contains(name); };
        m_knownFiles.erase(std::remove_if(m_knownFiles.begin(), m_knownFiles.end(), isGone), m_knownFiles.end());
    }
    for (const QString &name : listed) {
        if (isRegistrationFile(name) && !known.contains(name)) {
            m_knownFiles.append(name);
            addEntriesForFile(name);
            changed = true;
        }
    }
    if (changed) {
        Q_EMIT contentChanged();
    }
    if (lcSettings().isInfoEnabled()) {
        m_root->dumpTree(0);
    }
}

void PluginRegistry::maskedSettingsChanged()
{
    const QStringList value = m_maskedItem->value().toStringList();
    const QSet<QString> masked = QSet<QString>(value.cbegin(), value.cend()) - m_favoritesBlacklist;
    const QSet<QString> reload = filesToReload(masked);
    m_maskedSettings = masked; // the files are loaded by the new list
    unload(reload);
    // In the order of a scan, so that of two files with one path the same one wins.
    QStringList fileNames = reload.values();
    fileNames.sort(Qt::CaseInsensitive);
    for (const QString &fileName : qAsConst(fileNames)) {
        addEntriesForFile(fileName);
    }
    if (!reload.isEmpty()) {
        Q_EMIT contentChanged();
    }
}

QSet<QString> PluginRegistry::filesToReload(const QSet<QString> &masked) const
{
    QSet<QString> files;
    for (auto it = m_maskedEntries.cbegin(); it != m_maskedEntries.cend(); ++it) {
        if (!masked.contains(it.key())) {
            files.insert(it.value());
        }
    }
    const QSet<QString> newlyMasked = masked - m_maskedSettings;
    for (const QString &path : newlyMasked) {
        if (const TreeItem *item = m_root->lookup(splitPath(path))) {
            files.insert(item->fromFile());
        }
    }
    return files;
}
