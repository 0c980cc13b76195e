// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "applications/applicationsuser.h"
#include "common/roletable.h"
#include "common/rowchanges.h"

#include <QAbstractListModel>
#include <QMap>
#include <QPointer>
#include <QQmlParserStatus>
#include <QSet>
#include <QStringList>

class Allowlist;
class AlwaysAllowedList;
class ApplicationItem;
class ApplicationNotifications;
class ApplicationRows;
class AutostartList;
class FileWatcher;
class LauncherFolderModel;
class LauncherItem;
class LauncherListing;
class MGConfItem;
class QTimer;
class SandboxingClient;
class Selection;

/**
 * The installed applications in the launcher's order, joined with what the platform's services keep for one user:
 * allow-list and permissions (sandboxing daemon), autostart, and notifications.
 *
 * Applications whose desktop file's path is in the dconf key /apps/velka-settings/maskedSettings are left out. The
 * list is rebuilt, with new items, 1000 ms after the last change of the launcher or of that key, and at once when the
 * launcher resets or "filterMode" changes. A change of the registry's content changes the sections of the rows and
 * nothing else. A fetch that fails is logged to "org.orvantaos.settings.framework".
 *
 * The selection that QML edits is the allow-list or the autostart list, as "filterMode" says. Reading
 * "filterModeEnabled" of the allow-list and switching autostart wait for the sandboxing daemon.
 */
class ApplicationsSettingsModel : public QAbstractListModel, public QQmlParserStatus
{
    Q_OBJECT
    Q_INTERFACES(QQmlParserStatus)
    /// The launcher's model, a LauncherFolderModel. componentComplete() creates one if there is none.
    Q_PROPERTY(QObject *applications READ applications WRITE setApplications NOTIFY applicationsChanged)
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    Q_PROPERTY(QStringList selectedApps READ selectedApps NOTIFY selectedAppsChanged)
    /// The user whose lists these are: the effective one unless set. Lists of the user 0 are not fetched.
    Q_PROPERTY(uint uid READ uid WRITE setUid NOTIFY uidChanged)
    Q_PROPERTY(int filterMode READ filterMode WRITE setFilterMode NOTIFY filterModeChanged)
    /// True when the user is restricted to what the list of filterMode holds.
    Q_PROPERTY(
        bool filterModeEnabled READ filterModeEnabled WRITE setFilterModeEnabled NOTIFY filterModeEnabledChanged)

public:
    enum ApplicationRoles {
        SectionRole = Qt::UserRole + 1, ///< QVariant, the TreeItem of its settings page, invalid without one
        IconIdRole, ///< QString
        IconModeRole, ///< QString, "IconMode" of the desktop file's group "X-Zephra-Application"
        NameRole, ///< QString
        FilePathRole, ///< QString, the desktop file
        SandboxedRole, ///< bool
        FileIdRole, ///< QString, the desktop file id
        AllowedRole, ///< bool, on the user's allow-list
        AlwaysAllowedRole, ///< bool
        AutostartedRole, ///< bool
        ApplicationIdRole, ///< QString, the D-Bus service name
        NotificationsEnabledRole, ///< bool, true until the service has sent another value
    };
    Q_ENUM(ApplicationRoles)

    enum ApplicationsFilterModeTypes {
        AllowedOnly = 0, ///< the selection is the allow-list
        AutostartedOnly = 1, ///< the selection is the autostart list
    };
    Q_ENUM(ApplicationsFilterModeTypes)

    explicit ApplicationsSettingsModel(QObject *parent = nullptr);
    ~ApplicationsSettingsModel() override;

    QObject *applications() const;
    void setApplications(QObject *applications);
    int count() const;
    QStringList selectedApps() const;
    uint uid() const;
    void setUid(uint uid);
    int filterMode() const;
    void setFilterMode(int mode);
    bool filterModeEnabled();
    void setFilterModeEnabled(bool enabled);

    void classBegin() override;
    void componentComplete() override;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void applicationsChanged();
    void countChanged();
    void uidChanged();
    void allowlistEnabledChanged();
    void autostartEnabledChanged();
    void allowlistChanged();
    void autostartListChanged();
    void alwaysAllowedApplicationsChanged();
    void filterModeEnabledChanged();
    void filterModeChanged();
    void selectedAppsChanged();
    void allowedNotificationsChanged();

private Q_SLOTS:
    void scheduleUpdate();
    void launcherModelReset();

public:
    /// The icon of the application whose desktop file has this name, empty when there is none.
    Q_INVOKABLE QString iconOf(const QString &desktopFile) const;
    Q_INVOKABLE void toggleSelectedApp(const QString &fileId);
    Q_INVOKABLE void selectAllApps();
    Q_INVOKABLE void clearSelectedApps();
    Q_INVOKABLE void applyPolicyRules(const QStringList &apps); ///< makes these ids the selection
    /// Returns the ApplicationItem for a desktop file's path, null if there is none. Valid until the next model reset.
    Q_INVOKABLE QObject *objectForPath(const QString &path) const;
    Q_INVOKABLE QString firstObjectPath() const;
    Q_INVOKABLE void getAllowedNotificationsConfig(); ///< fetches it for all applications
    Q_INVOKABLE void setNotificationsEnabled(const QString &appID, bool enabled);

private:
    using Roles = RoleTable<ApplicationsSettingsModel, const ApplicationItem>;

    template<auto Getter>
    static QVariant valueOf(const ApplicationsSettingsModel &model, const ApplicationItem &item);
    template<auto List>
    static QVariant isIn(const ApplicationsSettingsModel &model, const ApplicationItem &item);
    static QVariant mayNotify(const ApplicationsSettingsModel &model, const ApplicationItem &item);
    static const Roles &roles();

    void followSources();
    void forwardSignals();
    void moveConfigWatcher(LauncherFolderModel *from, LauncherFolderModel *to);
    void reset();
    void rebuild();
    void updateSections();
    QMap<int, QPointer<ApplicationItem>> rowsWithOtherSection();
    Selection *selection() const;
    bool isListed(const LauncherItem &item, const QSet<QString> &masked) const;
    void addItem(ApplicationItem *item);
    void notifyRow(int row);
    void notifyAllRows();
    void notifyRows(int first, int last);
    QStringList allIds() const;

    QPointer<LauncherFolderModel> m_applications;
    MGConfItem *const m_maskedItem;
    FileWatcher *const m_configWatcher;
    QTimer *const m_updateTimer;
    LauncherListing *const m_launcher;
    SandboxingClient *const m_sandboxing;
    AlwaysAllowedList *const m_alwaysAllowed;
    Allowlist *const m_allowlist;
    AutostartList *const m_autostartList;
    ApplicationRows *const m_rows;
    ApplicationNotifications *const m_notifications;
    ApplicationsUser m_user;
    RowChanges m_changes;
    bool m_complete = false;
    int m_filterMode = -1;
};
