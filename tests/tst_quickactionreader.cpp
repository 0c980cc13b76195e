// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "actions/quickactionreader.h"

#include "actions/callcheck.h"
#include "dbuspeer.h"
#include "messagelog.h"
#include "text.h"

#include <mremoteaction.h>

#include <QDBusError>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDebug>
#include <QSignalSpy>
#include <QTest>

#include <memory>

namespace
{
const QString s_service = QStringLiteral("com.velka.service");
const QString s_missing = QStringLiteral("com.velka.missing");
const QString s_path = QStringLiteral("/com/velka/object");
const QString s_interface = QStringLiteral("com.velka.interface");
const QString s_method = QStringLiteral("act");

const QString s_noReply = QStringLiteral("org.freedesktop.DBus.Error.NoReply");
const QString s_serviceUnknown = QStringLiteral("org.freedesktop.DBus.Error.ServiceUnknown");

QVariantMap actionOf(const QString &service)
{
    return {{text("remote-service"), service},
            {text("remote-path"), s_path},
            {text("remote-interface"), s_interface},
            {text("remote-method"), s_method}};
}

QVariantMap with(QVariantMap action, const char *key, const QVariant &value)
{
    action.insert(text(key), value);
    return action;
}

QVariantMap actionOf(const QString &service, const QString &package)
{
    return with(actionOf(service), "requires-package", package);
}

QString logged(const QString &message)
{
    return text("info default: <Unknown File>: QML QuickActionReader: ") + message;
}

QString failure(const QString &service, const QString &error)
{
    return logged(text("Failed to send dbus call to: service=") + service
                  + text(" path=/com/velka/object interface=com.velka.interface method=act. Error was: ") + error);
}

QString unknownFailure(const QString &service)
{
    return failure(
        service,
        text("org.freedesktop.DBus.Error.ServiceUnknown The name %1 was not provided by any .service files")
            .arg(service));
}

/// What is logged for an action of s_service that was not sent.
QString queueFailure(const QString &objection)
{
    return logged(text("Failed to initialize dbus call to: service=com.velka.service path=/com/velka/object "
                       "interface=com.velka.interface method=act. Error was: "
                       "org.freedesktop.DBus.Error.InvalidArgs ")
                  + objection + text(" %6"));
}

/// Returns when the bus has taken what was sent before, and the answers on it before have come.
void settle()
{
    QDBusPendingCallWatcher watcher(QDBusConnection::sessionBus().asyncCall(
        QDBusMessage::createMethodCall(text("org.freedesktop.DBus"), text("/org/freedesktop/DBus"),
                                       text("org.freedesktop.DBus"), text("GetId"))));
    QSignalSpy finished(&watcher, &QDBusPendingCallWatcher::finished);
    QVERIFY(finished.wait());
    QVERIFY(!watcher.isError());
}

/// Returns when the failures on the bus have come, and what they led to is on the bus.
void settleFailures()
{
    settle();
    settle();
}

QString raise(const QString &error, const QString &message)
{
    return text("raise dbus.exceptions.DBusException('%1', name='%2')").arg(message, error);
}

/// What performs the actions.
class Target : public DBusPeer
{
public:
    explicit Target(const QString &service = s_service, const QString &code = {}, const QString &signature = {},
                    const QString &resultSignature = {})
        : DBusPeer(QDBusConnection::SessionBus, service, s_path, s_interface)
    {
        addMethod(s_method, signature, code, resultSignature);
    }

    QList<QVariantList> calls()
    {
        return DBusPeer::calls(s_method);
    }
};

class Store : public DBusPeer
{
public:
    Store()
        : DBusPeer(QDBusConnection::SessionBus, text("com.velka.velkastore"), text("/StoreClient"),
                   text("com.velka.velkastore"))
    {
        addMethod(text("showApp"), text("s"));
    }

    QList<QVariantList> calls()
    {
        return DBusPeer::calls(text("showApp"));
    }
};

QList<QVariantList> noCalls()
{
    return {};
}

QVariantList callFor(const QString &package)
{
    return {text("s"), package};
}

/// The calls with the types of all values in them.
QString typed(const QList<QVariantList> &calls)
{
    QString text;
    QDebug(&text) << calls;
    return text;
}

QVariant nested(int depth)
{
    QVariant value = true;
    for (int i = 0; i < depth; ++i) {
        value = QVariantList{value};
    }
    return value;
}

/// A value that tells how often it is kept.
struct Counted {
    std::shared_ptr<int> value;

    bool operator==(const Counted &other) const
    {
        return *value == *other.value;
    }
};
}

Q_DECLARE_METATYPE(Counted)

class QuickActionReaderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void callArrivesOnce_data();
    void callArrivesOnce();
    void callsWithoutArguments_data();
    void callsWithoutArguments();
    void triggeringTwiceCallsTwice();
    void keepsEqualActionsOnce();
    void successIsSilent();

    void missingServiceBringsTheStore();
    void missingServiceWithoutPackage_data();
    void missingServiceWithoutPackage();
    void firstPackageWins_data();
    void firstPackageWins();
    void packageOfAnotherCallDoesNotCount_data();
    void packageOfAnotherCallDoesNotCount();
    void missingStoreIsSilent();
    void targetMayMissAService();
    void showStorePageSendsTheName_data();
    void showStorePageSendsTheName();
    void hugePackageNameIsNotSent();

    void noReplyIsSilent();
    void targetMayDieInACall();
    void otherErrorIsOnlyLogged_data();
    void otherErrorIsOnlyLogged();
    void unknownMethodIsOnlyLogged();
    void unrecordedCallIsOnlyLogged();
    void foreignCallIsOnlyLogged();
    void answersMayComeOutOfOrder();
    void readerMayDieFirst();

    void refusesInvalidNames_data();
    void refusesInvalidNames();
    void refusesNullCharacter();
    void refusesHostileArguments_data();
    void refusesHostileArguments();
    void nullArgumentIsNotSent_data();
    void nullArgumentIsNotSent();
    void nullInAMapIsRefused();

    void remoteActionString_data();
    void remoteActionString();
    void remoteActionStringSendsNothing();
};

void QuickActionReaderTest::callArrivesOnce_data()
{
    QTest::addColumn<QString>("signature");
    QTest::addColumn<QVariantList>("arguments");
    QTest::newRow("none") << text("") << QVariantList();
    QTest::newRow("each type") << text("bdsava{sv}")
                               << QVariantList{true, 0.5, text("text"), QVariantList{false, 2.5, text("in")},
                                               QVariantMap{{text("key"), text("value")}}};
    QTest::newRow("whole numbers") << text("dddavd")
                                   << QVariantList{1.0, -2.0, 0.0, QVariantList{3.0}, 9007199254740992.0};
    QTest::newRow("empty values") << text("bsava{sv}")
                                  << QVariantList{false, text(""), QVariantList(), QVariantMap()};
    QTest::newRow("nested values") << text("a{sv}av")
                                   << QVariantList{
                                          QVariantMap{{text("list"), QVariantList{1.0, QVariantList{2.0}}},
                                                      {text(""), QVariantMap{{text("a"), true}}}},
                                          QVariantList{QVariantMap(), QVariantList()}};
    QTest::newRow("non-ASCII") << text(
        "ss") << QVariantList{QStringLiteral(u"\u00e4\u20ac"), QString::fromUtf8("\xf0\x9f\x90\xa7")};
    QTest::newRow("percent signs") << text("s") << QVariantList{text("%1 %5 %6")};
}

void QuickActionReaderTest::callArrivesOnce()
{
    QFETCH(QString, signature);
    QFETCH(QVariantList, arguments);
    Target target(s_service, {}, signature);
    QuickActionReader(nullptr).trigger(with(actionOf(s_service), "remote-arguments", arguments));
    settle();
    const QList<QVariantList> expected{QVariantList{signature} + arguments};
    QCOMPARE(typed(target.calls()), typed(expected));
}

void QuickActionReaderTest::callsWithoutArguments_data()
{
    QTest::addColumn<QVariantMap>("action");
    QTest::newRow("no key") << actionOf(s_service);
    for (const QVariant &value : {QVariant(), QVariant(text("text")), QVariant(1.0),
                                  QVariant(QVariantMap{{text("key"), true}}), QVariant::fromValue(nullptr)}) {
        QTest::addRow("%s", value.typeName()) << with(actionOf(s_service), "remote-arguments", value);
    }
}

void QuickActionReaderTest::callsWithoutArguments()
{
    QFETCH(QVariantMap, action);
    Target target;
    QuickActionReader(nullptr).trigger(action);
    settle();
    QCOMPARE(target.calls(), QList<QVariantList>{{text("")}});
}

void QuickActionReaderTest::triggeringTwiceCallsTwice()
{
    Target target;
    QuickActionReader reader(nullptr);
    reader.trigger(actionOf(s_service));
    reader.trigger(actionOf(s_service));
    settle();
    QCOMPARE(target.calls().size(), 2);
}

void QuickActionReaderTest::keepsEqualActionsOnce()
{
    QMetaType::registerEqualsComparator<Counted>();
    const auto action = [](const std::shared_ptr<int> &value) {
        return with(actionOf(s_missing), "unread", QVariant::fromValue(Counted{value}));
    };
    const auto first = std::make_shared<int>(1);
    const auto equal = std::make_shared<int>(1);
    const auto different = std::make_shared<int>(2);
    const MessageLog log;
    auto reader = std::make_unique<QuickActionReader>(nullptr);
    for (const auto &value : {first, equal, different}) {
        reader->trigger(action(value));
    }
    settle();
    QCOMPARE(log.take().size(), 3);
    QCOMPARE(first.use_count(), 2L);
    QCOMPARE(equal.use_count(), 1L);
    QCOMPARE(different.use_count(), 2L);
    reader.reset();
    QCOMPARE(first.use_count(), 1L);
    QCOMPARE(different.use_count(), 1L);
}

void QuickActionReaderTest::successIsSilent()
{
    Target target(s_service, text("ret = 'an answer'"), {}, text("s"));
    const MessageLog log;
    QuickActionReader reader(nullptr);
    reader.trigger(actionOf(s_service, text("package")));
    settle();
    QCOMPARE(target.calls().size(), 1);
    settle();
    QCOMPARE(log.take(), QStringList());
}

void QuickActionReaderTest::missingServiceBringsTheStore()
{
    Store store;
    const MessageLog log;
    QuickActionReader reader(nullptr);
    reader.trigger(actionOf(s_missing, text("package")));
    settleFailures();
    QCOMPARE(log.take(), QStringList(unknownFailure(s_missing)));
    QCOMPARE(store.calls(), QList<QVariantList>{callFor(text("package"))});
}

void QuickActionReaderTest::missingServiceWithoutPackage_data()
{
    QTest::addColumn<QVariantMap>("action");
    QTest::newRow("no key") << actionOf(s_missing);
    QTest::newRow("empty") << actionOf(s_missing, text(""));
    QTest::newRow("null") << with(actionOf(s_missing), "requires-package", QVariant::fromValue(nullptr));
    QTest::newRow("list") << with(actionOf(s_missing), "requires-package", QVariantList{text("package")});
}

void QuickActionReaderTest::missingServiceWithoutPackage()
{
    QFETCH(QVariantMap, action);
    Store store;
    const MessageLog log;
    QuickActionReader reader(nullptr);
    reader.trigger(action);
    settleFailures();
    QCOMPARE(log.take(), QStringList(unknownFailure(s_missing)));
    QCOMPARE(store.calls(), noCalls());
}

void QuickActionReaderTest::firstPackageWins_data()
{
    QTest::addColumn<QStringList>("packages");
    QTest::addColumn<QString>("shown");
    QTest::newRow("first") << path("b/a") << text("b");
    QTest::newRow("first that is not empty") << QStringList{text(""), text("b"), text("a")} << text("b");
    QTest::newRow("empty one later") << QStringList{text("a"), text("")} << text("a");
    QTest::newRow("triggered again") << path("b/a/b") << text("b");
    QTest::newRow("other triggered again") << path("b/a/a") << text("b");
}

void QuickActionReaderTest::firstPackageWins()
{
    QFETCH(QStringList, packages);
    QFETCH(QString, shown);
    Store store;
    const MessageLog log;
    QuickActionReader reader(nullptr);
    QList<QVariantList> expected;
    for (const QString &package : packages) {
        reader.trigger(actionOf(s_missing, package));
        expected.append(callFor(shown));
    }
    settleFailures();
    QCOMPARE(log.take().size(), packages.size());
    QCOMPARE(store.calls(), expected);
}

void QuickActionReaderTest::packageOfAnotherCallDoesNotCount_data()
{
    QTest::addColumn<QVariantMap>("other");
    const QVariantMap other = actionOf(s_missing, text("other"));
    QTest::newRow("service") << with(other, "remote-service", text("com.velka.Missing"));
    QTest::newRow("path") << with(other, "remote-path", text("/com/velka/object2"));
    QTest::newRow("interface") << with(other, "remote-interface", text("com.velka.interfac"));
    QTest::newRow("method") << with(other, "remote-method", text("Act"));
}

void QuickActionReaderTest::packageOfAnotherCallDoesNotCount()
{
    QFETCH(QVariantMap, other);
    Store store;
    const MessageLog log;
    QuickActionReader reader(nullptr);
    reader.trigger(other);
    reader.trigger(actionOf(s_missing));
    reader.trigger(actionOf(s_missing, text("own")));
    settleFailures();
    QCOMPARE(log.take().size(), 3);
    QCOMPARE(store.calls(),
             (QList<QVariantList>{callFor(text("other")), callFor(text("own")), callFor(text("own"))}));
}

void QuickActionReaderTest::missingStoreIsSilent()
{
    const MessageLog log;
    QuickActionReader reader(nullptr);
    reader.trigger(actionOf(s_missing, text("package")));
    settleFailures();
    settle();
    QCOMPARE(log.take(), QStringList(unknownFailure(s_missing)));
}

void QuickActionReaderTest::targetMayMissAService()
{
    Store store;
    Target target(s_service, raise(s_serviceUnknown, text("not here")));
    const MessageLog log;
    QuickActionReader reader(nullptr);
    reader.trigger(actionOf(s_service, text("package")));
    settle();
    QCOMPARE(target.calls().size(), 1);
    settleFailures();
    QCOMPARE(log.take(), QStringList(failure(s_service, s_serviceUnknown + text(" not here"))));
    QCOMPARE(store.calls(), QList<QVariantList>{callFor(text("package"))});
}

void QuickActionReaderTest::showStorePageSendsTheName_data()
{
    QTest::addColumn<QString>("package");
    QTest::newRow("name") << text("velka-settings-action");
    QTest::newRow("empty") << text("");
    QTest::newRow("percent signs") << text("%1 %6");
    QTest::newRow("non-ASCII") << QStringLiteral(u"\u00e4");
}

void QuickActionReaderTest::showStorePageSendsTheName()
{
    QFETCH(QString, package);
    Store store;
    const MessageLog log;
    QuickActionReader(nullptr).showStorePage(package);
    settle();
    QCOMPARE(store.calls(), QList<QVariantList>{callFor(package)});
    QCOMPARE(log.take(), QStringList());
}

void QuickActionReaderTest::hugePackageNameIsNotSent()
{
    const MessageLog log;
    QuickActionReader(nullptr).showStorePage(QString(40 * 1024 * 1024, QLatin1Char('x')));
    settle();
    QCOMPARE(log.take(),
             QStringList(logged(text("call to com.velka.velkastore failed: QDBusError("
                                     "\"org.freedesktop.DBus.Error.InvalidArgs\", \"The call is too large\")"))));
}

void QuickActionReaderTest::noReplyIsSilent()
{
    Store store;
    Target target(s_service, raise(s_noReply, text("none")));
    const MessageLog log;
    QuickActionReader reader(nullptr);
    reader.trigger(actionOf(s_service, text("package")));
    settle();
    QCOMPARE(target.calls().size(), 1);
    settleFailures();
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(store.calls(), noCalls());
}

void QuickActionReaderTest::targetMayDieInACall()
{
    Store store;
    Target target(s_service, text("os.kill(os.getpid(), 9)"));
    const MessageLog log;
    QuickActionReader reader(nullptr);
    reader.trigger(actionOf(s_service, text("package")));
    QTRY_VERIFY(!target.isOnBus());
    settleFailures();
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(store.calls(), noCalls());
    reader.trigger(actionOf(s_service, text("package")));
    settleFailures();
    QCOMPARE(log.take(), QStringList(unknownFailure(s_service)));
    QCOMPARE(store.calls(), QList<QVariantList>{callFor(text("package"))});
}

void QuickActionReaderTest::otherErrorIsOnlyLogged_data()
{
    QTest::addColumn<QString>("error");
    QTest::addColumn<QString>("message");
    QTest::newRow("of the target") << text("com.velka.Error") << text("It failed.");
    QTest::newRow("denied") << text("org.freedesktop.DBus.Error.AccessDenied") << text("No!");
    QTest::newRow("like a missing service") << text("org.freedesktop.DBus.Error.ServiceUnknown2") << text("a");
    QTest::newRow("like no reply") << text("org.freedesktop.DBus.Error.NoReply2") << text("a");
    QTest::newRow("timeout") << text("org.freedesktop.DBus.Error.Timeout") << text("a");
    QTest::newRow("no message") << text("com.velka.Error") << text("");
    QTest::newRow("percent signs") << text("com.velka.Error") << text("%1 %5 %6 %L1 %%");
    QTest::newRow("non-ASCII") << text("com.velka.Error") << QStringLiteral(u"\u00e4 \u20ac");
}

void QuickActionReaderTest::otherErrorIsOnlyLogged()
{
    QFETCH(QString, error);
    QFETCH(QString, message);
    Store store;
    Target target(s_service, raise(error, message));
    const MessageLog log;
    QuickActionReader reader(nullptr);
    reader.trigger(actionOf(s_service, text("package")));
    settle();
    QCOMPARE(target.calls().size(), 1);
    settleFailures();
    QCOMPARE(log.take(), QStringList(failure(s_service, error + QLatin1Char(' ') + message)));
    QCOMPARE(store.calls(), noCalls());
}

void QuickActionReaderTest::unknownMethodIsOnlyLogged()
{
    Store store;
    const MessageLog log;
    QuickActionReader reader(nullptr);
    reader.trigger({{text("remote-service"), text("com.velka.velkastore")},
                    {text("remote-path"), text("/StoreClient")},
                    {text("remote-interface"), text("com.velka.velkastore")},
                    {text("remote-method"), text("hide")},
                    {text("requires-package"), text("package")}});
    settle();
    QCOMPARE(store.calls(), noCalls());
    settleFailures();
    const QStringList messages = log.take();
    QCOMPARE(messages.size(), 1);
    const QString expected = logged(
        text("Failed to send dbus call to: service=com.velka.velkastore path=/StoreClient "
             "interface=com.velka.velkastore method=hide. Error was: "
             "org.freedesktop.DBus.Error.UnknownMethod "));
    QVERIFY2(messages[0].startsWith(expected), qPrintable(messages[0]));
    QCOMPARE(store.calls(), noCalls());
}

void QuickActionReaderTest::unrecordedCallIsOnlyLogged()
{
    Store store;
    const MessageLog log;
    QuickActionReader reader(nullptr);
    reader.sendRemoteCall(actionOf(s_missing, text("package")),
                          SLOT(triggerActionError(QDBusError, QDBusMessage)));
    settleFailures();
    QCOMPARE(log.take(), QStringList(unknownFailure(s_missing)));
    QCOMPARE(store.calls(), noCalls());
}

void QuickActionReaderTest::foreignCallIsOnlyLogged()
{
    Store store;
    const MessageLog log;
    QuickActionReader reader(nullptr);
    reader.trigger(actionOf(s_missing, text("package")));
    const QString foreign = text("com.velka.foreign");
    QVERIFY(QDBusConnection::sessionBus().callWithCallback(
        QDBusMessage::createMethodCall(foreign, s_path, s_interface, s_method), &reader, nullptr,
        SLOT(triggerActionError(QDBusError, QDBusMessage))));
    settleFailures();
    QCOMPARE(log.take(), (QStringList{unknownFailure(s_missing), unknownFailure(foreign)}));
    QCOMPARE(store.calls(), QList<QVariantList>{callFor(text("package"))});
}

void QuickActionReaderTest::answersMayComeOutOfOrder()
{
    const QStringList services{text("com.velka.first"), text("com.velka.second"), text("com.velka.third")};
    const QString error = text("com.velka.Error");
    Target first(services[0], raise(error, text("of the first")));
    Target second(services[1], raise(error, text("of the second")));
    Target third(services[2], raise(error, text("of the third")));
    const MessageLog log;
    QuickActionReader reader(nullptr);
    first.suspend();
    second.suspend();
    for (const QString &service : services) {
        reader.trigger(actionOf(service));
    }
    settle();
    QCOMPARE(third.calls().size(), 1);
    settle();
    QCOMPARE(log.take(), QStringList(failure(services[2], text("com.velka.Error of the third"))));
    second.resume();
    QCOMPARE(second.calls().size(), 1);
    settle();
    QCOMPARE(log.take(), QStringList(failure(services[1], text("com.velka.Error of the second"))));
    first.resume();
    QCOMPARE(first.calls().size(), 1);
    settle();
    QCOMPARE(log.take(), QStringList(failure(services[0], text("com.velka.Error of the first"))));
}

void QuickActionReaderTest::readerMayDieFirst()
{
    Store store;
    Target target(s_service, raise(s_serviceUnknown, text("too late")));
    const MessageLog log;
    QObject parent;
    auto reader = new QuickActionReader(&parent);
    target.suspend();
    reader->trigger(actionOf(s_service, text("package")));
    settle();
    delete reader;
    target.resume();
    QCOMPARE(target.calls().size(), 1);
    settleFailures();
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(store.calls(), noCalls());
}

void QuickActionReaderTest::refusesInvalidNames_data()
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

void QuickActionReaderTest::refusesInvalidNames()
{
    QFETCH(QVariantMap, action);
    const auto name = [&action](const char *key) { return action.value(text(key)).toString(); };
    const QDBusError error = objectionTo(QDBusMessage::createMethodCall(
        name("remote-service"), name("remote-path"), name("remote-interface"), name("remote-method")));
    Store store;
    const MessageLog log;
    QuickActionReader reader(nullptr);
    reader.trigger(action);
    QCOMPARE(log.take(),
             QStringList(logged(text("Failed to initialize dbus call to: service=") + name("remote-service")
                                + text(" path=") + name("remote-path") + text(" interface=")
                                + name("remote-interface") + text(" method=") + name("remote-method")
                                + text(". Error was: org.freedesktop.DBus.Error.InvalidArgs ") + error.message()
                                + text(" %6"))));
    settleFailures(); // over the same connection, which is alive
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(store.calls(), noCalls());
}

// Qt prints no more of a message than what comes before the character.
void QuickActionReaderTest::refusesNullCharacter()
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

void QuickActionReaderTest::refusesHostileArguments_data()
{
    QTest::addColumn<QVariantList>("arguments");
    QTest::addColumn<QString>("objection");
    QVariantList numbers;
    for (int i = 0; i < 10000; ++i) {
        numbers.append(double(i));
    }
    QTest::newRow("10,000") << numbers << text("There are too many arguments");
    QTest::newRow("400 deep") << QVariantList{nested(400)} << text("The arguments are nested too deeply");
    QTest::newRow("40 MiB") << QVariantList{QString(40 * 1024 * 1024, QLatin1Char('x'))}
                            << text("The call is too large");
}

void QuickActionReaderTest::refusesHostileArguments()
{
    QFETCH(QVariantList, arguments);
    QFETCH(QString, objection);
    Target target;
    const MessageLog log;
    QuickActionReader reader(nullptr);
    reader.trigger(with(actionOf(s_service), "remote-arguments", arguments));
    QCOMPARE(log.take(), QStringList(queueFailure(objection)));
    settle();
    QCOMPARE(target.calls(), noCalls());
    reader.trigger(actionOf(s_service));
    settle();
    QCOMPARE(target.calls().size(), 1);
    QCOMPARE(log.take(), QStringList());
}

// Qt has no type of D-Bus for it. The call is queued for all that Qt knows then.
void QuickActionReaderTest::nullArgumentIsNotSent_data()
{
    QTest::addColumn<QVariant>("argument");
    QTest::addColumn<QString>("reason");
    const QString null = text("Unregistered type std::nullptr_t passed in arguments");
    QTest::newRow("null") << QVariant::fromValue(nullptr) << null;
    QTest::newRow("null in a list") << QVariant(QVariantList{1.0, QVariant::fromValue(nullptr)}) << null;
    QTest::newRow("invalid") << QVariant() << text("Variant containing QVariant::Invalid passed in arguments");
}

void QuickActionReaderTest::nullArgumentIsNotSent()
{
    QFETCH(QVariant, argument);
    QFETCH(QString, reason);
    Target target;
    const MessageLog log;
    QuickActionReader reader(nullptr);
    reader.trigger(with(actionOf(s_service), "remote-arguments", QVariantList{argument}));
    settle();
    QCOMPARE(
        log.take().filter(text("QuickActionReader")),
        QStringList(failure(s_service, text("org.freedesktop.DBus.Error.Failed Marshalling failed: ") + reason)));
    QCOMPARE(target.calls(), noCalls());
}

void QuickActionReaderTest::nullInAMapIsRefused()
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
    QCOMPARE(log.take(), QStringList(queueFailure(error.message())));
    settle();
    QCOMPARE(target.calls(), noCalls());
}

void QuickActionReaderTest::remoteActionString_data()
{
    QTest::addColumn<QVariantMap>("action");
    QTest::addColumn<QString>("expected");
    const QVariantList arguments{true,
                                 2.0,
                                 text("three"),
                                 QVariant::fromValue(nullptr),
                                 QVariantList{4.0},
                                 QVariantMap{{text("five"), QVariantList()}}};
    QTest::newRow("no arguments") << actionOf(s_service)
                                  << text("com.velka.service /com/velka/object com.velka.interface act");
    QTest::newRow("arguments") << with(actionOf(s_service), "remote-arguments", arguments)
                               << MRemoteAction(s_service, s_path, s_interface, s_method, arguments).toString();
    QTest::newRow("empty map") << QVariantMap() << text("   ");
    QTest::newRow("arguments only") << QVariantMap{{text("remote-arguments"), arguments}}
                                    << MRemoteAction({}, {}, {}, {}, arguments).toString();
    QTest::newRow("hostile") << QVariantMap{{text("remote-service"), text("%1")},
                                            {text("remote-arguments"), QVariantList{nested(400)}}}
                             << MRemoteAction(text("%1"), {}, {}, {}, {nested(400)}).toString();
}

void QuickActionReaderTest::remoteActionString()
{
    QFETCH(QVariantMap, action);
    const MessageLog log;
    QTEST(QuickActionReader(nullptr).remoteActionString(action), "expected");
    QCOMPARE(log.take(), QStringList());
}

void QuickActionReaderTest::remoteActionStringSendsNothing()
{
    Target target;
    const MessageLog log;
    const QuickActionReader reader(nullptr);
    QVERIFY(!reader.remoteActionString(actionOf(s_service, text("package"))).isEmpty());
    settle();
    QCOMPARE(target.calls(), noCalls());
    QCOMPARE(log.take(), QStringList());
}

QTEST_GUILESS_MAIN(QuickActionReaderTest)
#include "tst_quickactionreader.moc"
