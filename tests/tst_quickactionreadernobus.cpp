// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "actions/quickactionreader.h"

#include "messagelog.h"
#include "text.h"

#include <QDBusConnection>
#include <QElapsedTimer>
#include <QTest>

namespace
{
// Far below the time-out of a call
constexpr int NoTime = 5000;

QVariantMap action()
{
    return {{text("remote-service"), text("com.velka.service")},
            {text("remote-path"), text("/object")},
            {text("remote-interface"), text("com.velka.interface")},
            {text("remote-method"), text("act")},
            {text("requires-package"), text("package")}};
}
}

/// The reader without a session bus.
class QuickActionReaderNoBusTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void triggerReportsWhyTheCallIsNotQueued();
    void eachTriggerReports();
    void anyCallReportsTheLastError_data();
    void anyCallReportsTheLastError();
    void showStorePageReportsTheLastError_data();
    void showStorePageReportsTheLastError();
    void remoteActionStringNeedsNoBus();
};

void QuickActionReaderNoBusTest::initTestCase()
{
    QVERIFY(!QDBusConnection::sessionBus().isConnected());
}

void QuickActionReaderNoBusTest::triggerReportsWhyTheCallIsNotQueued()
{
    const MessageLog log;
    QuickActionReader reader(nullptr);
    QElapsedTimer timer;
    timer.start();
    reader.trigger(action());
    QVERIFY(timer.elapsed() < NoTime);
    QCoreApplication::processEvents(); // no error callback must run, because it would call the store
    QCOMPARE(log.take(),
             QStringList(text("info default: <Unknown File>: QML QuickActionReader: Failed to initialize "
                              "dbus call to: service=com.velka.service path=/object "
                              "interface=com.velka.interface method=act. Error was: "
                              "org.freedesktop.DBus.Error.Disconnected Not connected to D-Bus server %6")));
}

void QuickActionReaderNoBusTest::eachTriggerReports()
{
    const MessageLog log;
    QuickActionReader reader(nullptr);
    reader.trigger(action());
    reader.trigger(action());
    const QStringList messages = log.take();
    QCOMPARE(messages.size(), 2);
    QCOMPARE(messages[1], messages[0]);
}

void QuickActionReaderNoBusTest::anyCallReportsTheLastError_data()
{
    QTest::addColumn<QVariantMap>("action");
    const auto row = [](const char *title, const char *key, const QVariant &value) {
        QVariantMap changed = action();
        changed.insert(text(key), value);
        QTest::newRow(title) << changed;
    };
    const QVariant null = QVariant::fromValue(nullptr);
    QTest::newRow("no names") << QVariantMap();
    row("service of one part", "remote-service", text("abc"));
    row("wrong path", "remote-path", text("//"));
    row("reserved path", "remote-path", text("/org/freedesktop/DBus/Local"));
    row("reserved interface", "remote-interface", text("org.freedesktop.DBus.Local"));
    row("null", "remote-arguments", QVariantList{null});
    row("null in a map", "remote-arguments", QVariantList{QVariantMap{{text("key"), null}}});
    row("17 MiB", "remote-arguments", QVariantList{QString(17 * 1024 * 1024, QLatin1Char('x'))});
}

// With a bus some of these calls would be refused. Without a bus the message is that nothing can be sent.
void QuickActionReaderNoBusTest::anyCallReportsTheLastError()
{
    QFETCH(QVariantMap, action);
    const MessageLog log;
    QuickActionReader(nullptr).trigger(action);
    const QStringList messages = log.take();
    QCOMPARE(messages.size(), 1);
    const auto name = [&action](const char *key) { return action.value(text(key)).toString(); };
    QCOMPARE(
        messages[0],
        text("info default: <Unknown File>: QML QuickActionReader: Failed to initialize dbus call to: "
             "service=%1 path=%2 interface=%3 method=%4. Error was: "
             "org.freedesktop.DBus.Error.Disconnected Not connected to D-Bus server")
                .arg(name("remote-service"), name("remote-path"), name("remote-interface"), name("remote-method"))
            + text(" %6"));
}

void QuickActionReaderNoBusTest::showStorePageReportsTheLastError_data()
{
    QTest::addColumn<QString>("package");
    QTest::newRow("package") << text("package");
    QTest::newRow("17 MiB") << QString(17 * 1024 * 1024, QLatin1Char('x'));
}

void QuickActionReaderNoBusTest::showStorePageReportsTheLastError()
{
    QFETCH(QString, package);
    const MessageLog log;
    QuickActionReader reader(nullptr);
    QElapsedTimer timer;
    timer.start();
    reader.showStorePage(package);
    QVERIFY(timer.elapsed() < NoTime);
    QCOMPARE(log.take(),
             QStringList(text("info default: <Unknown File>: QML QuickActionReader: call to com.velka.velkastore "
                              "failed: QDBusError(\"org.freedesktop.DBus.Error.Disconnected\", "
                              "\"Not connected to D-Bus server\")")));
}

void QuickActionReaderNoBusTest::remoteActionStringNeedsNoBus()
{
    const MessageLog log;
    QCOMPARE(QuickActionReader(nullptr).remoteActionString(action()),
             text("com.velka.service /object com.velka.interface act"));
    QCOMPARE(log.take(), QStringList());
}

QTEST_GUILESS_MAIN(QuickActionReaderNoBusTest)
#include "tst_quickactionreadernobus.moc"
