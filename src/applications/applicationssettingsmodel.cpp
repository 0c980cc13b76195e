// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications/applicationssettingsmodel.h"

#include "applications/allowlist.h"
#include "applications/alwaysallowedlist.h"
#include "applications/applicationitem.h"
#include "applications/applicationnotifications.h"
#include "applications/applicationrows.h"
#include "applications/autostartlist.h"
#include "applications/desktopfiles.h"
#include "applications/filewatcher.h"
#include "applications/launcherlisting.h"
#include "applications/sandboxingclient.h"
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
#include <initializer_list>

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

const ApplicationsSettingsModel::Roles &ApplicationsSettingsModel::roles()
{
    static const Roles roles{
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
             return QVariant(model.m_allowlist->contains(applicationId(item.fileId())));
         }},
        {AlwaysAllowedRole, "alwaysAllowed",
         [](const ApplicationsSettingsModel &model, const ApplicationItem &item) {
             return QVariant(model.m_alwaysAllowed->contains(applicationId(item.fileId())));
         }},
        {AutostartedRole, "autostarted",
         [](const ApplicationsSettingsModel &model, const ApplicationItem &item) {
             return QVariant(model.m_autostartList->contains(applicationId(item.fileId())));
         }},
        {ApplicationIdRole, "applicationId",
         [](const auto &, const ApplicationItem &item) { return QVariant(item.dBusServiceName()); }},
        {NotificationsEnabledRole, "notificationsEnabled",
         [](const ApplicationsSettingsModel &model, const ApplicationItem &item) {
             return QVariant(model.m_notifications->isEnabled(item.dBusServiceName()));
         }},
    };
    return roles;
}

ApplicationsSettingsModel::ApplicationsSettingsModel(QObject *parent)
    : QAbstractListModel(parent)
    , m_maskedItem(new MGConfItem(Constants::MaskedSettingsKey, this))
    , m_configWatcher(new FileWatcher(LauncherFolderModel::configFile(), this))
    , m_updateTimer(new QTimer(this))
    , m_launcher(new LauncherListing(this))
    , m_sandboxing(new SandboxingClient(this))
    , m_alwaysAllowed(new AlwaysAllowedList(m_sandboxing, this))
    , m_allowlist(new Allowlist(&m_user, m_sandboxing, m_alwaysAllowed, this))
    , m_autostartList(new AutostartList(&m_user, m_sandboxing, this))
    , m_rows(new ApplicationRows(this))
    , m_notifications(new ApplicationNotifications(m_rows, this))
    , m_changes(this, [this] { launcherModelReset(); })
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
    connect(m_allowlist, &Allowlist::listChanged, this, &Self::allowlistChanged);
    connect(m_allowlist, &Allowlist::enabledChanged, this, &Self::allowlistEnabledChanged);
    connect(m_autostartList, &AutostartList::listChanged, this, &Self::autostartListChanged);
    connect(m_autostartList, &AutostartList::enabledChanged, this, &Self::autostartEnabledChanged);
    connect(m_alwaysAllowed, &AlwaysAllowedList::listChanged, this, &Self::alwaysAllowedApplicationsChanged);
    const std::initializer_list<const ApplicationList *> lists{m_allowlist, m_autostartList, m_alwaysAllowed};
    for (const ApplicationList *list : lists) {
        connect(list, &ApplicationList::selectionChanged, this, &Self::selectedAppsChanged);
        connect(list, &ApplicationList::membersChanged, this, &Self::notifyAllRows);
    }
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
    const QPointer<ApplicationsSettingsModel> self(this);
    if (m_complete) {
        launcherModelReset();
    }
    if (self) {
        Q_EMIT applicationsChanged();
    }
}

int ApplicationsSettingsModel::count() const
{
    return rowCount({});
}

QStringList ApplicationsSettingsModel::selectedApps() const
{
    const Selection *current = selection();
    return current ? current->ids() : QStringList();
}

uint ApplicationsSettingsModel::uid() const
{
    return m_user.uid();
}

void ApplicationsSettingsModel::setUid(uint uid)
{
    if (uid != m_user.uid()) {
        m_user.setUid(uid);
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
    const QPointer<ApplicationsSettingsModel> self(this);
    Q_EMIT filterModeChanged();
    if (self) {
        launcherModelReset();
    }
}

bool ApplicationsSettingsModel::filterModeEnabled()
{
    Selection *current = selection();
    return current && current->isEnabled();
}

void ApplicationsSettingsModel::setFilterModeEnabled(bool enabled)
{
    if (Selection *current = selection()) {
        current->setEnabled(enabled);
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
    return item ? roles().read(role, *this, *item) : QVariant();
}

QHash<int, QByteArray> ApplicationsSettingsModel::roleNames() const
{
    return roles().names();
}

void ApplicationsSettingsModel::scheduleUpdate()
{
    m_updateTimer->start();
}

void ApplicationsSettingsModel::launcherModelReset()
{
    m_changes.run([this] { reset(); });
}

void ApplicationsSettingsModel::reset()
{
    const QPointer<ApplicationsSettingsModel> self(this);
    beginResetModel();
    if (!self) {
        return;
    }
    rebuild();
    if (Selection *current = selection()) {
        current->fetch();
    }
    Q_EMIT countChanged();
    if (self) {
        endResetModel();
    }
}

Selection *ApplicationsSettingsModel::selection() const
{
    switch (m_filterMode) {
    case AllowedOnly:
        return m_allowlist;
    case AutostartedOnly:
        return m_autostartList;
    default:
        return nullptr;
    }
}

QString ApplicationsSettingsModel::iconOf(const QString &desktopFile) const
{
    const ApplicationItem *item = m_rows->itemOfDesktopFile(desktopFile);
    return item ? item->iconId() : QString();
}

void ApplicationsSettingsModel::toggleSelectedApp(const QString &fileId)
{
    if (Selection *current = selection()) {
        current->toggle(applicationId(fileId));
    }
}

void ApplicationsSettingsModel::selectAllApps()
{
    if (Selection *current = selection()) {
        current->selectAll(allIds());
    }
}

void ApplicationsSettingsModel::clearSelectedApps()
{
    applyPolicyRules({});
}

void ApplicationsSettingsModel::applyPolicyRules(const QStringList &apps)
{
    if (Selection *current = selection()) {
        current->apply(apps);
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
    m_allowlist->forget();
    m_autostartList->forget();
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
    notifyRows(row, row);
}

void ApplicationsSettingsModel::notifyAllRows()
{
    if (count() > 0) {
        notifyRows(0, count() - 1);
    }
}

void ApplicationsSettingsModel::notifyRows(int first, int last)
{
    if (!m_changes.isRunning()) { // at the end of a reset all rows are read again
        Q_EMIT dataChanged(index(first), index(last));
    }
}

QStringList ApplicationsSettingsModel::allIds() const
{
    QStringList ids;
    for (const ApplicationItem *item : m_rows->items()) {
        const QString id = applicationId(item->fileId());
        if (!id.isEmpty()) { // empty if the launcher entry was deleted, and its row not yet
            ids.append(id);
        }
    }
    return ids;
}
