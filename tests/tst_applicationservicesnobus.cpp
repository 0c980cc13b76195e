// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications.h"
#include "applicationservices.h"
#include "registry/pluginregistry.h"
#include "text.h"
#include "world.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QElapsedTimer>
#include <QTest>

using Model = ApplicationsSettingsModel;

/// The applications model without buses.
class ApplicationServicesNoBusTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void listsApplications();
    void allowlist();
    void autostart();
    void notifications();
    void logsFailedFetches_data();
    void logsFailedFetches();
    void changedAllowlistIsAnnounced();
    void diesInTheMiddle();

private:
    void complete(Model *model);

    Applications m_applications;
};

namespace
{
const QStringList s_none;
}

void ApplicationServicesNoBusTest::initTestCase()
{
    QVERIFY(!QDBusConnection::sessionBus().isConnected());
    QVERIFY(!QDBusConnection::systemBus().isConnected());
    World::writeEntries(text("x.json"), R"({"entries": [{"path": "applications"}]})");
    World::rescan(PluginRegistry::instance());
    m_applications.write("first/a.desktop",
                         application("A", "X-DBus-ServiceName=com.example.a\n[X-Application]\nPermissions=A\n"));
    m_applications.write("first/b.desktop", application("B"));
}

void ApplicationServicesNoBusTest::complete(Model *model)
{
    model->setUid(1000);
    model->componentComplete();
}

void ApplicationServicesNoBusTest::listsApplications()
{
    const MessageLog log;
    Model model;
    complete(&model);
    QCOMPARE(model.count(), 2);
    QCOMPARE(model.index(0).data(Model::NameRole).toString(), text("A"));
    QCOMPARE(model.index(0).data(Model::NotificationsEnabledRole), QVariant(true));
    QCOMPARE(log.take(), s_none);
}

void ApplicationServicesNoBusTest::allowlist()
{
    Model model;
    complete(&model);
    QElapsedTimer timer;
    timer.start();
    model.setFilterMode(Model::AllowedOnly);
    QVERIFY(!model.filterModeEnabled());
    model.setFilterModeEnabled(true);
    model.toggleSelectedApp(text("a.desktop"));
    QCoreApplication::processEvents();
    model.setFilterModeEnabled(false);
    model.selectAllApps();
    model.clearSelectedApps();
    model.applyPolicyRules(texts({"a", "x"}));
    QCOMPARE(model.selectedApps(), texts({"a", "x"}));
    QCOMPARE(model.index(0).data(Model::AllowedRole), QVariant(true));
    QVERIFY(!model.filterModeEnabled());
    QCoreApplication::processEvents();
    QVERIFY(timer.elapsed() < NoTime);
}

void ApplicationServicesNoBusTest::autostart()
{
    Model model;
    complete(&model);
    QElapsedTimer timer;
    timer.start();
    model.setFilterMode(Model::AutostartedOnly);
    QCoreApplication::processEvents();
    const MessageLog log;
    model.toggleSelectedApp(text("a.desktop"));
    QCOMPARE(log.take(),
             QStringList(warning(text("Couldn't get app info from tarnholdd:  QDBusError(\"org.freedesktop.DBus."
                                      "Error.Disconnected\", \"Not connected to D-Bus server\")"))));
    QVERIFY(!model.filterModeEnabled());
    model.setFilterModeEnabled(true);
    model.selectAllApps();
    model.clearSelectedApps();
    model.applyPolicyRules(texts({"a", "enabledMode"}));
    QCoreApplication::processEvents();
    QCOMPARE(model.selectedApps(), s_none);
    QVERIFY(!model.filterModeEnabled());
    QVERIFY(timer.elapsed() < NoTime);
}

void ApplicationServicesNoBusTest::notifications()
{
    Model model;
    complete(&model);
    QElapsedTimer timer;
    timer.start();
    model.getAllowedNotificationsConfig();
    model.setNotificationsEnabled(text("com.example.a"), false);
    model.setNotificationsEnabled(text("com.example.x"), false);
    QCoreApplication::processEvents();
    QCOMPARE(model.index(0).data(Model::NotificationsEnabledRole), QVariant(true));
    QVERIFY(timer.elapsed() < NoTime);
}

void ApplicationServicesNoBusTest::logsFailedFetches_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("message");
    QTest::newRow("allow-list") << int(Model::AllowedOnly) << text("Failed to get allowlist for uid 1000. Error:");
    QTest::newRow("autostart list") << int(Model::AutostartedOnly)
                                    << text("Failed to get autostart list for uid 1000. Error:");
    QTest::newRow("notifications") << NoMode << text("Failed to get notifications configs list. Error:");
}

void ApplicationServicesNoBusTest::logsFailedFetches()
{
    QFETCH(int, mode);
    QFETCH(QString, message);
    Model model;
    complete(&model);
    const MessageLog log;
    model.setFilterMode(mode);
    if (mode == NoMode) {
        model.getAllowedNotificationsConfig();
    }
    QString messages;
    QTRY_VERIFY_WITH_TIMEOUT((messages += log.take().join(QLatin1Char('\n'))).startsWith(warning(message)), 500);
    QVERIFY2(messages.contains(text("Not connected to D-Bus server")), qPrintable(messages));
}

void ApplicationServicesNoBusTest::changedAllowlistIsAnnounced()
{
    Model model;
    complete(&model);
    model.setFilterMode(Model::AllowedOnly);
    QCoreApplication::processEvents();
    SignalLog signalLog(&model);
    model.toggleSelectedApp(text("a.desktop"));
    QStringList announced;
    QTRY_COMPARE_WITH_TIMEOUT(announced += signalLog.take(),
                              texts({"allowlistChanged", "selectedAppsChanged", "dataChanged 0-1"}), 500);
}

void ApplicationServicesNoBusTest::diesInTheMiddle()
{
    const MessageLog log;
    {
        Model model;
        complete(&model);
        log.take();
        model.setFilterMode(Model::AllowedOnly);
        model.setFilterModeEnabled(true);
        model.setFilterMode(Model::AutostartedOnly);
        model.setFilterModeEnabled(true);
        model.getAllowedNotificationsConfig();
    }
    QCoreApplication::processEvents();
    QCOMPARE(log.take(), s_none);
}

QTEST_GUILESS_MAIN(ApplicationServicesNoBusTest)
#include "tst_applicationservicesnobus.moc"
