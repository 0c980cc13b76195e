// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "actions/quickactionreader.h"

#include "actions/callcheck.h"
#include "messagelog.h"
#include "quickactions.h"
#include "text.h"

#include <QDBusError>
#include <QDBusMessage>
#include <QTest>

using namespace QuickActions;

/// Calls that are not sent.
class QuickActionCallsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void refusesInvalidNames_data();
    void refusesInvalidNames();
    void refusesNullCharacter();
    void refusesHostileArguments_data();
    void refusesHostileArguments();
    void nullArgumentIsNotSent_data();
    void nullArgumentIsNotSent();
    void nullInAMapIsRefused();
};

void QuickActionCallsTest::refusesInvalidNames_data()
{
    QTest::addColumn<QVariantMap>("action");
    const QVariantMap action = actionOf(s_service, text("package"));
    QTest::newRow("empty map") << QVariantMap();
    QTest::newRow("service") << with(action, "remote-service", text("service"));
    QTest::newRow("empty service") << with(action, "remote-service", text(""));
    QTest::newRow("path") << with(action, "remote-path", text("/a//b"));
    QTest::newRow("reserved path") << with(action, "remote-path", text("/org/freedesktop/DBus/Local"));
    QTest::newRow("interface") << with(action, "remote-interface", text("a.b-c"));
    QTest::newRow("reserved interface") << with(action, "remote-interface", text("org.freedesktop.DBus.Local"));
    QTest::newRow("method") << with(action, "remote-method", text("a.b"));
    QTest::newRow("name of a million characters")
        << with(action, "remote-method", QString(1000000, QLatin1Char('m')));
    QTest::newRow("number as service") << with(action, "remote-service", 1.0);
    QTest::newRow("percent signs") << QVariantMap{{text("remote-service"), text("%2")},
                                                  {text("remote-path"), text("%1")},
                                                  {text("remote-interface"), text("%6 %5")},
                                                  {text("remote-method"), text("%5%1")}};
}

void QuickActionCallsTest::refusesInvalidNames()
{
    QFETCH(QVariantMap, action);
    const auto name = [&action](const char *key) { return action.value(text(key)).toString(); };
    const QDBusError error = objectionTo(QDBusMessage::createMethodCall(
        name("remote-service"), name("remote-path"), name("remote-interface"), name("remote-method")));
    Store store;
    const MessageLog log;
    QuickActionReader reader(nullptr);
    reader.trigger(action);
    QCOMPARE(log.take(), QStringList(queueFailure(action, error.message())));
    settleFailures(); // over the same connection, which is alive
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(store.calls(), noCalls());
}

// Qt prints no more of a message than what comes before the character.
void QuickActionCallsTest::refusesNullCharacter()
{
    const MessageLog log;
    QuickActionReader reader(nullptr);
    reader.trigger(with(actionOf(s_service), "remote-method", QString::fromLatin1("a\0b", 3)));
    QCOMPARE(log.take(),
             QStringList(logged(text("Failed to initialize dbus call to: service=com.velka.service "
                                     "path=/com/velka/object interface=com.velka.interface method=a"))));
    settle();
    QCOMPARE(log.take(), QStringList());
}

void QuickActionCallsTest::refusesHostileArguments_data()
{
    QTest::addColumn<QVariantList>("arguments");
    QTest::addColumn<QString>("objection");
    QVariantList numbers;
    for (int i = 0; i < 10000; ++i) {
        numbers.append(double(i));
    }
    QTest::newRow("10,000") << numbers << text("There are too many arguments");
    QTest::newRow("400 deep") << QVariantList{inLists(400, true)} << text("The arguments are nested too deeply");
    QTest::newRow("40 MiB") << QVariantList{QString(40 * 1024 * 1024, QLatin1Char('x'))}
                            << text("The call is too large");
}

void QuickActionCallsTest::refusesHostileArguments()
{
    QFETCH(QVariantList, arguments);
    QFETCH(QString, objection);
    Target target;
    const MessageLog log;
    QuickActionReader reader(nullptr);
    reader.trigger(with(actionOf(s_service), "remote-arguments", arguments));
    QCOMPARE(log.take(), QStringList(queueFailure(actionOf(s_service), objection)));
    settle();
    QCOMPARE(target.calls(), noCalls());
    reader.trigger(actionOf(s_service));
    settle();
    QCOMPARE(target.calls().size(), 1);
    QCOMPARE(log.take(), QStringList());
}

// Qt has no type of D-Bus for it. The call is queued for all that Qt knows then.
void QuickActionCallsTest::nullArgumentIsNotSent_data()
{
    QTest::addColumn<QVariant>("argument");
    QTest::addColumn<QString>("reason");
    const QString null = text("Unregistered type std::nullptr_t passed in arguments");
    QTest::newRow("null") << QVariant::fromValue(nullptr) << null;
    QTest::newRow("null in a list") << QVariant(QVariantList{1.0, QVariant::fromValue(nullptr)}) << null;
    QTest::newRow("invalid") << QVariant() << text("Variant containing QVariant::Invalid passed in arguments");
}

void QuickActionCallsTest::nullArgumentIsNotSent()
{
    QFETCH(QVariant, argument);
    QFETCH(QString, reason);
    Target target;
    const MessageLog log;
    QuickActionReader reader(nullptr);
    reader.trigger(with(actionOf(s_service), "remote-arguments", QVariantList{argument}));
    settle();
    QCOMPARE(log.take().filter(text("QuickActionReader")),
             QStringList(failure(actionOf(s_service),
                                 text("org.freedesktop.DBus.Error.Failed Marshalling failed: ") + reason)));
    QCOMPARE(target.calls(), noCalls());
}

void QuickActionCallsTest::nullInAMapIsRefused()
{
    const QVariantList arguments{QVariantMap{{text("key"), QVariant::fromValue(nullptr)}}};
    QDBusMessage call = QDBusMessage::createMethodCall(s_service, s_path, s_interface, s_method);
    call.setArguments(arguments);
    const QDBusError error = objectionTo(call);
    QVERIFY(error.isValid()); // or the process would end below
    Target target;
    const MessageLog log;
    QuickActionReader reader(nullptr);
    reader.trigger(with(actionOf(s_service), "remote-arguments", arguments));
    QCOMPARE(log.take(), QStringList(queueFailure(actionOf(s_service), error.message())));
    settle();
    QCOMPARE(target.calls(), noCalls());
}

QTEST_GUILESS_MAIN(QuickActionCallsTest)
#include "tst_quickactioncalls.moc"
