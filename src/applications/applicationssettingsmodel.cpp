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

template<auto Getter>
QVariant ApplicationsSettingsModel::valueOf(const ApplicationsSettingsModel &model, const ApplicationItem &item)
{
    Q_UNUSED(model)
    return (item.*Getter)();
}

template<auto List>
QVariant ApplicationsSettingsModel::isIn(const ApplicationsSettingsModel &model, const ApplicationItem &item)
{
    return (model.*List)->contains(applicationId(item.fileId()));
}

QVariant ApplicationsSettingsModel::mayNotify(const ApplicationsSettingsModel &model, const ApplicationItem &item)
{
    return model.m_notifications->isEnabled(item.dBusServiceName());
}

const ApplicationsSettingsModel::Roles &ApplicationsSettingsModel::roles()
{
    using Self = ApplicationsSettingsModel;
    static const Roles roles{
        {SectionRole, "section", valueOf<&ApplicationItem::section>},
        {IconIdRole, "iconId", valueOf<&ApplicationItem::iconId>},
        {IconModeRole, "iconMode", valueOf<&ApplicationItem::iconMode>},
        {NameRole, "name", valueOf<&ApplicationItem::name>},
        {FilePathRole, "filePath", valueOf<&ApplicationItem::fileName>},
        {SandboxedRole, "sandboxed", valueOf<&ApplicationItem::sandboxed>},
        {FileIdRole, "fileId", valueOf<&ApplicationItem::fileId>},
        {AllowedRole, "allowed", isIn<&Self::m_allowlist>},
        {AlwaysAllowedRole, "alwaysAllowed", isIn<&Self::m_alwaysAllowed>},
        {AutostartedRole, "autostarted", isIn<&Self::m_autostartList>},
        {ApplicationIdRole, "applicationId", valueOf<&ApplicationItem::dBusServiceName>},
        {NotificationsEnabledRole, "notificationsEnabled", mayNotify},
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
    followSources();
    forwardSignals();
}

ApplicationsSettingsModel::~ApplicationsSettingsModel() = default;

/// Connects what the rows are made of.
void ApplicationsSettingsModel::followSources()
{
    using Self = ApplicationsSettingsModel;
    connect(m_maskedItem, &MGConfItem::valueChanged, this, &Self::scheduleUpdate);
    connect(PluginRegistry::instance(), &PluginRegistry::contentChanged, this, &Self::updateSections);
    connect(m_launcher, &LauncherListing::changed, this, &Self::scheduleUpdate);
    connect(m_launcher, &LauncherListing::reset, this, &Self::launcherModelReset);
    connect(m_updateTimer, &QTimer::timeout, this, &Self::launcherModelReset);
}

/// Connects the changes of the lists and of the notifications.
void ApplicationsSettingsModel::forwardSignals()
{
    using Self = ApplicationsSettingsModel;
    using Notifications = ApplicationNotifications;
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
    connect(m_notifications, &Notifications::rowChanged, this, &Self::notifyRow);
    connect(m_notifications, &Notifications::changed, this, &Self::allowedNotificationsChanged);
    connect(m_notifications, &Notifications::changed, this, &Self::selectedAppsChanged);
}

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
    if (uid() == 0) { // with any other user the launcher's order is not followed
        moveConfigWatcher(m_applications, launcher);
    }
    m_applications = launcher;
    const QPointer<ApplicationsSettingsModel> self(this);
    if (m_complete) {
        launcherModelReset();
    }
    if (self) {
        Q_EMIT applicationsChanged();
    }
}

void ApplicationsSettingsModel::moveConfigWatcher(LauncherFolderModel *from, LauncherFolderModel *to)
{
    if (from) {
        disconnect(m_configWatcher, &FileWatcher::fileChanged, from, &LauncherFolderModel::load);
    }
    if (to) {
        connect(m_configWatcher, &FileWatcher::fileChanged, to, &LauncherFolderModel::load);
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
    const QMap<int, QPointer<ApplicationItem>> changed = rowsWithOtherSection();
    for (auto it = changed.cbegin(); it != changed.cend(); ++it) {
        if (it.value()) { // a handler may have reset or deleted the model
            notifyRow(it.key());
        }
    }
}

/// Lets each item look up its section. Returns those for which that is another one than before.
QMap<int, QPointer<ApplicationItem>> ApplicationsSettingsModel::rowsWithOtherSection()
{
    TreeItem *section = applicationsSection();
    QMap<int, QPointer<ApplicationItem>> changed;
    for (int row = 0; row < count(); ++row) {
        ApplicationItem *item = m_rows->items().at(row);
        if (item->updateSection(section)) {
            changed.insert(row, item);
        }
    }
    return changed;
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

#include "moc_applicationssettingsmodel.cpp"
