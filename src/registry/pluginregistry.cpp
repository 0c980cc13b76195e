// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/pluginregistry.h"

#include "common/constants.h"
#include "common/logging.h"
#include "common/stringset.h"
#include "registry/directoryfollower.h"
#include "registry/entrytree.h"
#include "registry/storedblacklist.h"
#include "registry/treeitem.h"

#include <mgconfitem.h>

#include <QFileInfo>
#include <QFileSystemWatcher>

#include <chrono>

using namespace std::chrono_literals;

namespace
{
constexpr auto ScanDelay = 2000ms;
}

PluginRegistry *PluginRegistry::instance()
{
    static PluginRegistry *s_registry = nullptr;
    if (!s_registry) {
        s_registry = new PluginRegistry(Unread, nullptr);
        // The application notifies its objects of each catalog that is installed. They may ask for the registry.
        s_registry->readEntries();
    }
    return s_registry;
}

PluginRegistry::PluginRegistry(QObject *parent)
    : PluginRegistry(Unread, parent)
{
    readEntries();
}

PluginRegistry::PluginRegistry(UnreadTag, QObject *parent)
    : QObject(parent)
    , m_watcher(new QFileSystemWatcher(this))
    , m_entries(std::make_unique<EntryTree>(EntrySources::ofSystem(), this))
    , m_maskedItem(new MGConfItem(Constants::MaskedSettingsKey, this))
    , m_scanTimer(this)
    , m_favoritesBlacklist(new StoredBlacklist(this))
{
}

void PluginRegistry::readEntries()
{
    // Unlike later values, the first one masks blacklisted paths, too.
    m_entries->setMasked(toSet(m_maskedItem->value().toStringList()));
    connect(m_maskedItem, &MGConfItem::valueChanged, this, &PluginRegistry::maskedSettingsChanged);

    m_scanTimer.setSingleShot(true);
    m_scanTimer.setInterval(ScanDelay);
    connect(&m_scanTimer, &QTimer::timeout, this, &PluginRegistry::monitoredDirectoryChanged);

    // Watched before it is read, so that no change in between is lost.
    followDirectory();
    monitoredDirectoryChanged();
}

// A directory that is missing at the start is not followed until the process starts again.
void PluginRegistry::followDirectory()
{
    if (!QFileInfo(Constants::EntriesDirectory).isDir()) {
        return;
    }
    const auto *follower = new DirectoryFollower(Constants::EntriesDirectory, m_watcher, this);
    connect(follower, &DirectoryFollower::changed, &m_scanTimer, qOverload<>(&QTimer::start));
    connect(m_watcher, &QFileSystemWatcher::directoryChanged, &m_scanTimer, qOverload<>(&QTimer::start));
}

PluginRegistry::~PluginRegistry() = default;

TreeItem *PluginRegistry::getItem(const QStringList &path) const
{
    return m_entries->root()->lookup(path);
}

void PluginRegistry::addEntriesForFile(const QString &fileName)
{
    m_entries->load(fileName);
}

void PluginRegistry::removeEntriesForFile(const QString &fileName)
{
    m_entries->unload({fileName});
}

void PluginRegistry::loadTranslationCatalog(const QString &catalog)
{
    m_entries->loadCatalog(catalog);
}

void PluginRegistry::monitoredDirectoryChanged()
{
    finishBatch(m_entries->scan());
    if (lcSettings().isInfoEnabled()) {
        m_entries->root()->dumpTree(0);
    }
}

void PluginRegistry::maskedSettingsChanged()
{
    if (!m_favoritesBlacklist->isRead()) {
        connect(m_favoritesBlacklist, &StoredBlacklist::readLate, this, &PluginRegistry::maskedSettingsChanged,
                Qt::UniqueConnection);
        return;
    }
    const QSet<QString> masked = toSet(m_maskedItem->value().toStringList());
    finishBatch(m_entries->changeMasked(masked - m_favoritesBlacklist->paths()));
}

void PluginRegistry::finishBatch(bool isChanged)
{
    if (m_entries->isShort()) {
        m_scanTimer.start();
    }
    if (isChanged) {
        Q_EMIT contentChanged();
    }
}

#include "moc_pluginregistry.cpp"
