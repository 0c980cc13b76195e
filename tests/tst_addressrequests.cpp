// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "common/messages.h"
#include "messagelog.h"
#include "privateworld.h"
#include "text.h"
#include "toolkit/addressrequests.h"
#include "toolkit/applicationobject.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QPointer>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

namespace
{
const QString s_service = QStringLiteral("org.example.My-Settings");
const QString s_path = QStringLiteral("/org/example/My_Settings");
const QString s_interface = QStringLiteral("org.freedesktop.Application");
const QString s_invalidArgs = QStringLiteral("org.freedesktop.DBus.Error.InvalidArgs");
const QStringList s_none;

/// Returns the reply to a call of another connection.
QDBusMessage call(const QString &method, const QVariantList &arguments, const QString &path = s_path)
{
    static const QDBusConnection callers = QDBusConnection::connectToBus(QDBusConnection::SessionBus,
                                                                         text("callers"));
    QDBusMessage message = QDBusMessage::createMethodCall(s_service, path, s_interface, method);
    message.setArguments(arguments);
    QDBusPendingCallWatcher watcher(callers.asyncCall(message));
    QSignalSpy finished(&watcher, &QDBusPendingCallWatcher::finished);
    if (!watcher.isFinished() && !finished.wait()) {
        qFatal("No reply to %s", qUtf8Printable(method));
    }
    return watcher.reply();
}

QString errorOf(const QDBusMessage &reply)
{
    return reply.type() == QDBusMessage::ErrorMessage ? reply.errorName() : QString();
}

QDBusMessage open(const QStringList &urls, const QVariantMap &platformData = {})
{
    return call(text("Open"), {urls, platformData});
}

QDBusMessage openAction(const QVariantList &parameter, const QString &action = text("open"))
{
    return call(text("ActivateAction"), {action, parameter, QVariantMap()});
}

/// Requests, and a record of what they announce: paths, or "activate", each with the token, if any.
class Recorded : public AddressRequests
{
    Q_OBJECT

public:
    explicit Recorded(const QString &service = s_service)
    {
        connect(this, &AddressRequests::openRequested, this, &Recorded::add);
        connect(this, &AddressRequests::activateRequested, this,
                [this](const QString &token) { add(text("activate"), token); });
        setService(service);
    }

    QStringList log() const
    {
        return m_log;
    }

private:
    void add(const QString &request, const QString &token)
    {
        m_log.append(token.isEmpty() ? request : request + QLatin1Char(' ') + token);
    }

    QStringList m_log;
};

QString refusal(const QString &address, const char *reason)
{
    return settingsWarning(Messages::AddressRefused, address) + text(": ") + text(reason);
}

QString withoutName(const QString &service, const char *reason)
{
    return settingsWarning(Messages::NameNotOwned, service) + text(": ") + text(reason);
}
}

/// Addresses that arrive on the session bus.
class AddressRequestsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void announcesCalls_data();
    void announcesCalls();
    void passesTheActivationToken_data();
    void passesTheActivationToken();
    void refusesNonsense_data();
    void refusesNonsense();
    void refusesActions_data();
    void refusesActions();
    void oneBadAddressRefusesTheCall();
    void longAddressesAreLoggedShort();
    void waitsUntilActive();
    void waitsUntilComplete();
    void refusesMoreThanCanWait();
    void handlerMayDeactivate();
    void handlerMayDelete();
    void callersDoNotWaitForHandlers();
    void toolOpensEntries();
    void wrongNames_data();
    void wrongNames();
    void nameOfAnotherProgram();
    void nameOfAnotherObject();
    void changedName();
    void withoutBus();
    void busEnds();
};

/// Run in processes of their own, because a connection to a bus lasts until the process ends.
class AddressRequestsWorlds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutBus();
    void busEnds();
};

void AddressRequestsTest::announcesCalls_data()
{
    QTest::addColumn<QString>("method");
    QTest::addColumn<QVariantList>("arguments");
    QTest::addColumn<QStringList>("announced");
    const QVariantMap none;
    QTest::newRow("activate") << text("Activate") << QVariantList{none} << QStringList{text("activate")};
    QTest::newRow("open") << text("Open") << QVariantList{QStringList{text("velka-settings:/a/b%20c")}, none}
                          << QStringList{text("a/b c")};
    QTest::newRow("open two") << text(
        "Open") << QVariantList{QStringList{text("velka-settings:/b"), text("VELKA-settings:///a//")}, none}
                              << QStringList{text("b"), text("a")};
    QTest::newRow("action with path") << text("ActivateAction")
                                      << QVariantList{text("open"), QVariantList{text("/a/b%20c/")}, none}
                                      << QStringList{text("a/b%20c")};
    QTest::newRow("action with URL") << text(
        "ActivateAction") << QVariantList{text("open"), QVariantList{text("velka-settings:/%C3%A4")}, none}
                                     << QStringList{QString(QChar(0xe4))};
}

void AddressRequestsTest::announcesCalls()
{
    QFETCH(QString, method);
    QFETCH(QVariantList, arguments);
    QFETCH(QStringList, announced);
    const MessageLog log;
    Recorded requests;
    QTRY_VERIFY(requests.isOwned());
    const QDBusMessage reply = call(method, arguments);
    QCOMPARE(reply.type(), QDBusMessage::ReplyMessage);
    QCOMPARE(reply.arguments(), QVariantList());
    QTRY_COMPARE(requests.log(), announced);
    QCOMPARE(log.take(), s_none);
}

void AddressRequestsTest::passesTheActivationToken_data()
{
    QTest::addColumn<QVariantMap>("platformData");
    QTest::addColumn<QString>("announced");
    const QString token = text("activation-token");
    const QString startupId = text("desktop-startup-id");
    QTest::newRow("none") << QVariantMap() << text("a");
    QTest::newRow("token") << QVariantMap{{token, text("T")}, {startupId, text("S")}} << text("a T");
    QTest::newRow("startup id") << QVariantMap{{token, text("")}, {startupId, text("S")}} << text("a S");
    QTest::newRow("other type") << QVariantMap{{token, 1}, {startupId, QStringList{text("S")}}} << text("a");
    QTest::newRow("too long") << QVariantMap{{token, QString(5000, QLatin1Char('T'))}} << text("a");
}

void AddressRequestsTest::passesTheActivationToken()
{
    QFETCH(QVariantMap, platformData);
    QFETCH(QString, announced);
    Recorded requests;
    QTRY_VERIFY(requests.isOwned());
    open({text("velka-settings:/a")}, platformData);
    QTRY_COMPARE(requests.log(), QStringList(announced));
}

void AddressRequestsTest::refusesNonsense_data()
{
    QTest::addColumn<QString>("url");
    QTest::addColumn<QString>("reason");
    QTest::newRow("nothing") << text("") << text("it is no velka-settings: URL");
    QTest::newRow("another scheme") << text("file:///etc/passwd") << text("it is no velka-settings: URL");
    QTest::newRow("null") << text("velka-settings:/a%00") << text("it has control characters");
}

void AddressRequestsTest::refusesNonsense()
{
    QFETCH(QString, url);
    QFETCH(QString, reason);
    const MessageLog log;
    Recorded requests;
    QTRY_VERIFY(requests.isOwned());
    const QDBusMessage reply = open({url});
    QCOMPARE(errorOf(reply), s_invalidArgs);
    QCOMPARE(reply.errorMessage(), text("Refused \"%1\": %2").arg(url, reason));
    QCOMPARE(log.take(), QStringList(refusal(url, qPrintable(reason))));
    open({text("velka-settings:/last")});
    QTRY_COMPARE(requests.log(), QStringList(text("last")));
}

void AddressRequestsTest::refusesActions_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QVariantList>("parameter");
    QTest::newRow("another action") << text("quit") << QVariantList{text("a")};
    QTest::newRow("no parameter") << text("open") << QVariantList();
    QTest::newRow("two parameters") << text("open") << QVariantList{text("a"), text("b")};
    QTest::newRow("number") << text("open") << QVariantList{1};
    QTest::newRow("list") << text("open") << QVariantList{QStringList{text("a")}};
    QTest::newRow("another scheme") << text("open") << QVariantList{text("https://example.com/a")};
    QTest::newRow("dots") << text("open") << QVariantList{text("a/../b")};
    QTest::newRow("control") << text("open") << QVariantList{text("a\tb")};
}

void AddressRequestsTest::refusesActions()
{
    QFETCH(QString, action);
    QFETCH(QVariantList, parameter);
    const MessageLog log;
    Recorded requests;
    QTRY_VERIFY(requests.isOwned());
    QCOMPARE(errorOf(openAction(parameter, action)), s_invalidArgs);
    QCOMPARE(log.take().size(), 1);
    open({text("velka-settings:/last")});
    QTRY_COMPARE(requests.log(), QStringList(text("last")));
}

void AddressRequestsTest::oneBadAddressRefusesTheCall()
{
    const MessageLog log;
    Recorded requests;
    QTRY_VERIFY(requests.isOwned());
    QCOMPARE(errorOf(open({text("velka-settings:/a"), text("b"), text("c")})), s_invalidArgs);
    QCOMPARE(errorOf(open({})), s_invalidArgs);
    QCOMPARE(log.take(), QStringList({refusal(text("b"), "it is no velka-settings: URL"),
                                      refusal(text(""), "it names no entry")}));
    open({text("velka-settings:/last")});
    QTRY_COMPARE(requests.log(), QStringList(text("last")));
}

void AddressRequestsTest::longAddressesAreLoggedShort()
{
    const MessageLog log;
    Recorded requests;
    QTRY_VERIFY(requests.isOwned());
    const QString url = text("velka-settings:/") + QString(4000000, QLatin1Char('a'));
    const QDBusMessage reply = open({url});
    QCOMPARE(errorOf(reply), s_invalidArgs);
    QVERIFY(reply.errorMessage().size() < 200);
    QCOMPARE(log.take(), QStringList(refusal(url.left(100), "it is too long")));
    openAction({QString(4000000, QLatin1Char('/'))});
    QCOMPARE(log.take(), QStringList(refusal(QString(100, QLatin1Char('/')), "it is too long")));
    QCOMPARE(errorOf(open({url.left(64 * 1024)})), QString());
    QTRY_COMPARE(requests.log(), QStringList(QString(64 * 1024 - 16, QLatin1Char('a'))));
}

void AddressRequestsTest::waitsUntilActive()
{
    Recorded requests;
    requests.setActive(false);
    QTRY_VERIFY(requests.isOwned());
    call(text("Activate"), {QVariantMap()});
    open({text("velka-settings:/a"), text("velka-settings:/b")});
    openAction({text("c")});
    QCOMPARE(requests.log(), s_none);
    requests.setActive(true);
    QCOMPARE(requests.log(), s_none);
    QTRY_COMPARE(requests.log(), path("activate/a/b/c"));
}

void AddressRequestsTest::waitsUntilComplete()
{
    Recorded requests{QString()};
    requests.classBegin();
    requests.setService(s_service);
    QCOMPARE(errorOf(open({text("velka-settings:/a")})), text("org.freedesktop.DBus.Error.ServiceUnknown"));
    requests.componentComplete();
    QTRY_VERIFY(requests.isOwned());
    open({text("velka-settings:/b")});
    QTRY_COMPARE(requests.log(), QStringList(text("b")));
}

void AddressRequestsTest::refusesMoreThanCanWait()
{
    const MessageLog log;
    Recorded requests;
    requests.setActive(false);
    QTRY_VERIFY(requests.isOwned());
    const QString url = text("velka-settings:/a");
    QStringList urls;
    for (int i = 0; i < 100000; ++i) {
        urls.append(url);
    }
    QCOMPARE(errorOf(open(urls)), text("org.freedesktop.DBus.Error.LimitsExceeded"));
    QCOMPARE(errorOf(open(urls.mid(0, AddressRequest::MaxWaiting - 1))), QString());
    QCOMPARE(errorOf(open({url, url})), text("org.freedesktop.DBus.Error.LimitsExceeded"));
    QCOMPARE(errorOf(open({url})), QString());
    QCOMPARE(errorOf(call(text("Activate"), {QVariantMap()})), text("org.freedesktop.DBus.Error.LimitsExceeded"));
    QCOMPARE(log.take().size(), 3);
    requests.setActive(true);
    QTRY_COMPARE(requests.log().size(), AddressRequest::MaxWaiting);
    QCOMPARE(errorOf(open({url})), QString());
}

void AddressRequestsTest::handlerMayDeactivate()
{
    Recorded requests;
    QTRY_VERIFY(requests.isOwned());
    connect(&requests, &AddressRequests::openRequested, &requests,
            [&requests](const QString &path) { requests.setActive(path != text("b")); });
    open({text("velka-settings:/a"), text("velka-settings:/b"), text("velka-settings:/c")});
    QTRY_COMPARE(requests.log(), path("a/b"));
    requests.setActive(true);
    QTRY_COMPARE(requests.log(), path("a/b/c"));
}

void AddressRequestsTest::handlerMayDelete()
{
    auto *const requests = new Recorded;
    QTRY_VERIFY(requests->isOwned());
    const QPointer<Recorded> guard(requests);
    connect(requests, &AddressRequests::openRequested, this, [requests] { delete requests; });
    QCOMPARE(errorOf(open({text("velka-settings:/a"), text("velka-settings:/b")})), QString());
    QTRY_VERIFY(!guard);
    QCOMPARE(errorOf(open({text("velka-settings:/a")})), text("org.freedesktop.DBus.Error.ServiceUnknown"));
}

void AddressRequestsTest::callersDoNotWaitForHandlers()
{
    Recorded requests;
    QTRY_VERIFY(requests.isOwned());
    QString error = text("no reply");
    connect(&requests, &AddressRequests::openRequested, this, [&error](const QString &path) {
        if (path == text("a")) {
            error = errorOf(open({text("velka-settings:/b")})); // as a dialog does, in an event loop of its own
        }
    });
    open({text("velka-settings:/a")});
    QTRY_COMPARE(requests.log(), path("a/b"));
    QTRY_COMPARE(error, QString());
}

void AddressRequestsTest::toolOpensEntries()
{
    Recorded requests;
    QTRY_VERIFY(requests.isOwned());
    QProcess tool;
    QSignalSpy finished(&tool, qOverload<int, QProcess::ExitStatus>(&QProcess::finished));
    tool.start(text(VELKA_TOOL), {text("open"), text("--service"), s_service, QString::fromUtf8("a/ä b")});
    QVERIFY(finished.wait());
    QCOMPARE(tool.exitCode(), 0);
    QTRY_COMPARE(requests.log(), QStringList(QString::fromUtf8("a/ä b")));
}

void AddressRequestsTest::wrongNames_data()
{
    QTest::addColumn<QString>("service");
    for (const char *service :
         {"abc", "a..b", ".a.b", "a.b.", ":1.5", "a.1b", "a b.c", "a.b/c", "org.freedesktop.DBus"}) {
        QTest::newRow(service) << text(service);
    }
    QTest::newRow("long") << text("a.") + QString(300, QLatin1Char('b'));
}

void AddressRequestsTest::wrongNames()
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

void AddressRequestsTest::nameOfAnotherProgram()
{
    const MessageLog log;
    QDBusConnection other = QDBusConnection::connectToBus(QDBusConnection::SessionBus, text("other"));
    QVERIFY(other.registerService(s_service));
    Recorded requests;
    QSignalSpy changes(&requests, &AddressRequests::ownedChanged);
    QStringList warnings;
    QTRY_COMPARE(warnings += log.take(), QStringList(withoutName(s_service, "another program has it")));
    QVERIFY(!requests.isOwned());
    QCOMPARE(changes.count(), 0);
    QVERIFY(other.unregisterService(s_service));
    QTRY_VERIFY(requests.isOwned());
    QCOMPARE(changes.count(), 1);
    open({text("velka-settings:/a")});
    QTRY_COMPARE(requests.log(), QStringList(text("a")));
    QCOMPARE(log.take(), s_none);
}

void AddressRequestsTest::nameOfAnotherObject()
{
    Recorded requests;
    QTRY_VERIFY(requests.isOwned());
    const MessageLog log;
    {
        const Recorded second;
        QVERIFY(!second.isOwned());
        QCOMPARE(log.take(), QStringList(withoutName(s_service, "this program has it already")));
    }
    open({text("velka-settings:/a")});
    QTRY_COMPARE(requests.log(), QStringList(text("a")));
}

void AddressRequestsTest::changedName()
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

void AddressRequestsTest::withoutBus()
{
    const QTemporaryDir directory;
    QVERIFY(runInWorld(directory.path(), text("withoutBus")));
}

void AddressRequestsTest::busEnds()
{
    const QTemporaryDir directory;
    QVERIFY(runInWorld(directory.path(), text("busEnds")));
}

void AddressRequestsWorlds::withoutBus()
{
    const MessageLog log;
    Recorded requests;
    requests.setActive(false);
    QCoreApplication::processEvents();
    QVERIFY(!requests.isOwned());
    QCOMPARE(log.take(), QStringList(withoutName(s_service, "there is no session bus")));
}

void AddressRequestsWorlds::busEnds()
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
    AddressRequestsTest test;
    AddressRequestsWorlds worlds;
    return runTest(argc, argv, &test, &worlds);
}

#include "tst_addressrequests.moc"
