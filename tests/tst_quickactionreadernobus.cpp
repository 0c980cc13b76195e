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
// Far below the time that a call is given for its answer
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

/// The reader in a world without a session bus.
class QuickActionReaderNoBusTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void triggerTellsWhyTheCallIsNotQueued();
    void eachTriggerTells();
    void invalidNamesComeFirst();
    void showStorePageTellsTheLastError();
    void remoteActionStringNeedsNoBus();
};

void QuickActionReaderNoBusTest::initTestCase()
{
    QVERIFY(!QDBusConnection::sessionBus().isConnected());
}

void QuickActionReaderNoBusTest::triggerTellsWhyTheCallIsNotQueued()
{
    const MessageLog log;
    QuickActionReader reader(nullptr);
    QElapsedTimer timer;
    timer.start();
    reader.trigger(action());
    QVERIFY(timer.elapsed() < NoTime);
    QCoreApplication::processEvents(); // to no error callback, which would ask for the store
    QCOMPARE(log.take(),
             QStringList(text("info default: <Unknown File>: QML QuickActionReader: Failed to initialize "
                              "dbus call to: service=com.velka.service path=/object "
                              "interface=com.velka.interface method=act. Error was: "
                              "org.freedesktop.DBus.Error.Disconnected Not connected to D-Bus server %6")));
}

void QuickActionReaderNoBusTest::eachTriggerTells()
{
    const MessageLog log;
    QuickActionReader reader(nullptr);
    reader.trigger(action());
    reader.trigger(action());
    const QStringList messages = log.take();
    QCOMPARE(messages.size(), 2);
    QCOMPARE(messages[1], messages[0]);
}

void QuickActionReaderNoBusTest::invalidNamesComeFirst()
{
    const MessageLog log;
    QuickActionReader(nullptr).trigger({});
    const QStringList messages = log.take();
    QCOMPARE(messages.size(), 1);
    QVERIFY2(messages[0].contains(text("method=. Error was: org.freedesktop.DBus.Error.InvalidArgs ")),
             qPrintable(messages[0]));
    QVERIFY2(messages[0].endsWith(text(" %6")), qPrintable(messages[0]));
}

void QuickActionReaderNoBusTest::showStorePageTellsTheLastError()
{
    const MessageLog log;
    QuickActionReader reader(nullptr);
    QElapsedTimer timer;
    timer.start();
    reader.showStorePage(text("package"));
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
