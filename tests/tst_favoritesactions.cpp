// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "dbuspeer.h"
#include "messagelog.h"
#include "text.h"
#include "watchedfavorites.h"
#include "world.h"

#include <QTest>

#include <memory>

/// The actions of the rows, as a service in another process receives them.
class FavoritesActionsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void callsWithWhatParamsSay();
    void actionsOfRowsThatMoved();
    void modelDiesWithACallInFlight();
    void nothingIsCalledBeforeCompletion();
    void badCallsAreReported_data();
    void badCallsAreReported();
};

namespace
{
const QString s_service = text("org.example.Actions");
const QString s_path = text("/actions");

QByteArray action(const QByteArray &name, const QByteArray &method, const QByteArray &arguments)
{
    return R"({"path": ")" + name + R"(", "type": "action", "params": {"remote-service": "org.example.Actions",
        "remote-path": "/actions", "remote-interface": "org.example.Actions", "remote-method": ")"
           + method + R"(", "remote-arguments": )" + arguments + "}}";
}

class Peer : public DBusPeer
{
public:
    explicit Peer(const QString &code = {})
        : DBusPeer(QDBusConnection::SessionBus, s_service, s_path, s_service)
    {
        addMethod(text("First"), text("dbs"), code);
        addMethod(text("Second"), text(""), code);
    }
};
}

void FavoritesActionsTest::init()
{
    World::reset();
    declareJson(action("a", "First", R"([1, true, "text"])") + ',' + action("b", "Second", "[]"));
    storeFavorites(path("a/b"));
}

void FavoritesActionsTest::callsWithWhatParamsSay()
{
    Peer peer;
    WatchedFavorites favorites;
    favorites->setFilter({text("action")});
    QCOMPARE(favorites.names(), path("a/b"));
    const MessageLog log;
    favorites->triggerAction(0);
    favorites->triggerAction(1);
    favorites->triggerAction(0);
    QTRY_COMPARE(peer.calls(text("First")).size(), 2);
    const QVariantList first{text("dbs"), 1.0, true, text("text")};
    QCOMPARE(peer.calls(text("First")), (QList<QVariantList>{first, first}));
    QTRY_COMPARE(peer.calls(text("Second")), QList<QVariantList>{{text("")}});
    QCOMPARE(MessageLog::take(), QStringList());
}

void FavoritesActionsTest::actionsOfRowsThatMoved()
{
    Peer peer;
    WatchedFavorites favorites;
    favorites->setFilter({text("action")});
    favorites->move(0, 1);
    favorites->triggerAction(0);
    QTRY_COMPARE(peer.calls(text("Second")).size(), 1);
    QCOMPARE(peer.calls(text("First")).size(), 0);
}

void FavoritesActionsTest::modelDiesWithACallInFlight()
{
    Peer peer(text("raise dbus.exceptions.DBusException('no', name='org.example.No')"));
    const MessageLog log;
    {
        WatchedFavorites survivor;
        survivor->setFilter({text("action")});
        auto victim = std::make_unique<WatchedFavorites>();
        (*victim)->setFilter({text("action")});
        peer.suspend();
        (*victim)->triggerAction(0);
        survivor->triggerAction(1);
        victim.reset();
        peer.resume();
        QString failures;
        QTRY_VERIFY(!failures.append(MessageLog::take().join(QLatin1Char('\n'))).isEmpty());
        QVERIFY2(failures.contains(text("method=Second. Error was: org.example.No no")), qPrintable(failures));
        QVERIFY2(!failures.contains(text("method=First")), qPrintable(failures));
    }
    QCOMPARE(peer.calls(text("First")).size(), 1);
    QCOMPARE(MessageLog::take(), QStringList());
}

void FavoritesActionsTest::nothingIsCalledBeforeCompletion()
{
    Peer peer;
    const MessageLog log;
    FavoritesModel favorites;
    favorites.setFilter({text("action")});
    favorites.triggerAction(0);
    declareSections(path("c")); // the registry's content changes
    QCOMPARE(favorites.rowCount(), 0);
    QCOMPARE(peer.calls(text("First")).size(), 0);
    QCOMPARE(MessageLog::take(),
             QStringList{text("info default: <Unknown File>: QML FavoritesModel: invalid index 0")});
}

void FavoritesActionsTest::badCallsAreReported_data()
{
    QTest::addColumn<QByteArray>("params");
    QTest::addColumn<QString>("message");
    const auto row = [](const char *title, const QByteArray &params, const char *message) {
        QTest::newRow(title) << params << text("QML QuickActionReader: ") + text(message);
    };
    row("no names", "{}",
        "Failed to send dbus call to: service= path= interface= method=. Error was: "
        "org.qtproject.QtDBus.Error.InvalidObjectPath Object path cannot be empty");
    row("one part", R"({"remote-service": "abc", "remote-path": "/", "remote-method": "m"})",
        "Failed to initialize dbus call to: service=abc path=/ interface= method=m. Error was: "
        "org.freedesktop.DBus.Error.InvalidArgs The name of the service has no dot %6");
    row("null",
        R"({"remote-service": "a.b", "remote-path": "/", "remote-method": "m", "remote-arguments": [[null]]})",
        "Failed to initialize dbus call to: service=a.b path=/ interface= method=m. Error was: "
        "org.freedesktop.DBus.Error.InvalidArgs The arguments hold a null %6");
}

void FavoritesActionsTest::badCallsAreReported()
{
    QFETCH(QByteArray, params);
    QFETCH(QString, message);
    declareJson(R"({"path": "bad", "type": "action", "params": )" + params + "}," + action("b", "Second", "[]"));
    storeFavorites(path("bad/b"));
    Peer peer;
    WatchedFavorites favorites;
    favorites->setFilter({text("action")});
    QCOMPARE(favorites.names(), path("bad/b"));
    const MessageLog log;
    favorites->triggerAction(0);
    QStringList messages;
    QTRY_COMPARE((messages += log.take().filter(text("QuickActionReader"))).size(), 1);
    QVERIFY2(messages[0].endsWith(message), qPrintable(messages[0]));
    favorites->triggerAction(1);
    QTRY_COMPARE(peer.calls(text("Second")).size(), 1);
    QCOMPARE(log.take(), QStringList());
}

QTEST_GUILESS_MAIN(FavoritesActionsTest)

#include "tst_favoritesactions.moc"
