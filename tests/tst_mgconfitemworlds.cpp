// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "dconftool.h"
#include "mgconfitem.h"
#include "privateworld.h"

#include <QDir>
#include <QFile>
#include <QLocalServer>
#include <QProcess>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <gio/gio.h>

#include <memory>

/// Tests that need a process, a home, a runtime directory and bus addresses of their own. The working directory is the
/// directory of the world.
class World : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void administratorsProfile();
    void profileIsMissing();
    void busDies();
    void busDiesBeforeItIsUsed();
    void noBus();
    void busNeverAnswers();
};

class MGConfItemWorldsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void worlds_data();
    void worlds();
};

void MGConfItemWorldsTest::worlds_data()
{
    QTest::addColumn<QString>("world");

    for (int i = World::staticMetaObject.methodOffset(); i < World::staticMetaObject.methodCount(); ++i) {
        const QByteArray world = World::staticMetaObject.method(i).name();
        QTest::newRow(world.constData()) << QString::fromLatin1(world);
    }
}

void MGConfItemWorldsTest::worlds()
{
    QFETCH(QString, world);
    const QTemporaryDir directory;
    QVERIFY(directory.isValid());
    QVERIFY(runInWorld(directory.path(), world));
}

namespace
{
void writeFile(const QString &name, const QByteArray &content)
{
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), qint64(content.size()));
}

void writeProfile(const QByteArray &otherDatabases = QByteArray())
{
    writeFile(QStringLiteral("profile"), "user-db:user\n" + otherDatabases);
}
}

void World::administratorsProfile()
{
    QVERIFY(QDir().mkdir(QStringLiteral("keys")));
    QVERIFY(QDir().mkdir(QStringLiteral("keys/locks")));
    writeFile(QStringLiteral("keys/defaults"), "[test]\ndefault=1\nlocked='admin'\n");
    writeFile(QStringLiteral("keys/locks/locks"), "/test/locked\n");
    dconf({QStringLiteral("compile"), QStringLiteral("site"), QStringLiteral("keys")});
    writeProfile("file-db:" + QDir::current().filePath(QStringLiteral("site")).toUtf8() + '\n');
    PrivateBus bus;

    MGConfItem item(QStringLiteral("/test/default"));
    QSignalSpy spy(&item, &MGConfItem::valueChanged);
    QCOMPARE(item.value(), QVariant(1));
    item.set(2);
    QCOMPARE(item.value(), QVariant(2));
    item.set(QVariant());
    QCOMPARE(item.value(), QVariant(1));
    QCOMPARE(spy.count(), 2);
    item.set(1);
    settle();
    QCOMPARE(spy.count(), 2);

    MGConfItem locked(QStringLiteral("/test/locked"));
    QSignalSpy lockedSpy(&locked, &MGConfItem::valueChanged);
    QCOMPARE(locked.value(), QVariant(QStringLiteral("admin")));
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(QStringLiteral("MGConfItem: cannot write \"/test/locked\": .+")));
    locked.set(QStringLiteral("user"));
    QCOMPARE(locked.value(), QVariant(QStringLiteral("admin")));
    locked.set(QVariant());
    QCOMPARE(locked.value(), QVariant(QStringLiteral("admin")));
    settle();
    QCOMPARE(locked.value(), QVariant(QStringLiteral("admin")));
    QCOMPARE(lockedSpy.count(), 0);
}

void World::profileIsMissing()
{
    MGConfItem item(QStringLiteral("/test/key"));
    QSignalSpy spy(&item, &MGConfItem::valueChanged);
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(QStringLiteral("MGConfItem: cannot write \"/test/key\": .+")));
    item.set(1);
    QVERIFY(!item.value().isValid());
    QCOMPARE(spy.count(), 0);
}

namespace
{
// The item notifies twice, there and back, or once if another thread has noticed the failure by the first time.
bool isReverted(const QSignalSpy &spy, const MGConfItem &item, const QVariant &value)
{
    return item.value() == value && spy.count() > 0;
}

/// Returns whether the shared connection of this process does not end it.
bool outlivesItsBus()
{
    GDBusConnection *bus = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr);
    const bool outlives = bus && !g_dbus_connection_get_exit_on_close(bus);
    g_clear_object(&bus);
    return outlives;
}

/// Runs the event loop, in which GIO would end the process after the bus, for as long as a program runs.
void outliveTheBus()
{
    QProcess program;
    QSignalSpy finished(&program, qOverload<int, QProcess::ExitStatus>(&QProcess::finished));
    program.start(QStringLiteral("dconf"), {QStringLiteral("list"), QStringLiteral("/")});
    QVERIFY(finished.wait());
}
}

void World::busDies()
{
    writeProfile();
    PrivateBus bus;
    MGConfItem item(QStringLiteral("/test/key"));
    item.set(QStringLiteral("kept"));
    settle();
    QTRY_COMPARE(stored(item.key()), QByteArrayLiteral("'kept'"));
    QTRY_VERIFY(outlivesItsBus());
    QSignalSpy spy(&item, &MGConfItem::valueChanged);

    bus.kill();
    for (const QString &lost : {QStringLiteral("lost"), QStringLiteral("lost again")}) {
        spy.clear();
        item.set(lost);
        QTRY_VERIFY(isReverted(spy, item, QStringLiteral("kept")));
        outliveTheBus();
        QCOMPARE(item.value(), QVariant(QStringLiteral("kept")));
        QCOMPARE(MGConfItem(item.key()).value(), QVariant(QStringLiteral("kept")));
        QCOMPARE(stored(item.key()), QByteArrayLiteral("'kept'"));
    }
}

void World::busDiesBeforeItIsUsed()
{
    writeProfile();
    PrivateBus bus;
    MGConfItem item(QStringLiteral("/test/key"));
    QTRY_VERIFY(isWatched(item.key()));
    QTRY_VERIFY(outlivesItsBus());
    bus.kill();
    QSignalSpy spy(&item, &MGConfItem::valueChanged);
    item.set(1);
    QTRY_VERIFY(isReverted(spy, item, QVariant()));
    outliveTheBus();
    QVERIFY(!item.value().isValid());
}

void World::noBus()
{
    writeProfile();
    MGConfItem item(QStringLiteral("/test/key"));
    QSignalSpy spy(&item, &MGConfItem::valueChanged);
    QVERIFY(!item.value().isValid());
    item.set(1);
    QTRY_VERIFY(isReverted(spy, item, QVariant()));
}

// A function that waits for the bus would never return here.
void World::busNeverAnswers()
{
    writeProfile();
    QLocalServer bus;
    QVERIFY(bus.listen(QDir::current().filePath(QStringLiteral("bus"))));
    auto item = std::make_unique<MGConfItem>(QStringLiteral("/test/key"));
    QSignalSpy spy(item.get(), &MGConfItem::valueChanged);
    QVERIFY(bus.waitForNewConnection(5000));
    item->set(1);
    QCOMPARE(item->value(), QVariant(1));
    item->set(2);
    QCOMPARE(item->value(), QVariant(2));
    QCOMPARE(spy.count(), 2);
    item.reset();
    QCOMPARE(MGConfItem(QStringLiteral("/test/key")).value(), QVariant(2));
}

int main(int argc, char *argv[])
{
    MGConfItemWorldsTest test;
    World world;
    return runTest(argc, argv, &test, &world);
}

#include "tst_mgconfitemworlds.moc"
