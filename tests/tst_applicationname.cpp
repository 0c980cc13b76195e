// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "common/messages.h"
#include "messagelog.h"
#include "privateworld.h"
#include "recordedrequests.h"
#include "text.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace
{
using Recorded = RecordedRequests;

const QString s_service = RecordedRequests::serviceOfTests();
const QStringList s_none;
}

/// The name of AddressRequests on the session bus.
class ApplicationNameTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wrongNames_data();
    void wrongNames();
    void nameOfAnotherProgram();
    void nameOfAnotherObject();
    void nextObjectGetsTheName();
    void nameOfTheHost();
    void changedName();
    void withoutBus();
    void busEnds();
};

/// Run in processes of their own, because a connection to a bus lasts until the process ends.
class ApplicationNameWorlds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutBus();
    void busEnds();
};

void ApplicationNameTest::wrongNames_data()
{
    QTest::addColumn<QString>("service");
    for (const char *service :
         {"abc", "a..b", ".a.b", "a.b.", ":1.5", "a.1b", "a b.c", "a.b/c", "org.freedesktop.DBus"}) {
        QTest::newRow(service) << text(service);
    }
    QTest::newRow("long") << text("a.") + QString(300, QLatin1Char('b'));
}

void ApplicationNameTest::wrongNames()
{
    QFETCH(QString, service);
    const MessageLog log;
    Recorded requests(service);
    Recorded others; // which is asked later
    QTRY_VERIFY(others.isOwned());
    QVERIFY(!requests.isOwned());
    const QStringList warnings = log.take();
    QCOMPARE(warnings.size(), 1);
    QVERIFY2(warnings.first().startsWith(settingsWarning(Messages::NameNotOwned, service)),
             qPrintable(warnings.first()));
}

void ApplicationNameTest::nameOfAnotherProgram()
{
    const MessageLog log;
    QDBusConnection other = QDBusConnection::connectToBus(QDBusConnection::SessionBus, text("other"));
    QVERIFY(other.registerService(s_service));
    Recorded requests;
    QSignalSpy changes(&requests, &AddressRequests::ownedChanged);
    QStringList warnings;
    QTRY_COMPARE(warnings += log.take(),
                 QStringList(settingsWarning(Messages::NameNotOwned, s_service, "another program has it")));
    QVERIFY(!requests.isOwned());
    QCOMPARE(changes.count(), 0);
    QVERIFY(other.unregisterService(s_service));
    QTRY_VERIFY(requests.isOwned());
    QCOMPARE(changes.count(), 1);
    open({text("velka-settings:/a")});
    QTRY_COMPARE(requests.log(), QStringList(text("a")));
    QCOMPARE(log.take(), s_none);
}

void ApplicationNameTest::nameOfAnotherObject()
{
    Recorded requests;
    QTRY_VERIFY(requests.isOwned());
    const MessageLog log;
    {
        const Recorded second;
        QVERIFY(!second.isOwned());
        QCOMPARE(log.take(),
                 QStringList(settingsWarning(Messages::NameNotOwned, s_service, "this program has it already")));
    }
    open({text("velka-settings:/a")});
    QTRY_COMPARE(requests.log(), QStringList(text("a")));
}

void ApplicationNameTest::nextObjectGetsTheName()
{
    auto first = std::make_unique<Recorded>();
    QTRY_VERIFY(first->isOwned());
    const MessageLog log;
    auto second = std::make_unique<Recorded>();
    Recorded third;
    QCOMPARE(log.take().size(), 2);
    QSignalSpy changes(second.get(), &AddressRequests::ownedChanged);
    first.reset();
    QTRY_COMPARE(changes.count(), 1);
    QVERIFY(second->isOwned() && !third.isOwned());
    open({text("velka-settings:/a")});
    QTRY_COMPARE(second->log(), QStringList(text("a")));
    second->setService(text("org.example.Other"));
    QTRY_VERIFY(third.isOwned() && second->isOwned());
    open({text("velka-settings:/b")});
    QTRY_COMPARE(third.log(), QStringList(text("b")));
    QCOMPARE(log.take(), s_none);
}

void ApplicationNameTest::nameOfTheHost()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    QVERIFY(bus.registerService(s_service));
    const MessageLog log;
    {
        Recorded requests;
        QSignalSpy changes(&requests, &AddressRequests::ownedChanged);
        QTRY_VERIFY(requests.isOwned());
        QCOMPARE(changes.count(), 1);
        open({text("velka-settings:/a")});
        QTRY_COMPARE(requests.log(), QStringList(text("a")));
    }
    {
        const Recorded endsAtOnce;
    }
    Recorded others(text("org.example.Other")); // asked later
    QTRY_VERIFY(others.isOwned());
    QVERIFY(bus.interface()->isServiceRegistered(s_service));
    QCOMPARE(log.take(), s_none);
    QVERIFY(bus.unregisterService(s_service));
}

void ApplicationNameTest::changedName()
{
    Recorded requests(text("org.example.Other"));
    QTRY_VERIFY(requests.isOwned());
    QSignalSpy changes(&requests, &AddressRequests::ownedChanged);
    requests.setService(s_service);
    QVERIFY(!requests.isOwned());
    QTRY_VERIFY(requests.isOwned());
    QCOMPARE(changes.count(), 2);
    QVERIFY(!QDBusConnection::sessionBus().interface()->isServiceRegistered(text("org.example.Other")));
    requests.setService({});
    QVERIFY(!requests.isOwned());
    QCOMPARE(changes.count(), 3);
    QCOMPARE(errorOf(open({text("velka-settings:/a")})), text("org.freedesktop.DBus.Error.ServiceUnknown"));
    connect(&requests, &AddressRequests::ownedChanged, &requests, [&requests] { requests.setService(s_service); });
    for (int i = 0; i < 10; ++i) {
        requests.setService(i % 2 == 0 ? s_service : text("org.example.Other"));
    }
    QTRY_VERIFY(requests.isOwned() && requests.service() == s_service);
    open({text("velka-settings:/a")});
    QTRY_COMPARE(requests.log(), QStringList(text("a")));
}

void ApplicationNameTest::withoutBus()
{
    const QTemporaryDir directory;
    QVERIFY(runInWorld(directory.path(), text("withoutBus")));
}

void ApplicationNameTest::busEnds()
{
    const QTemporaryDir directory;
    QVERIFY(runInWorld(directory.path(), text("busEnds")));
}

void ApplicationNameWorlds::withoutBus()
{
    const MessageLog log;
    Recorded requests;
    requests.setActive(false);
    QCoreApplication::processEvents();
    QVERIFY(!requests.isOwned());
    QCOMPARE(log.take(),
             QStringList(settingsWarning(Messages::NameNotOwned, s_service, "there is no session bus")));
}

void ApplicationNameWorlds::busEnds()
{
    PrivateBus bus;
    Recorded requests;
    QTRY_VERIFY(requests.isOwned());
    QSignalSpy changes(&requests, &AddressRequests::ownedChanged);
    bus.kill();
    QTRY_VERIFY(!requests.isOwned());
    QCOMPARE(changes.count(), 1);
}

int main(int argc, char *argv[])
{
    ApplicationNameTest test;
    ApplicationNameWorlds worlds;
    return runTest(argc, argv, &test, &worlds);
}

#include "tst_applicationname.moc"
