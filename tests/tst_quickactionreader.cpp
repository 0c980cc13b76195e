// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "actions/quickactionreader.h"

#include "messagelog.h"
#include "quickactions.h"
#include "text.h"

#include <mremoteaction.h>

#include <QDBusMessage>
#include <QDebug>
#include <QTest>

#include <memory>

using namespace QuickActions;

namespace
{
/// Returns the calls with the types of all their values.
QString typed(const QList<QVariantList> &calls)
{
    QString text;
    QDebug(&text) << calls;
    return text;
}

/// A value that counts its copies.
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
    void noReplyIsSilent();
    void targetMayDieInACall();
    void otherErrorIsOnlyLogged_data();
    void otherErrorIsOnlyLogged();
    void unknownMethodIsOnlyLogged();
    void answersMayComeOutOfOrder();
    void readerMayDieFirst();
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
    QCOMPARE(messagesOf({actionOf(s_service, text("package"))}, &target), QStringList());
    QCOMPARE(target.calls().size(), 1);
}

void QuickActionReaderTest::noReplyIsSilent()
{
    Store store;
    Target target(s_service, raise(s_noReply, text("none")));
    QCOMPARE(messagesOf({actionOf(s_service, text("package"))}, &target), QStringList());
    QCOMPARE(target.calls().size(), 1);
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
    QCOMPARE(messagesOf({actionOf(s_service, text("package"))}, &target),
             QStringList(failure(actionOf(s_service), error + QLatin1Char(' ') + message)));
    QCOMPARE(target.calls().size(), 1);
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
    QCOMPARE(log.take(), QStringList(failure(actionOf(services[2]), text("com.velka.Error of the third"))));
    second.resume();
    QCOMPARE(second.calls().size(), 1);
    settle();
    QCOMPARE(log.take(), QStringList(failure(actionOf(services[1]), text("com.velka.Error of the second"))));
    first.resume();
    QCOMPARE(first.calls().size(), 1);
    settle();
    QCOMPARE(log.take(), QStringList(failure(actionOf(services[0]), text("com.velka.Error of the first"))));
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
                                            {text("remote-arguments"), QVariantList{inLists(400, true)}}}
                             << MRemoteAction(text("%1"), {}, {}, {}, {inLists(400, true)}).toString();
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
