// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications/applicationssettingsmodel.h"

#include "applications/applicationitem.h"
#include "applications/desktopfiles.h"
#include "applications/filewatcher.h"
#include "applications/launcherlisting.h"
#include "applications/notificationsclient.h"
#include "applications/userapplicationlists.h"
#include "common/constants.h"
#include "common/logging.h"
#include "common/messages.h"
#include "registry/pluginregistry.h"
#include "registry/treeitem.h"

#include <launcherfoldermodel.h>
#include <launcheritem.h>
#include <mgconfitem.h>
#include <orvantaaccesscontrol.h>

#include <QFileInfo>
#include <QMap>
#include <QQmlEngine>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <utility>

using namespace std::chrono_literals;

namespace
{
constexpr auto UpdateDelay = 1000ms;

const QString s_restrictedApplication = QStringLiteral("quillon.desktop");

TreeItem *applicationsSection()
{
    return PluginRegistry::instance()->getItem({Constants::ApplicationsSection});
}
}

const ApplicationsSettingsModel::RoleEntry ApplicationsSettingsModel::s_roles[] = {
    {SectionRole, "section", [](const auto &, const ApplicationItem &item) { return item.section(); }},
    {IconIdRole, "iconId", [](const auto &, const ApplicationItem &item) { return QVariant(item.iconId()); }},
    {IconModeRole, "iconMode",
     [](const auto &, const ApplicationItem &item) { return QVariant(item.iconMode()); }},
    {NameRole, "name", [](const auto &, const ApplicationItem &item) { return QVariant(item.name()); }},
    {FilePathRole, "filePath",
     [](const auto &, const ApplicationItem &item) { return QVariant(item.fileName()); }},
    {SandboxedRole, "sandboxed",
     [](const auto &, const ApplicationItem &item) { return QVariant(item.sandboxed()); }},
    {FileIdRole, "fileId", [](const auto &, const ApplicationItem &item) { return QVariant(item.fileId()); }},
    {AllowedRole, "allowed",
     [](const ApplicationsSettingsModel &model, const ApplicationItem &item) {
         return QVariant(model.m_lists->allowlist().contains(applicationId(item.fileId())));
     }},
    {AlwaysAllowedRole, "alwaysAllowed",
     [](const ApplicationsSettingsModel &model, const ApplicationItem &item) {
         return QVariant(model.m_lists->alwaysAllowedList().contains(applicationId(item.fileId())));
     }},
    {AutostartedRole, "autostarted",
     [](const ApplicationsSettingsModel &model, const ApplicationItem &item) {
         return QVariant(model.m_lists->autostartList().contains(applicationId(item.fileId())));
     }},
    {ApplicationIdRole, "applicationId",
     [](const auto &, const ApplicationItem &item) { return QVariant(item.dBusServiceName()); }},
    {NotificationsEnabledRole, "notificationsEnabled",
     [](const ApplicationsSettingsModel &model, const ApplicationItem &item) {
         return QVariant(model.m_notificationsEnabled.value(item.dBusServiceName(), true));
     }},
};

ApplicationsSettingsModel::ApplicationsSettingsModel(QObject *parent)
    : QAbstractListModel(parent)
    , m_maskedItem(new MGConfItem(Constants::MaskedSettingsKey, this))
    , m_configWatcher(new FileWatcher(LauncherFolderModel::configFile(), this))
    , m_updateTimer(new QTimer(this))
    , m_launcher(new LauncherListing(this))
    , m_lists(new UserApplicationLists(this))
    , m_notifications(new NotificationsClient(this))
{
    m_updateTimer->setSingleShot(true);
    m_updateTimer->setInterval(UpdateDelay);
    if (!applicationsSection()) {
        qCCritical(lcSettings) << Messages::NoApplicationsSection;
    }
    using Self = ApplicationsSettingsModel;
    connect(m_maskedItem, &MGConfItem::valueChanged, this, &Self::scheduleUpdate);
    connect(PluginRegistry::instance(), &PluginRegistry::contentChanged, this, &Self::updateSections);
    connect(m_launcher, &LauncherListing::changed, this, &Self::scheduleUpdate);
    connect(m_launcher, &LauncherListing::reset, this, &Self::launcherModelReset);
    connect(m_updateTimer, &QTimer::timeout, this, &Self::launcherModelReset);
    connect(this, &Self::allowlistEnabledChanged, this, &Self::filterModeEnabledChanged);
    connect(this, &Self::autostartEnabledChanged, this, &Self::filterModeEnabledChanged);
    using Lists = UserApplicationLists;
    connect(m_lists, &Lists::allowlistChanged, this, &Self::allowlistChanged);
    connect(m_lists, &Lists::autostartListChanged, this, &Self::autostartListChanged);
    connect(m_lists, &Lists::alwaysAllowedChanged, this, &Self::alwaysAllowedApplicationsChanged);
    connect(m_lists, &Lists::selectionChanged, this, &Self::selectedAppsChanged);
    connect(m_lists, &Lists::membersChanged, this, &Self::notifyAllRows);
    connect(m_lists, &Lists::allowlistEnabledChanged, this, &Self::allowlistEnabledChanged);
    connect(m_lists, &Lists::autostartEnabledChanged, this, &Self::autostartEnabledChanged);
    connect(m_notifications, &NotificationsClient::configChanged, this, &Self::updateNotifications);
}

ApplicationsSettingsModel::~ApplicationsSettingsModel() = default;

QObject *ApplicationsSettingsModel::applications() const
{
    return m_applications;
}

void ApplicationsSettingsModel::setApplications(QObject *applications)
{
    auto *launcher = qobject_cast<LauncherFolderModel *>(applications);
    if (launcher == m_applications) {
        return;
    }
    // With any other user the launcher's order is not followed.
    const bool followsConfigFile = uid() == 0;
    if (m_applications && followsConfigFile) {
        disconnect(m_configWatcher, &FileWatcher::fileChanged, m_applications, &LauncherFolderModel::load);
    }
    m_applications = launcher;
    if (launcher && followsConfigFile) {
        connect(m_configWatcher, &FileWatcher::fileChanged, launcher, &LauncherFolderModel::load);
    }
    if (m_complete) {
        launcherModelReset();
    }
    Q_EMIT applicationsChanged();
}

int ApplicationsSettingsModel::count() const
{
    return rowCount({});
}

QStringList ApplicationsSettingsModel::selectedApps() const
{
    switch (m_filterMode) {
    case AllowedOnly:
        return m_lists->allowlist().ids();
    case AutostartedOnly:
        return m_lists->autostartList().ids();
    default:
        return {};
    }
}

uint ApplicationsSettingsModel::uid() const
{
    return m_lists->uid();
}

void ApplicationsSettingsModel::setUid(uint uid)
{
    if (uid != m_lists->uid()) {
        m_lists->setUid(uid);
        Q_EMIT uidChanged();
    }
}

int ApplicationsSettingsModel::filterMode() const
{
    return m_filterMode;
}

void ApplicationsSettingsModel::setFilterMode(int mode)
{
    if (mode == m_filterMode) {
        return;
    }
    m_filterMode = mode;
    Q_EMIT filterModeChanged();
    launcherModelReset();
}

bool ApplicationsSettingsModel::filterModeEnabled()
{
    switch (m_filterMode) {
    case AllowedOnly:
        return m_lists->queryAllowlistEnabled();
    case AutostartedOnly:
        return m_lists->isValidUid() && m_lists->autostartList().contains(UserApplicationLists::EnabledMode);
    default:
        return false;
    }
}

void ApplicationsSettingsModel::setFilterModeEnabled(bool enabled)
{
    if (m_filterMode == AllowedOnly) {
        m_lists->setAllowlistEnabled(enabled);
    } else if (m_filterMode == AutostartedOnly) {
        const bool valid = m_lists->isValidUid();
        if (valid && m_lists->autostartList().contains(UserApplicationLists::EnabledMode) == enabled) {
            return;
        }
        if (enabled) {
            m_lists->setAutostart(UserApplicationLists::EnabledMode, true);
        } else if (valid) {
            m_lists->applyAutostart({});
        }
    }
}

void ApplicationsSettingsModel::classBegin() {}

void ApplicationsSettingsModel::componentComplete()
{
    m_complete = true;
    if (m_applications) {
        launcherModelReset();
    } else {
        setApplications(new LauncherFolderModel(this));
    }
}

int ApplicationsSettingsModel::rowCount(const QModelIndex &parent) const
{
    Q_UNUSED(parent)
    return m_items.size();
}

QVariant ApplicationsSettingsModel::data(const QModelIndex &index, int role) const
{
    const ApplicationItem *item = m_items.value(index.row());
    if (!item) {
        return {};
    }
    for (const RoleEntry &entry : s_roles) {
        if (entry.role == role) {
            return entry.read(*this, *item);
        }
    }
    return {};
}

QHash<int, QByteArray> ApplicationsSettingsModel::roleNames() const
{
    QHash<int, QByteArray> names;
    for (const RoleEntry &entry : s_roles) {
        names.insert(entry.role, entry.name);
    }
    return names;
}

void ApplicationsSettingsModel::scheduleUpdate()
{
    m_updateTimer->start();
}

void ApplicationsSettingsModel::launcherModelReset()
{
    if (m_resetting) {
        m_resetAgain = true;
        return;
    }
    do {
        m_resetAgain = false;
        m_resetting = true;
        beginResetModel();
        rebuild();
        fetchSelection();
        Q_EMIT countChanged();
        endResetModel();
        m_resetting = false;
    } while (m_resetAgain);
}

void ApplicationsSettingsModel::fetchSelection()
{
    if (m_filterMode == AllowedOnly) {
        m_lists->fetchAllowlist();
    } else if (m_filterMode == AutostartedOnly) {
        m_lists->fetchAutostartList();
    }
}

QString ApplicationsSettingsModel::iconOf(const QString &desktopFile) const
{
    for (const ApplicationItem *item : m_items) {
        if (QFileInfo(item->fileName()).fileName() == desktopFile) {
            return item->iconId();
        }
    }
    return {};
}

void ApplicationsSettingsModel::toggleSelectedApp(const QString &fileId)
{
    const QString id = applicationId(fileId);
    if (m_filterMode == AllowedOnly) {
        IdList allowlist = m_lists->allowlist();
        if (allowlist.contains(id)) {
            allowlist.removeAll(id);
        } else {
            allowlist.append(id);
        }
        m_lists->setAllowlist(allowlist.ids());
    } else if (m_filterMode == AutostartedOnly && !id.isEmpty() && m_lists->isValidUid()) {
        m_lists->setAutostart(id, !m_lists->autostartList().contains(id));
    }
}

void ApplicationsSettingsModel::selectAllApps()
{
    const QStringList ids = allIds();
    if (m_filterMode == AllowedOnly) {
        clearSelectedApps(); // the daemon hears of the empty list as well
    }
    applyPolicyRules(ids);
}

void ApplicationsSettingsModel::clearSelectedApps()
{
    applyPolicyRules({});
}

void ApplicationsSettingsModel::applyPolicyRules(const QStringList &apps)
{
    if (m_filterMode == AllowedOnly) {
        m_lists->setAllowlist(apps);
    } else if (m_filterMode == AutostartedOnly) {
        m_lists->applyAutostart(apps);
    }
}

QObject *ApplicationsSettingsModel::objectForPath(const QString &path) const
{
    for (ApplicationItem *item : m_items) {
        if (item->fileName() == path) {
            QQmlEngine::setObjectOwnership(item, QQmlEngine::CppOwnership);
            return item;
        }
    }
    return nullptr;
}

QString ApplicationsSettingsModel::firstObjectPath() const
{
    return m_items.isEmpty() ? QString() : m_items.first()->fileName();
}

void ApplicationsSettingsModel::getAllowedNotificationsConfig()
{
    m_notifications->fetchList([this](const auto &enabled) { replaceNotifications(enabled); });
}

void ApplicationsSettingsModel::setNotificationsEnabled(const QString &appID, bool enabled)
{
    m_notifications->setEnabled(appID, enabled, [this, appID, enabled] { storeNotifications(appID, enabled); });
}

void ApplicationsSettingsModel::rebuild()
{
    qDeleteAll(std::exchange(m_items, {}));
    m_lists->forget();
    const QStringList maskedList = m_maskedItem->value().toStringList();
    const QSet<QString> masked(maskedList.cbegin(), maskedList.cend());
    TreeItem *section = applicationsSection();
    const QVector<LauncherItem *> launcherItems = m_launcher->list(m_applications);
    for (LauncherItem *launcherItem : launcherItems) {
        if (isListed(*launcherItem, masked)) {
            addItem(new ApplicationItem(launcherItem, section, this));
        }
    }
}

void ApplicationsSettingsModel::updateSections()
{
    TreeItem *section = applicationsSection();
    QMap<int, QPointer<ApplicationItem>> changed;
    for (int row = 0; row < m_items.size(); ++row) {
        ApplicationItem *item = m_items.at(row);
        if (item->updateSection(section)) {
            changed.insert(row, item);
        }
    }
    if (m_resetting) {
        return; // all rows are read again
    }
    for (auto it = changed.cbegin(); it != changed.cend(); ++it) {
        if (it.value()) { // a handler may have reset or deleted the model
            notifyRow(it.key());
        }
    }
}

bool ApplicationsSettingsModel::isListed(const LauncherItem &item, const QSet<QString> &masked) const
{
    if (masked.contains(item.filePath())) {
        return false;
    }
    return item.fileID() != s_restrictedApplication || orvanta_access_control_hasgroup(uid(), "orvanta-system");
}

void ApplicationsSettingsModel::addItem(ApplicationItem *item)
{
    m_items.append(item);
    connect(item, &ApplicationItem::sandboxedChanged, this, [this, item] { notifyRow(m_items.indexOf(item)); });
}

void ApplicationsSettingsModel::notifyRow(int row)
{
    Q_EMIT dataChanged(index(row), index(row));
}

void ApplicationsSettingsModel::notifyAllRows()
{
    if (!m_items.isEmpty()) {
        Q_EMIT dataChanged(index(0), index(m_items.size() - 1));
    }
}

int ApplicationsSettingsModel::rowOfApplicationId(const QString &applicationId) const
{
    const auto hasId = [&](const ApplicationItem *item) { return item->dBusServiceName() == applicationId; };
    const auto *const item = std::find_if(m_items.cbegin(), m_items.cend(), hasId);
    return item == m_items.cend() ? -1 : int(item - m_items.cbegin());
}

QStringList ApplicationsSettingsModel::allIds() const
{
    QStringList ids;
    for (const ApplicationItem *item : m_items) {
        const QString id = applicationId(item->fileId());
        if (!id.isEmpty()) { // the launcher entry may be gone, and its row about to go
            ids.append(id);
        }
    }
    return ids;
}

void ApplicationsSettingsModel::replaceNotifications(const std::optional<QVariantMap> &enabled)
{
    if (!enabled) {
        m_notificationsEnabled.clear();
    } else {
        // What the service does not mention keeps its value.
        for (auto it = enabled->cbegin(); it != enabled->cend(); ++it) {
            m_notificationsEnabled.insert(it.key(), it.value().toBool());
        }
    }
    announceNotifications();
}

void ApplicationsSettingsModel::updateNotifications(const QString &applicationId, const QVariantMap &config)
{
    const QString key = QStringLiteral("enabled");
    if (config.contains(key) || rowOfApplicationId(applicationId) < 0) {
        storeNotifications(applicationId, config.value(key).toBool());
    } else {
        qCWarning(lcSettings) << Messages::UnknownConfig << config;
    }
}

void ApplicationsSettingsModel::storeNotifications(const QString &applicationId, bool enabled)
{
    const int row = rowOfApplicationId(applicationId);
    if (row < 0) {
        qCWarning(lcSettings).noquote() << QString::fromLatin1(Messages::NoApplication).arg(applicationId);
        return;
    }
    m_notificationsEnabled.insert(applicationId, enabled);
    const QPointer<ApplicationsSettingsModel> self(this);
    notifyRow(row);
    if (self) {
        announceNotifications();
    }
}

void ApplicationsSettingsModel::announceNotifications()
{
    const QPointer<ApplicationsSettingsModel> self(this);
    Q_EMIT allowedNotificationsChanged();
    if (self) {
        Q_EMIT selectedAppsChanged();
    }
}
