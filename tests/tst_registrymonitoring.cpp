// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/pluginregistry.h"

#include "common/constants.h"
#include "common/messages.h"
#include "growth.h"
#include "messagelog.h"
#include "registry/treeitem.h"
#include "text.h"
#include "world.h"

#include <mgconfitem.h>
#include <orvantaaccesscontrol.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLoggingCategory>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <grp.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
QString fileOf(const PluginRegistry &registry, const char *joined)
{
    const TreeItem *item = registry.getItem(path(joined));
    return item ? item->fromFile() : text("no node");
}

QString entriesPath(const char *name)
{
    return Constants::EntriesDirectory + QLatin1Char('/') + text(name);
}
}

class RegistryMonitoringTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void scansOnceAfterTwoSeconds();
    void burstIsOneBatch();
    void changeRestartsTheDelay();
    void fileVanishes();
    void fileIsRenamed();
    void fileIsRenamedToFake();
    void fileIsRewritten();
    void refusedFileIsNotRetried();
    void unchangedDirectoryIsSilent();
    void nodesDieBeforeContentChanged();
    void missingDirectory();
    void treeIsDumpedAtInfoLevel();
    void treeIsDumpedAfterContentChanged();

    void manyVanishedFilesInOnePass();
};

void RegistryMonitoringTest::init()
{
    World::reset();
}

void RegistryMonitoringTest::scansOnceAfterTwoSeconds()
{
    const PluginRegistry registry;
    const auto *delay = registry.findChild<QTimer *>();
    QCOMPARE(delay->interval(), 2000);
    QVERIFY(delay->isSingleShot());
}

void RegistryMonitoringTest::burstIsOneBatch()
{
    PluginRegistry registry;
    QSignalSpy changes(&registry, &PluginRegistry::contentChanged);
    QElapsedTimer sinceLast;
    for (const char *name : {"a", "b", "c"}) {
        World::writeEntries(text(name) + text(".json"), declaring(name, {name}));
        sinceLast.start();
    }
    QVERIFY(changes.wait(10000));
    QVERIFY2(sinceLast.elapsed() >= 1900, qPrintable(QString::number(sinceLast.elapsed())));
    QCOMPARE(paths(registry), path("a/b/c"));
    QCOMPARE(changes.count(), 1);
}

void RegistryMonitoringTest::changeRestartsTheDelay()
{
    PluginRegistry registry;
    QSignalSpy changes(&registry, &PluginRegistry::contentChanged);
    QElapsedTimer sinceSecond;
    World::writeEntries(text("a.json"), declaring("A", {"a"}));
    QTimer::singleShot(1500, this, [&] {
        World::writeEntries(text("b.json"), declaring("B", {"b"}));
        sinceSecond.start();
    });
    QVERIFY(changes.wait(10000));
    QVERIFY(sinceSecond.isValid());
    QVERIFY2(sinceSecond.elapsed() >= 1900, qPrintable(QString::number(sinceSecond.elapsed())));
    QCOMPARE(paths(registry), path("a/b"));
    QCOMPARE(changes.count(), 1);
}

void RegistryMonitoringTest::fileVanishes()
{
    World::writeEntries(text("a.json"), declaring("A", {"a"}));
    World::writeEntries(text("b.json"), declaring("B", {"b"}));
    PluginRegistry registry;
    QSignalSpy changes(&registry, &PluginRegistry::contentChanged);
    World::removeEntries(text("a.json"));
    World::rescan(&registry);
    QCOMPARE(paths(registry), path("b"));
    QCOMPARE(changes.count(), 1);
}

void RegistryMonitoringTest::fileIsRenamed()
{
    World::writeEntries(text("a.json"), declaring("A", {"x"}));
    PluginRegistry registry;
    QSignalSpy changes(&registry, &PluginRegistry::contentChanged);
    QVERIFY(QFile::rename(entriesPath("a.json"), entriesPath("b.json")));
    World::rescan(&registry);
    QCOMPARE(fileOf(registry, "x"), text("b.json"));
    QCOMPARE(changes.count(), 1);
}

void RegistryMonitoringTest::fileIsRenamedToFake()
{
    World::writeEntries(text("x.json"), declaring("X", {"x"}));
    PluginRegistry registry;
    QVERIFY(QFile::rename(entriesPath("x.json"), entriesPath("fakex.json")));
    World::rescan(&registry);
    QCOMPARE(paths(registry), QStringList());
}

void RegistryMonitoringTest::fileIsRewritten()
{
    World::writeEntries(text("x.json"), declaring("X", {"x"}));
    PluginRegistry registry;
    QSignalSpy changes(&registry, &PluginRegistry::contentChanged);
    World::writeEntries(text("x.json"), declaring("Y", {"y"}));
    World::rescan(&registry);
    QCOMPARE(paths(registry), path("x"));
    QCOMPARE(changes.count(), 0);
    // It is loaded after its name was missing for a scan.
    World::removeEntries(text("x.json"));
    World::rescan(&registry);
    World::writeEntries(text("x.json"), declaring("Y", {"y"}));
    World::rescan(&registry);
    QCOMPARE(paths(registry), path("y"));
    QCOMPARE(changes.count(), 2);
}

void RegistryMonitoringTest::refusedFileIsNotRetried()
{
    World::writeEntries(text("x.json"), "broken");
    const MessageLog log;
    PluginRegistry registry;
    QCOMPARE(log.take().size(), 1);
    QSignalSpy changes(&registry, &PluginRegistry::contentChanged);
    World::writeEntries(text("x.json"), declaring("X", {"x"}));
    World::writeEntries(text("another.json"), "broken");
    World::rescan(&registry);
    QCOMPARE(changes.count(), 1); // a file was added, whatever its content
    QCOMPARE(log.take().size(), 1);
    World::rescan(&registry);
    QCOMPARE(changes.count(), 1);
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(paths(registry), QStringList());
}

void RegistryMonitoringTest::unchangedDirectoryIsSilent()
{
    World::writeEntries(text("x.json"), declaring("X", {"x"}));
    PluginRegistry registry;
    QSignalSpy changes(&registry, &PluginRegistry::contentChanged);
    World::writeEntries(text("readme.txt"), "not a registration file");
    World::rescan(&registry);
    QCOMPARE(changes.count(), 0);
}

void RegistryMonitoringTest::nodesDieBeforeContentChanged()
{
    World::writeEntries(text("a.json"), declaring("A", {"a/b", "a"}));
    PluginRegistry registry;
    QStringList events;
    for (const char *joined : {"a", "a/b"}) {
        connect(registry.getItem(path(joined)), &QObject::destroyed, this, [&, joined] {
            events.append(text(joined));
            QCOMPARE(registry.getItem(path(joined)), nullptr);
        });
    }
    connect(&registry, &PluginRegistry::contentChanged, this, [&] { events.append(text("contentChanged")); });
    World::removeEntries(text("a.json"));
    World::rescan(&registry);
    QCOMPARE(events, (QStringList{text("a/b"), text("a"), text("contentChanged")}));
}

void RegistryMonitoringTest::missingDirectory()
{
    QVERIFY(QDir(Constants::EntriesDirectory).removeRecursively());
    const MessageLog log;
    PluginRegistry registry;
    World::rescan(&registry);
    QCOMPARE(paths(registry), QStringList());
    QCOMPARE(log.take(), QStringList());
}

void RegistryMonitoringTest::treeIsDumpedAtInfoLevel()
{
    World::writeEntries(text("x.json"), declaring("X", {"x"}));
    PluginRegistry registry;
    const MessageLog log;
    World::rescan(&registry);
    QCOMPARE(log.take(), QStringList());
    QLoggingCategory::setFilterRules(text("org.orvantaos.settings.framework.info=true"));
    World::rescan(&registry);
    QLoggingCategory::setFilterRules({});
    const QStringList dump = log.take();
    QCOMPARE(dump.size(), 1);
    QVERIFY(dump.constFirst().contains(text("0 key: \"x\" data: ")));
}

void RegistryMonitoringTest::treeIsDumpedAfterContentChanged()
{
    PluginRegistry registry;
    World::writeEntries(text("x.json"), declaring("X", {"x"}));
    const MessageLog log;
    QStringList before;
    connect(&registry, &PluginRegistry::contentChanged, this, [&] { before = log.take(); });
    QLoggingCategory::setFilterRules(text("org.orvantaos.settings.framework.info=true"));
    World::rescan(&registry);
    QLoggingCategory::setFilterRules({});
    const QString dump = text("0 key: \"x\" data: ");
    QCOMPARE(before.filter(dump).size(), 0);
    QCOMPARE(before.filter(text("parsing")).size(), 1);
    QCOMPARE(log.take().filter(dump).size(), 1);
}

void RegistryMonitoringTest::manyVanishedFilesInOnePass()
{
    // The entries of all files are below one long chain of nodes. A pass for each file would be quadratic.
    const auto work = [](int files) {
        World::reset();
        for (int i = 0; i < files; ++i) {
            const QByteArray name = QByteArray::number(i);
            World::writeEntries(QString::fromLatin1(name) + text(".json"), declaring(name, {"a/b/" + name}));
        }
        PluginRegistry registry;
        QDir(Constants::EntriesDirectory).removeRecursively();
        QSignalSpy changes(&registry, &PluginRegistry::contentChanged);
        CpuTimer timer;
        timer.start();
        World::rescan(&registry);
        const qint64 elapsed = timer.nsecsElapsed();
        return changes.count() == 1 && paths(registry).isEmpty() ? elapsed : -1;
    };
    QVERIFY(Growth::isLinear(work, 500));
}

QTEST_GUILESS_MAIN(RegistryMonitoringTest)
#include "tst_registrymonitoring.moc"
