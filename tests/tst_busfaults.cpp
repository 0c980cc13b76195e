// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "actions/quickactionreader.h"
#include "applications.h"
#include "applicationservices.h"
#include "dconftool.h"
#include "favoritesedits.h"
#include "privateworld.h"
#include "text.h"
#include "world.h"

#include <QDBusConnection>
#include <QElapsedTimer>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <malloc.h>
#include <unistd.h>

using Model = ApplicationsSettingsModel;
using Service = ApplicationServices::Service;

// Faults that affect more than one call. Those of a single call are tested with that call.
class BusFaultsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanupTestCase();

    void servicesAreStopped();
    void serviceIsReplaced();
    void floodOfSignals();
    void floodOfSignalsOfAnotherType();
    void busGoesAway();
    void busGoesAwayBeforeActions();

private:
    Applications m_applications;
    ApplicationServices m_services;
};

/// Programs with a private bus
class BusWorlds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void busGoesAway();
    void busGoesAwayBeforeActions();
};

namespace
{
const QStringList s_none;
constexpr int Flood = 10000;

/// Returns the least time in milliseconds for which the services are stopped, 0 by default.
int standstill()
{
    return qEnvironmentVariableIntValue("VELKA_STANDSTILL");
}

int residentKiB()
{
    malloc_trim(0);
    QFile file(text("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("The process has no statistics");
    }
    return file.readAll().split(' ').at(1).toInt() * int(sysconf(_SC_PAGESIZE) / 1024);
}

/**
 * Lets the notifications service send its list, then Flood signals with the Python values in @p arguments, and a last
 * one that disables com.example.Known.
 */
void flood(ApplicationServices *services, ServedModel *model, const char *signature, const char *arguments)
{
    const QString code = text("from gi.repository import GLib\n"
                              "def flood(self=self):\n"
                              "    name = 'com.kelo.NotificationsConfig1'\n"
                              "    for i in range(%1):\n"
                              "        self.EmitSignal(name, 'configChanged', '%2', %3)\n"
                              "    self.EmitSignal(name, 'configChanged', 'sa{sv}', "
                              "['com.example.Known', {'enabled': False}])\n"
                              "GLib.idle_add(flood)")
                             .arg(Flood)
                             .arg(text(signature), text(arguments));
    services->prepare("getList", code.toUtf8().constData());
    model->getAllowedNotificationsConfig();
}
}

void BusFaultsTest::initTestCase()
{
    writeThreeApplications(m_applications);
    m_applications.write("first/known.desktop", application("Known", "X-DBus-ServiceName=com.example.Known\n"));
}

void BusFaultsTest::init()
{
    m_services.reset();
}

void BusFaultsTest::cleanupTestCase()
{
    World::reset();
}

void BusFaultsTest::servicesAreStopped()
{
    ServedModel model(&m_services, Model::AllowedOnly);
    QCOMPARE(model.selectedApps(), texts({"a", "x"}));
    const auto services = {Service::Sandboxing, Service::Autostart, Service::Notifications};
    for (Service service : services) {
        m_services[service].suspend();
    }
    const MessageLog log;
    QStringList logged;
    QElapsedTimer elapsed;
    elapsed.start();
    model.setFilterMode(Model::AutostartedOnly);
    model.setFilterMode(NoMode);
    model.setFilterMode(Model::AllowedOnly);
    model.getAllowedNotificationsConfig();
    model.setNotificationsEnabled(text("com.example.Known"), false);
    QVERIFY(elapsed.elapsed() < NoTime);

    int ticks = 0;
    QTimer timer;
    connect(&timer, &QTimer::timeout, [&] { ++ticks; });
    timer.start(10);
    QTRY_VERIFY(ticks > 10); // the event loop runs
    QVERIFY(pagesFollowTheRegistry());
    QCOMPARE(WatchedFavorites()->count(), 0);
    QCOMPARE(model.count(), 4);
    QCOMPARE(model.selectedApps(), s_none);
    QCOMPARE(log.take(), s_none);

    // One message for each call that the bus ends. The change of the pages causes no call.
    QTRY_COMPARE((logged += log.take()).size(), 4);
    QTRY_VERIFY_WITH_TIMEOUT(elapsed.hasExpired(standstill()), standstill() + 1000);
    model.takeSignals();

    for (Service service : services) {
        m_services[service].resume();
    }
    m_services.settle();
    QCOMPARE(model.takeSignals(), s_none); // late replies are ignored
    QCOMPARE(model.selectedApps(), s_none);
    QCOMPARE(log.take(), s_none);
    model.setFilterMode(Model::AutostartedOnly);
    model.setFilterMode(Model::AllowedOnly);
    model.setNotificationsEnabled(text("com.example.Known"), false);
    m_services.settle();
    QCOMPARE(model.selectedApps(), texts({"a", "x"}));
    QVERIFY(model.column(Model::NotificationsEnabledRole).contains(false));
    QVERIFY(pagesFollowTheRegistry());
    QCOMPARE(log.take(), s_none);
}

void BusFaultsTest::serviceIsReplaced()
{
    ServedModel model(&m_services, Model::AllowedOnly);
    const MessageLog log;
    m_services.stop(Service::Sandboxing);
    {
        DBusPeer other(QDBusConnection::SystemBus, text("org.orvantaos.tarnholdd1"),
                       text("/org/orvantaos/tarnholdd1"), text("org.orvantaos.tarnholdd1"));
        other.addMethod(text("GetAllowlist"), text("u"), text("ret = {'a': 1}"), text("a{si}"));
        other.addMethod(text("GetAllowlistEnabled"), text("u"), text("ret = 'yes'"), text("s"));
        other.addMethod(text("GetAlwaysAllowedApplications"), {}, text("ret = 7"), text("i"));
        model.setFilterMode(NoMode);
        model.setFilterMode(Model::AllowedOnly);
        QVERIFY(!model.filterModeEnabled());
        m_services.settle();
        QCOMPARE(other.calls(text("GetAllowlist")).size(), 1);
        QCOMPARE(model.selectedApps(), s_none);
        QCOMPARE(model.count(), 4);
        QCOMPARE(log.take().size(), 1);
        QVERIFY(pagesFollowTheRegistry());
    }
    m_services.start(Service::Sandboxing);
    model.setFilterMode(NoMode);
    model.setFilterMode(Model::AllowedOnly);
    m_services.settle();
    QCOMPARE(model.selectedApps(), texts({"a", "x"}));
    QCOMPARE(log.take(), s_none);
}

void BusFaultsTest::floodOfSignals()
{
    ServedModel model(&m_services);
    int announced = 0;
    connect(&model, &Model::allowedNotificationsChanged, [&] { ++announced; });
    const MessageLog log;
    int before = 0;
    for (int round = 1; round <= 2; ++round) {
        before = residentKiB(); // the second flood does not allocate again what the first one has
        m_services.takeCalls();
        flood(&m_services, &model, "sa{sv}", "['com.example.Known', {'enabled': True}]");
        QTRY_COMPARE_WITH_TIMEOUT(announced, round * (Flood + 2),
                                  20000); // with the list's and the last one
        QVERIFY(model.column(Model::NotificationsEnabledRole).contains(false));
        QCOMPARE(m_services.takeCalls(), texts({"getList()"}));
        QVERIFY(pagesFollowTheRegistry());
        model.takeSignals();
    }
    const int growth = residentKiB() - before;
    QVERIFY2(growth < 1024 || World::KeepsFreedMemory, qPrintable(QString::number(growth)));
    QCOMPARE(log.take(), s_none);
}

void BusFaultsTest::floodOfSignalsOfAnotherType()
{
    ServedModel model(&m_services);
    QSignalSpy announced(&model, &Model::allowedNotificationsChanged);
    const MessageLog log;
    flood(&m_services, &model, "i", "[i]");
    QTRY_COMPARE_WITH_TIMEOUT(announced.count(), 2, 20000); // the list's and the last one
    QVERIFY(model.column(Model::NotificationsEnabledRole).contains(false));
    QVERIFY(pagesFollowTheRegistry());
    QCOMPARE(log.take(), s_none);
}

void BusFaultsTest::busGoesAway()
{
    const QTemporaryDir directory;
    QVERIFY(runInWorld(directory.path(), text("busGoesAway")));
}

void BusWorlds::busGoesAway()
{
    World::writeFile(text("profile"), "user-db:user\n");
    PrivateBus bus;
    storeFavorites(path("a/b"));
    waitForWrites();
    const Applications applications; // created after dconf has read the name of its directory
    const MessageLog log;
    writeThreeApplications(applications);
    declareSections(path("a/b/c/d/applications"));
    WatchedFavorites favorites;
    Model model;
    model.setUid(1000);
    model.componentComplete();
    QCOMPARE(model.count(), 3);
    model.setFilterMode(Model::AllowedOnly);
    QStringList logged;
    QTRY_COMPARE((logged += log.take()).size(), 1); // there is no such service

    model.getAllowedNotificationsConfig();
    const QDBusConnection connection = QDBusConnection::sessionBus();
    bus.kill();
    QTRY_VERIFY(!connection.isConnected());
    QTRY_COMPARE((logged += log.take()).size(), 2);
    QElapsedTimer elapsed;
    elapsed.start();
    model.setFilterMode(Model::AutostartedOnly);
    model.setFilterMode(Model::AllowedOnly);
    QVERIFY(!model.filterModeEnabled());
    model.toggleSelectedApp(text("a.desktop"));
    model.getAllowedNotificationsConfig();
    QVERIFY(elapsed.elapsed() < NoTime);
    QTRY_COMPARE((logged += log.take()).size(), 5); // one for each call that reports its failure
    QCOMPARE(model.count(), 3);

    {
        const GLibWarnings warnings;
        favorites->addFavorite(text("c"));
        QTRY_VERIFY(GLibWarnings::count() > 0);
        QTRY_COMPARE(storedFavorites(), path("a/b"));
        QTRY_VERIFY(favorites.isConsistent());
    }
    QVERIFY(pagesFollowTheRegistry());
    QCOMPARE(log.take(), QStringList());
}

void BusFaultsTest::busGoesAwayBeforeActions()
{
    const QTemporaryDir directory;
    QVERIFY(runInWorld(directory.path(), text("busGoesAwayBeforeActions")));
}

// Qt lets libdbus write each message before it notices that the connection has ended.
void BusWorlds::busGoesAwayBeforeActions()
{
    PrivateBus bus;
    const QDBusConnection connection = QDBusConnection::sessionBus();
    QVERIFY(connection.isConnected());
    bus.kill();
    QTRY_VERIFY(!connection.isConnected());
    const QVariantMap good{{text("remote-service"), text("com.example.Service")},
                           {text("remote-path"), text("/")},
                           {text("remote-method"), text("act")}};
    QVariantMap onePart = good;
    onePart.insert(text("remote-service"), text("abc"));
    QVariantMap null = good;
    null.insert(text("remote-arguments"), QVariantList{QVariantMap{{text("key"), QVariant()}}});

    const MessageLog log;
    QuickActionReader reader(nullptr);
    reader.trigger(onePart);
    reader.trigger(null);
    QCOMPARE(log.take().filter(text("Failed to initialize dbus call")).size(), 2);
    reader.trigger(good);
    QStringList logged;
    QTRY_COMPARE((logged += log.take()).size(), 1);
    QVERIFY2(logged[0].endsWith(text("Failed to send dbus call to: service=com.example.Service path=/ interface= "
                                     "method=act. Error was: org.freedesktop.DBus.Error.Disconnected Not "
                                     "connected to D-Bus server")),
             qPrintable(logged[0]));
}

int main(int argc, char *argv[])
{
    BusFaultsTest test;
    BusWorlds worlds;
    return runTest(argc, argv, &test, &worlds);
}

#include "tst_busfaults.moc"
