// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "messagelog.h"
#include "privateworld.h"
#include "quickactions.h"
#include "registry/pluginregistry.h"
#include "text.h"
#include "toolkit/entryaction.h"
#include "world.h"

#include <QElapsedTimer>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPointer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace QuickActions;

namespace
{
const QString s_file = QStringLiteral("action.json");
const QString s_entryPath = QStringLiteral("page/action");
const QString s_invalidArgs = QStringLiteral("org.freedesktop.DBus.Error.InvalidArgs");
const QStringList s_none;
// Far below the time-out of a call
constexpr int NoTime = 5000;

void install(const QVariantMap &params, const char *type = "action")
{
    PluginRegistry *const registry = PluginRegistry::instance();
    registry->removeEntriesForFile(s_file);
    const QJsonObject entry{{text("path"), s_entryPath},
                            {text("type"), text(type)},
                            {text("params"), QJsonObject::fromVariantMap(params)}};
    World::writeEntries(s_file, "{\"entries\": [" + QJsonDocument(entry).toJson() + "]}");
    registry->addEntriesForFile(s_file);
    Q_EMIT registry->contentChanged();
}

void uninstall()
{
    PluginRegistry::instance()->removeEntriesForFile(s_file);
    Q_EMIT PluginRegistry::instance()->contentChanged();
}

/// The action of the installed entry, and a record of its signals.
struct Fixture {
    Fixture()
    {
        entry.setPath(s_entryPath);
        action.setEntry(&entry);
        QObject::connect(&action, &EntryAction::entryChanged, &action, [this] { changes.append(text("entry")); });
        QObject::connect(&action, &EntryAction::stateChanged, &action, [this] { changes.append(text("state")); });
        QObject::connect(&action, &EntryAction::errorChanged, &action, [this] { changes.append(text("error")); });
        QObject::connect(&action, &EntryAction::requiredPackageChanged, &action,
                         [this] { changes.append(text("package")); });
    }

    /// Returns true if the state becomes @p state.
    bool becomes(EntryAction::State state)
    {
        return QTest::qWaitFor([this, state] { return action.state() == state; });
    }

    QStringList changes;
    SettingsEntry entry;
    EntryAction action;
};
}

/// The outcome of an entry's action.
class EntryActionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void succeeds();
    void fails_data();
    void fails();
    void doesNotWait();
    void refusesWhatIsNoAction_data();
    void refusesWhatIsNoAction();
    void refusesCallsThatMustNotBeSent();
    void invalidNamesAreLoggedByQt();
    void missingServiceBringsTheStore();
    void missingStoreIsSilent();
    void missingServiceWithoutPackage();
    void runsOnceAtATime();
    void runsAgain();
    void goneEntryDoesNotStopTheCall();
    void deletedEntryDoesNotStopTheCall();
    void anotherEntryBeginsAgain_data();
    void anotherEntryBeginsAgain();
    void otherEntryIsRunAtOnce();
    void otherPathIsRunAtOnce();
    void handlersMayRunItAgain();
    void deletedWhileRunning();
    void deletedByItsHandlers();
    void withoutBus();
};

/// Run in a process of its own.
class EntryActionWorlds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutBus();
};

void EntryActionTest::init()
{
    World::reset();
    install(actionOf(s_service));
}

void EntryActionTest::succeeds()
{
    Target target(s_service, text("ret = 5"), text("sb"), text("i"));
    install(with(actionOf(s_service), "remote-arguments", QVariantList{text("a"), true}));
    const MessageLog log;
    Fixture fixture;
    QCOMPARE(fixture.action.state(), EntryAction::Idle);
    fixture.action.run();
    QCOMPARE(fixture.action.state(), EntryAction::Running);
    QVERIFY(fixture.becomes(EntryAction::Succeeded));
    QCOMPARE(fixture.action.errorName(), QString());
    QCOMPARE(fixture.action.errorString(), QString());
    QCOMPARE(fixture.action.requiredPackage(), QString());
    QCOMPARE(fixture.changes, path("state/state"));
    QCOMPARE(target.calls(), (QList<QVariantList>{{text("sb"), text("a"), true}}));
    QCOMPARE(log.take(), s_none);
}

void EntryActionTest::fails_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("message");
    QTest::newRow("error") << raise(text("com.velka.Error.Full"), text("The card is full"))
                           << text("com.velka.Error.Full") << text("The card is full");
    QTest::newRow("unknown service of its own")
        << raise(s_serviceUnknown, text("no")) << s_serviceUnknown << text("no");
    QTest::newRow("no reply") << raise(s_noReply, text("late")) << s_noReply << text("late");
}

void EntryActionTest::fails()
{
    QFETCH(QString, code);
    QFETCH(QString, name);
    QFETCH(QString, message);
    const Target target(s_service, code);
    const MessageLog log;
    Fixture fixture;
    fixture.action.run();
    QVERIFY(fixture.becomes(EntryAction::Failed));
    QCOMPARE(fixture.action.errorName(), name);
    QCOMPARE(fixture.action.errorString(), message);
    QCOMPARE(fixture.action.requiredPackage(), QString());
    QCOMPARE(fixture.changes, path("state/error/state"));
    QCOMPARE(log.take(), s_none);
}

void EntryActionTest::doesNotWait()
{
    Target target;
    Fixture fixture;
    target.suspend();
    QElapsedTimer timer;
    timer.start();
    fixture.action.run();
    QVERIFY(timer.elapsed() < NoTime);
    QCOMPARE(fixture.action.state(), EntryAction::Running);
    target.resume();
    QVERIFY(fixture.becomes(EntryAction::Succeeded));
}

void EntryActionTest::refusesWhatIsNoAction_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("message");
    QTest::newRow("page") << text("page") << text("The entry is not an action");
    QTest::newRow("control") << s_entryPath << text("The entry is not an action");
    QTest::newRow("no entry") << text("page/none") << text("There is no entry");
    QTest::newRow("no path") << text("") << text("There is no entry");
}

void EntryActionTest::refusesWhatIsNoAction()
{
    QFETCH(QString, path);
    QFETCH(QString, message);
    install(actionOf(s_service), "control");
    Fixture fixture;
    fixture.entry.setPath(path);
    for (int i = 0; i < 2; ++i) {
        fixture.action.run();
        QCOMPARE(fixture.action.state(), EntryAction::Failed);
        QCOMPARE(fixture.action.errorName(), s_invalidArgs);
        QCOMPARE(fixture.action.errorString(), message);
    }
    EntryAction withoutEntry;
    withoutEntry.run();
    QCOMPARE(withoutEntry.errorString(), text("There is no entry"));
}

void EntryActionTest::refusesCallsThatMustNotBeSent()
{
    Target target;
    Store store;
    const MessageLog log;
    const QVariantMap action = actionOf(s_service, text("package"));
    for (const QVariantMap &refused :
         {QVariantMap(), with(action, "remote-service", text("")), with(action, "remote-service", text("abc")),
          with(action, "remote-path", text("/org/freedesktop/DBus/Local")),
          with(action, "remote-path", text("//")), with(action, "remote-method", text("a.b")),
          with(action, "remote-arguments", QVariantList{QVariant()}),
          with(action, "remote-arguments", inLists(40, text("a")).toList())}) {
        install(refused);
        Fixture fixture;
        fixture.action.run();
        QVERIFY(fixture.becomes(EntryAction::Failed));
        QVERIFY(!fixture.action.errorName().isEmpty());
        QVERIFY(!fixture.action.errorString().isEmpty());
    }
    settle();
    QCOMPARE(target.calls(), noCalls());
    QCOMPARE(store.calls(), noCalls());
    QVERIFY(QDBusConnection::sessionBus().isConnected());
}

void EntryActionTest::invalidNamesAreLoggedByQt()
{
    install(QVariantMap());
    const MessageLog log;
    Fixture fixture;
    fixture.action.run();
    QVERIFY(fixture.becomes(EntryAction::Failed));
    QCOMPARE(fixture.action.errorString(), text("Object path cannot be empty"));
    QCOMPARE(log.take(), QStringList(text("warning default: QDBusConnection: error: could not send message to "
                                          "service \"\" path \"\" interface \"\" member \"\": "
                                          "Object path cannot be empty")));
}

void EntryActionTest::missingServiceBringsTheStore()
{
    Store store;
    install(actionOf(s_missing, text("package")));
    const MessageLog log;
    Fixture fixture;
    fixture.action.run();
    QVERIFY(fixture.becomes(EntryAction::Failed));
    QCOMPARE(fixture.action.errorName(), s_serviceUnknown);
    QCOMPARE(fixture.action.requiredPackage(), text("package"));
    QCOMPARE(fixture.changes, path("state/error/package/state"));
    settle();
    QCOMPARE(store.calls(), QList<QVariantList>{callFor(text("package"))});
    QCOMPARE(log.take(), s_none);

    const Target installed(s_missing);
    fixture.action.run();
    QCOMPARE(fixture.action.requiredPackage(), QString());
    QVERIFY(fixture.becomes(EntryAction::Succeeded));
}

void EntryActionTest::missingStoreIsSilent()
{
    install(actionOf(s_missing, text("package")));
    const MessageLog log;
    Fixture fixture;
    fixture.action.run();
    QVERIFY(fixture.becomes(EntryAction::Failed));
    settleFailures();
    QCOMPARE(log.take(), s_none);
}

void EntryActionTest::missingServiceWithoutPackage()
{
    Store store;
    install(actionOf(s_missing));
    Fixture fixture;
    fixture.action.run();
    QVERIFY(fixture.becomes(EntryAction::Failed));
    QCOMPARE(fixture.action.requiredPackage(), QString());
    settle();
    QCOMPARE(store.calls(), noCalls());
}

void EntryActionTest::runsOnceAtATime()
{
    Target target;
    Fixture fixture;
    for (int i = 0; i < 10; ++i) {
        fixture.action.run();
    }
    QVERIFY(fixture.becomes(EntryAction::Succeeded));
    settle();
    QCOMPARE(target.calls().size(), 1);
}

void EntryActionTest::runsAgain()
{
    Fixture fixture;
    fixture.action.run();
    QVERIFY(fixture.becomes(EntryAction::Failed));
    Target target;
    fixture.changes.clear();
    fixture.action.run();
    QCOMPARE(fixture.action.errorName(), QString());
    QVERIFY(fixture.becomes(EntryAction::Succeeded));
    QCOMPARE(fixture.changes, path("error/state/state"));
    fixture.action.run();
    QVERIFY(fixture.becomes(EntryAction::Succeeded));
    QCOMPARE(target.calls().size(), 2);
}

void EntryActionTest::goneEntryDoesNotStopTheCall()
{
    Target target;
    Fixture fixture;
    target.suspend();
    fixture.action.run();
    uninstall();
    QVERIFY(!fixture.entry.exists());
    QCOMPARE(fixture.action.state(), EntryAction::Running);
    target.resume();
    QVERIFY(fixture.becomes(EntryAction::Succeeded));
    fixture.action.run();
    QCOMPARE(fixture.action.state(), EntryAction::Failed);
    QCOMPARE(fixture.action.errorString(), text("There is no entry"));
}

void EntryActionTest::deletedEntryDoesNotStopTheCall()
{
    Target target;
    auto entry = std::make_unique<SettingsEntry>();
    entry->setPath(s_entryPath);
    EntryAction action;
    action.setEntry(entry.get());
    action.run();
    QSignalSpy changes(&action, &EntryAction::entryChanged);
    entry.reset();
    QCOMPARE(changes.count(), 1);
    QCOMPARE(action.entry(), nullptr);
    QTRY_COMPARE(action.state(), EntryAction::Succeeded);
    action.run();
    QCOMPARE(action.state(), EntryAction::Failed);
}

void EntryActionTest::anotherEntryBeginsAgain_data()
{
    QTest::addColumn<bool>("hasReply");
    QTest::addColumn<bool>("setsPath");
    QTest::newRow("running, entry") << false << false;
    QTest::newRow("running, path") << false << true;
    QTest::newRow("done, entry") << true << false;
    QTest::newRow("done, path") << true << true;
}

void EntryActionTest::anotherEntryBeginsAgain()
{
    QFETCH(bool, hasReply);
    QFETCH(bool, setsPath);
    Target target;
    Fixture fixture;
    fixture.action.run();
    QVERIFY(!hasReply || fixture.becomes(EntryAction::Succeeded));
    if (setsPath) {
        fixture.entry.setPath(text("page"));
    } else {
        fixture.action.setEntry(nullptr);
    }
    QCOMPARE(fixture.action.state(), EntryAction::Idle);
    settle();
    settle();
    QCOMPARE(target.calls().size(), 1);
    QCOMPARE(fixture.action.state(), EntryAction::Idle);
    fixture.action.run();
    QCOMPARE(fixture.action.state(), EntryAction::Failed);
}

/// The action of the entry before may still be running.
void EntryActionTest::otherEntryIsRunAtOnce()
{
    Target target;
    Fixture fixture;
    SettingsEntry other;
    other.setPath(s_entryPath);
    connect(&fixture.action, &EntryAction::entryChanged, &fixture.action, &EntryAction::run);
    fixture.action.run();
    fixture.action.setEntry(&other);
    QCOMPARE(fixture.action.state(), EntryAction::Running);
    QVERIFY(fixture.becomes(EntryAction::Succeeded));
    settle();
    QCOMPARE(target.calls().size(), 2);
    QCOMPARE(fixture.changes, path("state/entry/state"));
    fixture.action.setEntry(nullptr);
    QCOMPARE(fixture.action.state(), EntryAction::Failed);
    QCOMPARE(fixture.action.errorString(), text("There is no entry"));
    QCOMPARE(fixture.changes, path("state/entry/state/entry/error/state"));
}

/// The handler is called before the action follows the path.
void EntryActionTest::otherPathIsRunAtOnce()
{
    Target target;
    SettingsEntry entry;
    EntryAction action;
    connect(&entry, &SettingsEntry::pathChanged, &action, &EntryAction::run);
    action.setEntry(&entry);
    for (const char *path : {"page", "page/action", "/page/action"}) {
        entry.setPath(text(path));
    }
    QCOMPARE(action.state(), EntryAction::Running);
    QTRY_COMPARE(action.state(), EntryAction::Succeeded);
    settle();
    QCOMPARE(target.calls().size(), 2);
    entry.setPath(text("page"));
    QCOMPARE(action.errorString(), text("The entry is not an action"));
}

/// Each signal is emitted only if its value differs from the one that was announced last.
void EntryActionTest::handlersMayRunItAgain()
{
    install(actionOf(s_missing));
    const auto changesWithRetryIn = [](void (EntryAction::*signal)()) {
        Fixture fixture;
        EntryAction &action = fixture.action;
        QStringList changes;
        int failures = 0;
        connect(&action, &EntryAction::stateChanged,
                [&] { changes.append(text("state %1").arg(action.state())); });
        connect(&action, &EntryAction::errorChanged,
                [&] { changes.append(text("error ") + action.errorName().section(QLatin1Char('.'), -1)); });
        connect(&action, signal, [&] {
            if (action.state() == EntryAction::Failed && ++failures == 1) {
                action.run();
            }
        });
        action.run();
        return QTest::qWaitFor([&] { return failures == 2; }) ? changes.join(text(", ")) : QString();
    };
    QCOMPARE(changesWithRetryIn(&EntryAction::stateChanged),
             text("state 1, error ServiceUnknown, state 3, error , state 1, error ServiceUnknown, state 3"));
    QCOMPARE(changesWithRetryIn(&EntryAction::errorChanged),
             text("state 1, error ServiceUnknown, error , error ServiceUnknown, state 3"));
}

void EntryActionTest::deletedWhileRunning()
{
    Target target;
    auto fixture = std::make_unique<Fixture>();
    target.suspend();
    fixture->action.run();
    fixture.reset();
    target.resume();
    settle();
    settle();
    QCOMPARE(target.calls().size(), 1);
}

void EntryActionTest::deletedByItsHandlers()
{
    install(actionOf(s_missing, text("package")));
    SettingsEntry entry;
    entry.setPath(s_entryPath);
    for (const auto signal : {&EntryAction::errorChanged, &EntryAction::requiredPackageChanged,
                              &EntryAction::stateChanged, &EntryAction::entryChanged}) {
        auto *const action = new EntryAction;
        const QPointer<EntryAction> guard(action);
        action->setEntry(&entry);
        connect(action, signal, this, [action] { delete action; });
        action->run();
        settleFailures();
        if (guard) {
            action->setEntry(nullptr);
        }
        QVERIFY(!guard);
    }
}

void EntryActionTest::withoutBus()
{
    const QTemporaryDir directory;
    QVERIFY(runInWorld(directory.path(), text("withoutBus")));
}

void EntryActionWorlds::withoutBus()
{
    install(actionOf(s_service, text("package")));
    Fixture fixture;
    fixture.action.run();
    QVERIFY(fixture.becomes(EntryAction::Failed));
    QCOMPARE(fixture.action.errorName(), text("org.freedesktop.DBus.Error.Disconnected"));
}

int main(int argc, char *argv[])
{
    EntryActionTest test;
    EntryActionWorlds worlds;
    return runTest(argc, argv, &test, &worlds);
}

#include "tst_entryaction.moc"
