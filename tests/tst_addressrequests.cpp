// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "common/messages.h"
#include "messagelog.h"
#include "recordedrequests.h"
#include "text.h"
#include "toolkit/applicationobject.h"

#include <QPointer>
#include <QProcess>
#include <QSignalSpy>
#include <QTest>

namespace
{
using Recorded = RecordedRequests;

const QString s_invalidArgs = QStringLiteral("org.freedesktop.DBus.Error.InvalidArgs");
const QStringList s_none;
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
    const QDBusMessage reply = callApplication(method, arguments);
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
    QCOMPARE(log.take(), QStringList(settingsWarning(Messages::AddressRefused, url, qPrintable(reason))));
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
    QCOMPARE(log.take(),
             QStringList({settingsWarning(Messages::AddressRefused, text("b"), "it is no velka-settings: URL"),
                          settingsWarning(Messages::AddressRefused, text(""), "it names no entry")}));
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
    QCOMPARE(log.take(), QStringList(settingsWarning(Messages::AddressRefused, url.left(100), "it is too long")));
    openAction({QString(4000000, QLatin1Char('/'))});
    QCOMPARE(log.take(), QStringList(settingsWarning(Messages::AddressRefused, QString(100, QLatin1Char('/')),
                                                     "it is too long")));
    QCOMPARE(errorOf(open({url.left(64 * 1024)})), QString());
    QTRY_COMPARE(requests.log(), QStringList(QString(64 * 1024 - 16, QLatin1Char('a'))));
}

void AddressRequestsTest::waitsUntilActive()
{
    Recorded requests;
    requests.setActive(false);
    QTRY_VERIFY(requests.isOwned());
    callApplication(text("Activate"), {QVariantMap()});
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
    requests.setService(RecordedRequests::serviceOfTests());
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
    QCOMPARE(errorOf(callApplication(text("Activate"), {QVariantMap()})),
             text("org.freedesktop.DBus.Error.LimitsExceeded"));
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
    tool.start(text(VELKA_TOOL),
               {text("open"), text("--service"), RecordedRequests::serviceOfTests(), QString::fromUtf8("a/ä b")});
    QVERIFY(finished.wait());
    QCOMPARE(tool.exitCode(), 0);
    QTRY_COMPARE(requests.log(), QStringList(QString::fromUtf8("a/ä b")));
}

QTEST_GUILESS_MAIN(AddressRequestsTest)
#include "tst_addressrequests.moc"
