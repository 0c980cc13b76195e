// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications/applicationssettingsmodel.h"

#include "applications/applicationitem.h"
#include "applications/applicationnotifications.h"
#include "applications/applicationrows.h"
#include "applications/desktopfiles.h"
#include "applications/filewatcher.h"
#include "applications/launcherlisting.h"
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

#include <QMap>
#include <QQmlEngine>
#include <QTimer>

#include <chrono>

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
         return QVariant(model.m_notifications->isEnabled(item.dBusServiceName()));
     }},
};

ApplicationsSettingsModel::ApplicationsSettingsModel(QObject *parent)
    : QAbstractListModel(parent)
    , m_maskedItem(new MGConfItem(Constants::MaskedSettingsKey, this))
    , m_configWatcher(new FileWatcher(LauncherFolderModel::configFile(), this))
    , m_updateTimer(new QTimer(this))
    , m_launcher(new LauncherListing(this))
    , m_lists(new UserApplicationLists(this))
    , m_rows(new ApplicationRows(this))
    , m_notifications(new ApplicationNotifications(m_rows, this))
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
    using Notifications = ApplicationNotifications;
    connect(m_notifications, &Notifications::rowChanged, this, &Self::notifyRow);
    connect(m_notifications, &Notifications::changed, this, &Self::allowedNotificationsChanged);
    connect(m_notifications, &Notifications::changed, this, &Self::selectedAppsChanged);
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
    return m_rows->items().size();
}

QVariant ApplicationsSettingsModel::data(const QModelIndex &index, int role) const
{
    const ApplicationItem *item = m_rows->items().value(index.row());
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
    const ApplicationItem *item = m_rows->itemOfDesktopFile(desktopFile);
    return item ? item->iconId() : QString();
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
    for (ApplicationItem *item : m_rows->items()) {
        if (item->fileName() == path) {
            QQmlEngine::setObjectOwnership(item, QQmlEngine::CppOwnership);
            return item;
        }
    }
    return nullptr;
}

QString ApplicationsSettingsModel::firstObjectPath() const
{
    const ApplicationItem *first = m_rows->items().value(0);
    return first ? first->fileName() : QString();
}

void ApplicationsSettingsModel::getAllowedNotificationsConfig()
{
    m_notifications->fetch();
}

void ApplicationsSettingsModel::setNotificationsEnabled(const QString &appID, bool enabled)
{
    m_notifications->setEnabled(appID, enabled);
}

void ApplicationsSettingsModel::rebuild()
{
    qDeleteAll(m_rows->takeAll());
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
    for (int row = 0; row < count(); ++row) {
        ApplicationItem *item = m_rows->items().at(row);
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
    const int row = count();
    m_rows->append(item);
    connect(item, &ApplicationItem::sandboxedChanged, this, [this, row] { notifyRow(row); });
}

void ApplicationsSettingsModel::notifyRow(int row)
{
    Q_EMIT dataChanged(index(row), index(row));
}

void ApplicationsSettingsModel::notifyAllRows()
{
    if (count() > 0) {
        Q_EMIT dataChanged(index(0), index(count() - 1));
    }
}

QStringList ApplicationsSettingsModel::allIds() const
{
    QStringList ids;
    for (const ApplicationItem *item : m_rows->items()) {
        const QString id = applicationId(item->fileId());
        if (!id.isEmpty()) { // the launcher entry may be gone, and its row about to go
            ids.append(id);
        }
    }
    return ids;
}
