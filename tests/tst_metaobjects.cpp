// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "actions/quickactionreader.h"
#include "applications/applicationitem.h"
#include "applications/applicationssettingsmodel.h"
#include "models/favoritesmodel.h"
#include "models/settingscontrolerror.h"
#include "models/settingsmodel.h"
#include "models/userapplicationsfiltermodel.h"
#include "notificationsconfigproxy.h"
#include "registry/pluginregistry.h"
#include "registry/treeitem.h"
#include "toolkit/addressrequests.h"
#include "toolkit/entryaction.h"
#include "toolkit/entrypagecontent.h"
#include "toolkit/platformservices.h"
#include "toolkit/settingsentry.h"
#include "toolkit/settingsnavigation.h"
#include "toolkit/stablelistmodel.h"

#include <QMetaEnum>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QTest>

#include <initializer_list>

Q_DECLARE_METATYPE(const QMetaObject *)

namespace
{
/// Returns a text such as "enum Color Red=0 Green=1".
QByteArray declarationOf(const QMetaEnum &enumeration)
{
    QByteArray declaration = QByteArray(enumeration.isFlag() ? "flag " : "enum ") + enumeration.name();
    for (int i = 0; i < enumeration.keyCount(); ++i) {
        declaration += QByteArray(" ") + enumeration.key(i) + '=' + QByteArray::number(enumeration.value(i));
    }
    return declaration;
}

/// Returns a text such as "property int width READ WRITE NOTIFY widthChanged".
QByteArray declarationOf(const QMetaProperty &property)
{
    QByteArray declaration = QByteArray("property ") + property.typeName() + ' ' + property.name();
    declaration += property.isReadable() ? " READ" : "";
    declaration += property.isWritable() ? " WRITE" : "";
    declaration += property.hasNotifySignal() ? " NOTIFY " + property.notifySignal().name() : QByteArray();
    return declaration;
}

QByteArray kindOf(const QMetaMethod &method)
{
    switch (method.methodType()) {
    case QMetaMethod::Signal:
        return "signal";
    case QMetaMethod::Slot:
        return method.access() == QMetaMethod::Private ? "private slot" : "slot";
    default:
        return "method";
    }
}

/// Returns a text such as "slot void resize(int width, int height)".
QByteArray declarationOf(const QMetaMethod &method)
{
    const QByteArrayList types = method.parameterTypes();
    const QByteArrayList names = method.parameterNames();
    QByteArrayList parameters;
    for (int i = 0; i < types.size(); ++i) {
        parameters.append(types.at(i) + ' ' + names.at(i));
    }
    return kindOf(method) + ' ' + method.typeName() + ' ' + method.name() + '(' + parameters.join(", ") + ')';
}

/// Returns the members that the class adds to those of its base class, in the order of the meta-object.
QStringList membersOf(const QMetaObject &meta)
{
    QStringList members;
    for (int i = meta.enumeratorOffset(); i < meta.enumeratorCount(); ++i) {
        members.append(QString::fromLatin1(declarationOf(meta.enumerator(i))));
    }
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
        members.append(QString::fromLatin1(declarationOf(meta.property(i))));
    }
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        members.append(QString::fromLatin1(declarationOf(meta.method(i))));
    }
    return members;
}

void addRow(const char *className, const QMetaObject &meta, std::initializer_list<const char *> members)
{
    QStringList texts;
    for (const char *member : members) {
        texts.append(QString::fromLatin1(member));
    }
    QTest::newRow(className) << &meta << texts;
}
}

/// Compares the members that each class shows to QML and tools, in the order of its meta-object.
class MetaObjectsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void members_data();
    void members();
};

void MetaObjectsTest::members_data()
{
    QTest::addColumn<const QMetaObject *>("meta");
    QTest::addColumn<QStringList>("members");

    addRow("SettingsModel", SettingsModel::staticMetaObject,
           {
               "property QStringList path READ WRITE NOTIFY modelChanged",
               "property int depth READ WRITE NOTIFY modelChanged",
               "property int count READ NOTIFY countChanged",
               "signal void modelChanged()",
               "signal void countChanged()",
               "slot void setPath(QStringList path)",
               "slot void setDepth(int depth)",
               "private slot void updateItems()",
               "private slot void removeDestroyedItem()",
               "method QObject* objectAt(int index)",
               "method QObject* objectForPath(QString path)",
           });
    addRow("FavoritesModel", FavoritesModel::staticMetaObject,
           {
               "property int count READ NOTIFY countChanged",
               "property QStringList filter READ WRITE NOTIFY filterChanged",
               "property bool showPotential READ WRITE NOTIFY showPotentialChanged",
               "property QStringList path READ WRITE NOTIFY pathChanged",
               "property QString key READ WRITE NOTIFY keyChanged",
               "property QString userModifiedKey READ WRITE NOTIFY userModifiedKeyChanged",
               "property bool userModified READ NOTIFY userModifiedChanged",
               "signal void countChanged()",
               "signal void filterChanged()",
               "signal void showPotentialChanged()",
               "signal void pathChanged()",
               "signal void keyChanged()",
               "signal void userModifiedKeyChanged()",
               "signal void userModifiedChanged()",
               "slot bool isFavorite(QString path)",
               "slot void addFavorite(QString path)",
               "slot void removeFavorite(QString path)",
               "slot int indexOf(QString path)",
               "slot void move(int index, int newIndex)",
               "slot void triggerAction(int index)",
               "slot QVariantMap get(int index)",
               "private slot void updateItems(bool notifyChanges)",
               "private slot void addItem(TreeItem* item, bool notifyChanges)",
               "private slot void removeItem(int index, bool notifyChanges)",
               "private slot void removeDestroyedItem()",
               "private slot void favoritesUpdated()",
               "private slot void resetModel()",
           });
    addRow("ApplicationsSettingsModel", ApplicationsSettingsModel::staticMetaObject,
           {
               "enum ApplicationRoles SectionRole=257 IconIdRole=258 IconModeRole=259 "
               "NameRole=260 FilePathRole=261 SandboxedRole=262 FileIdRole=263 AllowedRole=264 "
               "AlwaysAllowedRole=265 AutostartedRole=266 ApplicationIdRole=267 "
               "NotificationsEnabledRole=268",
               "enum ApplicationsFilterModeTypes AllowedOnly=0 AutostartedOnly=1",
               "property QObject* applications READ WRITE NOTIFY applicationsChanged",
               "property int count READ NOTIFY countChanged",
               "property QStringList selectedApps READ NOTIFY selectedAppsChanged",
               "property uint uid READ WRITE NOTIFY uidChanged",
               "property int filterMode READ WRITE NOTIFY filterModeChanged",
               "property bool filterModeEnabled READ WRITE NOTIFY filterModeEnabledChanged",
               "signal void applicationsChanged()",
               "signal void countChanged()",
               "signal void uidChanged()",
               "signal void allowlistEnabledChanged()",
               "signal void autostartEnabledChanged()",
               "signal void allowlistChanged()",
               "signal void autostartListChanged()",
               "signal void alwaysAllowedApplicationsChanged()",
               "signal void filterModeEnabledChanged()",
               "signal void filterModeChanged()",
               "signal void selectedAppsChanged()",
               "signal void allowedNotificationsChanged()",
               "private slot void scheduleUpdate()",
               "private slot void launcherModelReset()",
               "method QString iconOf(QString desktopFile)",
               "method void toggleSelectedApp(QString fileId)",
               "method void selectAllApps()",
               "method void clearSelectedApps()",
               "method void applyPolicyRules(QStringList apps)",
               "method QObject* objectForPath(QString path)",
               "method QString firstObjectPath()",
               "method void getAllowedNotificationsConfig()",
               "method void setNotificationsEnabled(QString appID, bool enabled)",
           });
    addRow("UserApplicationsFilterModel", UserApplicationsFilterModel::staticMetaObject,
           {
               "property int count READ NOTIFY countChanged",
               "property int filter READ WRITE NOTIFY filterChanged",
               "signal void countChanged()",
               "signal void filterChanged()",
           });
    addRow("SettingsControlError", SettingsControlError::staticMetaObject,
           {
               "enum ErrorType NoError=0 InProgress=1 BlockedByAccessPolicy=2 "
               "BlockedByFlightMode=3 NotConnected=4 ConnectionFailed=5 "
               "ConnectionSetupRequired=6 NoSimAvailable=7 NoSimActive=8 UnknownError=1000",
           });
    addRow("TreeItem", TreeItem::staticMetaObject,
           {
               "property QString name READ",
               "property QString type READ",
               "property QString title READ",
               "property QString shortTitle READ",
               "property QString icon READ",
               "property QString controlIcon READ",
               "method int count(int depth)",
               "method int count()",
               "method QStringList location(TreeItem* top)",
               "method QStringList location()",
               "method QVariantMap data()",
           });
    addRow("ApplicationItem", ApplicationItem::staticMetaObject,
           {
               "property QVariant section READ",
               "property QString iconId READ",
               "property QString iconMode READ",
               "property QString name READ",
               "property QString fileName READ",
               "property QString fileId READ",
               "property bool isValid READ",
               "property bool sandboxed READ NOTIFY sandboxedChanged",
               "signal void sandboxedChanged()",
           });
    addRow("QuickActionReader", QuickActionReader::staticMetaObject,
           {
               "private slot void triggerActionError(QDBusError error, QDBusMessage msg)",
           });
    addRow("PluginRegistry", PluginRegistry::staticMetaObject,
           {
               "signal void contentChanged()",
               "private slot void monitoredDirectoryChanged()",
               "private slot void maskedSettingsChanged()",
           });
    addRow("AddressRequests", AddressRequests::staticMetaObject,
           {
               "property QString service READ WRITE NOTIFY serviceChanged",
               "property bool active READ WRITE NOTIFY activeChanged",
               "property bool owned READ NOTIFY ownedChanged",
               "signal void openRequested(QString path, QString activationToken)",
               "signal void activateRequested(QString activationToken)",
               "signal void serviceChanged()",
               "signal void activeChanged()",
               "signal void ownedChanged()",
           });
    addRow("EntryAction", EntryAction::staticMetaObject,
           {
               "enum State Idle=0 Running=1 Succeeded=2 Failed=3",
               "property SettingsEntry* entry READ WRITE NOTIFY entryChanged",
               "property State state READ NOTIFY stateChanged",
               "property QString errorName READ NOTIFY errorChanged",
               "property QString errorString READ NOTIFY errorChanged",
               "property QString requiredPackage READ NOTIFY requiredPackageChanged",
               "signal void entryChanged()",
               "signal void stateChanged()",
               "signal void errorChanged()",
               "signal void requiredPackageChanged()",
               "method void run()",
           });
    addRow("PlatformService", PlatformService::staticMetaObject,
           {
               "enum State Unknown=0 Working=1 Silent=2 Failing=3 Absent=4",
               "property State state READ NOTIFY changed",
               "property QString errorName READ NOTIFY changed",
               "property QString errorString READ NOTIFY changed",
               "signal void changed()",
           });
    addRow("PlatformServices", PlatformServices::staticMetaObject,
           {
               "property PlatformService* sandboxing READ",
               "property PlatformService* autostart READ",
               "property PlatformService* notifications READ",
           });
    addRow("SettingsEntry", SettingsEntry::staticMetaObject,
           {
               "property QString path READ WRITE NOTIFY pathChanged",
               "property bool exists READ NOTIFY existsChanged",
               "property QString title READ NOTIFY titleChanged",
               "property QString shortTitle READ NOTIFY shortTitleChanged",
               "property QString icon READ NOTIFY iconChanged",
               "property QString controlIcon READ NOTIFY controlIconChanged",
               "property QString type READ NOTIFY typeChanged",
               "property QVariantMap params READ NOTIFY paramsChanged",
               "property QVariantMap data READ NOTIFY dataChanged",
               "property QString file READ NOTIFY fileChanged",
               "property QVariantList breadcrumb READ NOTIFY breadcrumbChanged",
               "property QString parentPath READ NOTIFY parentPathChanged",
               "property int childCount READ NOTIFY childCountChanged",
               "property bool favorite READ WRITE NOTIFY favoriteChanged",
               "property QString favoritesKey READ WRITE NOTIFY favoritesKeyChanged",
               "property QString userModifiedKey READ WRITE NOTIFY userModifiedKeyChanged",
               "signal void pathChanged()",
               "signal void existsChanged()",
               "signal void titleChanged()",
               "signal void shortTitleChanged()",
               "signal void iconChanged()",
               "signal void controlIconChanged()",
               "signal void typeChanged()",
               "signal void paramsChanged()",
               "signal void dataChanged()",
               "signal void fileChanged()",
               "signal void breadcrumbChanged()",
               "signal void parentPathChanged()",
               "signal void childCountChanged()",
               "signal void favoriteChanged()",
               "signal void favoritesKeyChanged()",
               "signal void userModifiedKeyChanged()",
           });
    addRow("EntryPageContent", EntryPageContent::staticMetaObject,
           {
               "enum Status Null=0 Loading=1 Ready=2 Error=3 Gone=4",
               "property QSizeF size READ WRITE NOTIFY sizeChanged",
               "property QString path READ WRITE NOTIFY pathChanged",
               "property SettingsEntry* entry READ",
               "property Status status READ NOTIFY statusChanged",
               "property QObject* item READ NOTIFY itemChanged",
               "property QVariantList errors READ NOTIFY errorsChanged",
               "signal void sizeChanged()",
               "signal void pathChanged()",
               "signal void statusChanged()",
               "signal void itemChanged()",
               "signal void errorsChanged()",
           });
    addRow("SettingsNavigation", SettingsNavigation::staticMetaObject,
           {
               "property QString root READ WRITE NOTIFY rootChanged",
               "property QStringList pageTypes READ WRITE NOTIFY pageTypesChanged",
               "property QStringList paths READ NOTIFY pathsChanged",
               "property QString current READ NOTIFY currentChanged",
               "property bool canGoBack READ NOTIFY canGoBackChanged",
               "property QString row READ NOTIFY rowChanged",
               "property QString state READ WRITE NOTIFY stateChanged",
               "signal void rootChanged()",
               "signal void pageTypesChanged()",
               "signal void pathsChanged()",
               "signal void currentChanged()",
               "signal void canGoBackChanged()",
               "signal void rowChanged()",
               "signal void stateChanged()",
               "signal void rowRequested(QString row)",
               "signal void closed(QString path)",
               "method bool open(QString path)",
               "method bool openFrom(QString page, QString path)",
               "method bool back()",
           });
    addRow("StableListModel", StableListModel::staticMetaObject,
           {
               "property QAbstractItemModel* sourceModel READ WRITE NOTIFY sourceModelChanged",
               "property QString keyRole READ WRITE NOTIFY keyRoleChanged",
               "property int count READ NOTIFY countChanged",
               "signal void sourceModelChanged()",
               "signal void keyRoleChanged()",
               "signal void countChanged()",
           });
    addRow("ComKeloNotificationsConfigProxy", ComKeloNotificationsConfigProxy::staticMetaObject,
           {
               "signal void configChanged(QString appId, QVariantMap config)",
               "slot QDBusPendingReply<QVariantMap> getConfig(QString appId)",
               "slot QDBusPendingReply<QVariantMap> getList()",
               "slot QDBusPendingReply<> setEnabled(QString appid, bool enable)",
           });
}

void MetaObjectsTest::members()
{
    QFETCH(const QMetaObject *, meta);
    QCOMPARE(meta->className(), QTest::currentDataTag());
    QTEST(membersOf(*meta), "members");
}

QTEST_APPLESS_MAIN(MetaObjectsTest)
#include "tst_metaobjects.moc"
