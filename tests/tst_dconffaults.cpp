// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "dconftool.h"
#include "favoritesedits.h"
#include "messagelog.h"
#include "privateworld.h"
#include "registry/pluginregistry.h"
#include "text.h"
#include "world.h"

#include <mgconfitem.h>

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

#include <csignal>

class DconfFaultsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void serviceDiesInAnEdit_data();
    void serviceDiesInAnEdit();
    void serviceDiesBeforeTheList();
    void serviceDiesInSet_data();
    void serviceDiesInSet();
    void damagedDatabase_data();
    void damagedDatabase();
};

/// Programs that begin with a user database: run in processes of their own.
class DatabaseWorlds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void soundDatabase();
    void otherEndianDatabase();
    void emptyDatabase();
    void truncatedDatabase();
    void corruptDatabase();
};

namespace
{
/// Stops dconf's service. The destructor kills it.
class StoppedService
{
public:
    StoppedService()
        : m_process(pid_t(QDBusConnection::sessionBus().interface()->servicePid(text("ca.desrt.dconf"))))
    {
        m_monitor.start(text("dbus-monitor"), {text("--session"), text("interface='ca.desrt.dconf.Writer'")});
        waitForMessage("NameLost"); // a connection that becomes a monitor loses its name
        if (m_process <= 0 || ::kill(m_process, SIGSTOP) != 0) {
            qFatal("There is no dconf service to stop");
        }
    }

    ~StoppedService()
    {
        ::kill(m_process, SIGKILL);
        m_monitor.kill();
        m_monitor.waitForFinished();
    }

    /// Returns when the bus has received a change, which dconf sends from a thread of its own.
    void waitForChange()
    {
        waitForMessage("Change");
    }

private:
    void waitForMessage(const QByteArray &member)
    {
        while (!m_messages.contains("member=" + member + '\n')) {
            if (!m_monitor.waitForReadyRead()) {
                qFatal("There is no %s on the bus", member.constData());
            }
            m_messages += m_monitor.readAllStandardOutput();
        }
    }

    const pid_t m_process;
    QProcess m_monitor;
    QByteArray m_messages;
};

/// Returns a database that a machine of the other byte order would have written. The tables are the same, the signature
/// and the values are not.
QByteArray swapped(QByteArray database)
{
    const QByteArray number("\x02\x01\0\0\0i", 6); // 258 and its type
    const int place = database.indexOf(number);
    if (place < 0) {
        qFatal("The number is not in the database");
    }
    for (int word : {0, 4, place}) {
        std::reverse(database.begin() + word, database.begin() + word + 4);
    }
    return database;
}

QString databaseFile()
{
    return text("config/dconf/user");
}

/// Returns a database with the favourites a, b and c and with a number.
QByteArray soundDatabaseContent()
{
    World::writeFile(text("profile"), "user-db:user\n");
    QDir().mkpath(text("keys"));
    QDir().mkpath(QFileInfo(databaseFile()).path());
    World::writeFile(text("keys/favorites"),
                     "[apps/velka-settings]\nfavorites=['a', 'b', 'c']\nfavoritesModified=true\nnumber=258\n");
    dconf(QStringList{text("compile"), databaseFile(), text("keys")});
    QFile file(databaseFile());
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("dconf did not write a database");
    }
    return file.readAll();
}

/// Edits the favourites in a program that starts with @p database, from which @p favorites can be read.
void beginWith(const QByteArray &database, const QStringList &favorites)
{
    World::writeFile(databaseFile(), database);
    const PrivateBus bus;
    const MessageLog log;
    const GLibWarnings warnings;
    declareSections(path("a/b/c/d"));
    WatchedFavorites model;
    QCOMPARE(model.names(), favorites);
    const MGConfItem number(text("/apps/velka-settings/number"));
    const QVariant readNumber = favorites.isEmpty() ? QVariant() : QVariant(258);
    QCOMPARE(number.value(), readNumber);
    QVERIFY(pagesFollowTheRegistry());
    QVERIFY(GLibWarnings::count() <= 1);

    model->addFavorite(text("d"));
    QCOMPARE(model.names(), favorites + path("d"));
    const QByteArray expected = favorites.isEmpty() ? "['d']" : "['a', 'b', 'c', 'd']";
    QTRY_COMPARE(stored(WatchedFavorites::keyOfTests()), expected);
    QTRY_COMPARE(stored(WatchedFavorites::userModifiedKeyOfTests()), QByteArrayLiteral("true"));
    QVERIFY(model.isConsistent());
    QCOMPARE(number.value(), readNumber);
    model->removeFavorite(text("d"));
    waitForWrites();
    QCOMPARE(stored(WatchedFavorites::keyOfTests()), favorites.isEmpty() ? "@as []" : "['a', 'b', 'c']");
    store(WatchedFavorites::keyOfTests(), text("['c', 'a']"));
    QTRY_COMPARE(model->count(), 2);
    QVERIFY(model.isConsistent());
    QVERIFY(GLibWarnings::count() <= 1);
    QCOMPARE(log.take(), QStringList());
}
}

void DconfFaultsTest::serviceDiesInAnEdit_data()
{
    favoritesEdits();
}

void DconfFaultsTest::serviceDiesInAnEdit()
{
    QFETCH(FavoritesEdit, edit);
    storeThreeFavorites();
    WatchedFavorites model{QString()}; // with a key, the flag would be sent when the service dies
    const MessageLog log;
    const GLibWarnings warnings;
    {
        StoppedService service;
        edit(&model);
        QVERIFY(model.isConsistent());
        QVERIFY(storedFavorites() != path("a/b/c"));
        service.waitForChange();
        QVERIFY(pagesFollowTheRegistry());
    }
    QTRY_COMPARE(GLibWarnings::count(), 1);
    QTRY_VERIFY(areThreeFavoritesStored());
    QTRY_VERIFY(model.isConsistent());
    QCOMPARE(WatchedFavorites().names(), path("a/b/c"));

    edit(&model);
    QTRY_VERIFY(!areThreeFavoritesStored());
    settle();
    QVERIFY(!areThreeFavoritesStored());
    QVERIFY(model.isConsistent());
    QCOMPARE(GLibWarnings::count(), 1);
    QCOMPARE(log.take(), QStringList());
}

// The list is sent to the next service; only the flag is lost.
void DconfFaultsTest::serviceDiesBeforeTheList()
{
    storeThreeFavorites();
    storeUserModified(false);
    waitForWrites();
    settle();
    WatchedFavorites model;
    const GLibWarnings warnings;
    {
        StoppedService service;
        model->addFavorite(text("d"));
        QVERIFY(model->userModified());
        service.waitForChange();
    }
    QTRY_COMPARE(stored(WatchedFavorites::keyOfTests()), QByteArrayLiteral("['a', 'b', 'c', 'd']"));
    QTRY_VERIFY(!model->userModified());
    QCOMPARE(model.names(), path("a/b/c/d"));
    QVERIFY(model.isConsistent());
    model->removeFavorite(text("d"));
    QTRY_COMPARE(stored(WatchedFavorites::userModifiedKeyOfTests()), QByteArrayLiteral("true"));
    QCOMPARE(GLibWarnings::count(), 1);
}

void DconfFaultsTest::serviceDiesInSet_data()
{
    QTest::addColumn<QVariant>("before");
    QTest::addColumn<QVariant>("after");
    QTest::newRow("first value") << QVariant() << QVariant(1);
    QTest::newRow("other value") << QVariant(1) << QVariant(2);
    QTest::newRow("other type") << QVariant(1) << QVariant(text("1"));
    QTest::newRow("reset") << QVariant(1) << QVariant();
}

void DconfFaultsTest::serviceDiesInSet()
{
    QFETCH(QVariant, before);
    QFETCH(QVariant, after);
    MGConfItem item(text("/test/key"));
    MGConfItem other(text("/test/other"));
    item.set(before);
    other.set(text("kept"));
    waitForWrites();
    settle(); // until the service has replied
    QSignalSpy changes(&item, &MGConfItem::valueChanged);
    const GLibWarnings warnings;
    {
        StoppedService service;
        item.set(after);
        QCOMPARE(item.value(), after);
        QCOMPARE(other.value(), QVariant(text("kept")));
        service.waitForChange();
    }
    QTRY_COMPARE(GLibWarnings::count(), 1);
    QTRY_COMPARE(changes.count(), 2); // there and back
    QCOMPARE(item.value(), before);
    QCOMPARE(item.value().userType(), before.userType());
    QCOMPARE(stored(other.key()), QByteArrayLiteral("'kept'"));

    item.set(after);
    settle();
    QCOMPARE(item.value(), after);
    QCOMPARE(changes.count(), 3);
    QCOMPARE(GLibWarnings::count(), 1);
}

void DconfFaultsTest::damagedDatabase_data()
{
    QTest::addColumn<QString>("world");
    const QMetaObject &worlds = DatabaseWorlds::staticMetaObject;
    for (int i = worlds.methodOffset(); i < worlds.methodCount(); ++i) {
        QTest::newRow(worlds.method(i).name().constData()) << QString::fromLatin1(worlds.method(i).name());
    }
}

void DconfFaultsTest::damagedDatabase()
{
    QFETCH(QString, world);
    const QTemporaryDir directory;
    QVERIFY(runInWorld(directory.path(), world));
}

void DatabaseWorlds::soundDatabase()
{
    beginWith(soundDatabaseContent(), path("a/b/c"));
}

void DatabaseWorlds::otherEndianDatabase()
{
    beginWith(swapped(soundDatabaseContent()), path("a/b/c"));
}

void DatabaseWorlds::emptyDatabase()
{
    soundDatabaseContent();
    beginWith({}, {});
}

void DatabaseWorlds::truncatedDatabase()
{
    const QByteArray sound = soundDatabaseContent();
    beginWith(sound.left(sound.size() / 2), {});
}

void DatabaseWorlds::corruptDatabase()
{
    QByteArray database = soundDatabaseContent();
    QRandomGenerator random(3);
    for (char &byte : database) {
        byte = char(random.bounded(256));
    }
    beginWith(database, {});
}

int main(int argc, char *argv[])
{
    DconfFaultsTest test;
    DatabaseWorlds worlds;
    return runTest(argc, argv, &test, &worlds);
}

#include "tst_dconffaults.moc"
