// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "common/constants.h"
#include "dconftool.h"
#include "messagelog.h"
#include "nextfunction.h"
#include "registry/directoryfollower.h"
#include "registry/pluginregistry.h"
#include "simulatedshortage.h"
#include "text.h"
#include "world.h"

#include <QDir>
#include <QFile>
#include <QFileSystemWatcher>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <sys/inotify.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <functional>
#include <memory>

namespace
{
int s_freeWatches = INT_MAX;
}

/// Behind the limit of watches, as the kernel does it.
extern "C" int inotify_add_watch(int fd, const char *name, uint32_t mask) noexcept
{
    static auto *const next = nextFunction(&inotify_add_watch, "inotify_add_watch");
    if (s_freeWatches == 0) {
        errno = ENOSPC;
        return -1;
    }
    --s_freeWatches;
    return next(fd, name, mask);
}

using Step = std::function<void()>;
Q_DECLARE_METATYPE(Step)

// How the registry follows the place of its directory, whatever stands there.
class RegistryFollowingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void followsReplacedDirectory_data();
    void followsReplacedDirectory();
    void followsDirectoryBehindLink();
    void missingDirectoryIsNotFollowed();
    void otherNamesCostNothing();
    void restsWhenAllIsWatched();
    void withoutWatches_data();
    void withoutWatches();
    void withoutInotify();
};

namespace
{
const QString s_parent = QStringLiteral("/usr/share/velka-settings");
const QString s_away = QStringLiteral("/usr/share/away");

void rename(const QString &from, const QString &to)
{
    if (!QDir().rename(from, to)) {
        qFatal("%s cannot be renamed to %s", qPrintable(from), qPrintable(to));
    }
}

void remove(const QString &path)
{
    if (!QDir(path).removeRecursively()) {
        qFatal("%s cannot be removed", qPrintable(path));
    }
}

void make(const QString &path)
{
    if (!QDir().mkpath(path)) {
        qFatal("%s cannot be made", qPrintable(path));
    }
}

void declare(const char *name)
{
    World::writeEntries(text(name) + text(".json"), declaring(name, {name}));
}

/// A registry that follows its directory at once.
std::unique_ptr<PluginRegistry> impatientRegistry()
{
    auto registry = std::make_unique<PluginRegistry>();
    registry->findChild<QTimer *>()->setInterval(0);
    return registry;
}

/// Whether the timer that looks at the directory is at work, which it is only where watches are missing.
bool looks(const PluginRegistry &registry)
{
    const QList<QTimer *> timers = registry.findChildren<QTimer *>();
    return std::any_of(timers.cbegin(), timers.cend(),
                       [](const QTimer *timer) { return timer->isActive() && !timer->isSingleShot(); });
}
}

void RegistryFollowingTest::init()
{
    remove(s_away);
    make(s_away);
    make(s_parent);
    World::reset();
    waitForWrites(); // by then GLib has its thread and pipes: without descriptors for these it ends the process
    declare("a");
}

void RegistryFollowingTest::cleanup()
{
    s_freeWatches = INT_MAX;
}

void RegistryFollowingTest::followsReplacedDirectory_data()
{
    QTest::addColumn<Step>("replace");
    const QString entries = Constants::EntriesDirectory;
    QTest::newRow("renamed away") << Step([=] {
        make(s_away + text("/new"));
        rename(entries, s_away + text("/old"));
        rename(s_away + text("/new"), entries);
    });
    QTest::newRow("removed") << Step([=] {
        remove(entries);
        make(entries);
    });
    QTest::newRow("removed, and made later") << Step([=] {
        remove(entries);
        QCoreApplication::processEvents();
        make(entries);
    });
    QTest::newRow("above it, renamed away") << Step([=] {
        make(s_away + text("/new/entries"));
        rename(s_parent, s_away + text("/old"));
        rename(s_away + text("/new"), s_parent);
    });
    QTest::newRow("above it, renamed away and made later") << Step([=] {
        rename(s_parent, s_away + text("/old"));
        QCoreApplication::processEvents();
        make(s_parent);
        QCoreApplication::processEvents();
        make(entries);
    });
    QTest::newRow("above it, removed") << Step([=] {
        remove(s_parent);
        make(entries);
    });
    QTest::newRow("several times") << Step([=] {
        for (int i = 0; i < 10; ++i) {
            rename(entries, s_away + text("/old%1").arg(i));
            make(entries);
            QCoreApplication::processEvents();
        }
    });
}

void RegistryFollowingTest::followsReplacedDirectory()
{
    QFETCH(Step, replace);
    const auto registry = impatientRegistry();
    const MessageLog log;
    replace();
    QTRY_COMPARE(paths(*registry), QStringList());
    declare("b");
    QTRY_COMPARE(paths(*registry), path("b"));
    declare("c");
    QTRY_COMPARE(paths(*registry), path("b/c"));
    QCOMPARE(registry->findChild<QFileSystemWatcher *>()->directories(), QStringList{Constants::EntriesDirectory});
    QVERIFY(!looks(*registry));
    QCOMPARE(log.take(), QStringList());
}

void RegistryFollowingTest::followsDirectoryBehindLink()
{
    make(s_away + text("/first/entries"));
    make(s_away + text("/second/entries"));
    remove(s_parent);
    QVERIFY(QFile::link(s_away + text("/first"), s_parent));
    declare("a");
    const auto registry = impatientRegistry();
    QCOMPARE(paths(*registry), path("a"));
    rename(s_away + text("/first"), s_away + text("/old"));
    QTRY_COMPARE(paths(*registry), QStringList());
    make(s_away + text("/first/entries"));
    declare("b");
    QTRY_COMPARE(paths(*registry), path("b"));
    QVERIFY(QFile::remove(s_parent));
    QVERIFY(QFile::link(s_away + text("/second"), s_parent));
    declare("c");
    QTRY_COMPARE(paths(*registry), path("c"));
    declare("d");
    QTRY_COMPARE(paths(*registry), path("c/d"));
    QVERIFY(QFile::remove(s_parent));
}

void RegistryFollowingTest::missingDirectoryIsNotFollowed()
{
    remove(Constants::EntriesDirectory);
    const PluginRegistry registry;
    make(Constants::EntriesDirectory);
    QCoreApplication::processEvents();
    QVERIFY(registry.findChild<QFileSystemWatcher *>()->directories().isEmpty());
    QVERIFY(!registry.findChild<DirectoryFollower *>());
    QVERIFY(!registry.findChild<QTimer *>()->isActive());
}

void RegistryFollowingTest::otherNamesCostNothing()
{
    const auto registry = impatientRegistry();
    s_freeWatches = 0; // each look at the path would ask for one
    for (int i = 0; i < 100; ++i) {
        make(text("/usr/share/other%1").arg(i));
    }
    QCoreApplication::processEvents();
    QVERIFY(!looks(*registry));
    remove(Constants::EntriesDirectory);
    QTRY_VERIFY(looks(*registry));
    for (int i = 0; i < 100; ++i) {
        remove(text("/usr/share/other%1").arg(i));
    }
}

void RegistryFollowingTest::restsWhenAllIsWatched()
{
    const PluginRegistry registry;
    const QList<QTimer *> timers = registry.findChildren<QTimer *>();
    for (const QTimer *timer : timers) {
        QVERIFY(!timer->isActive());
    }
}

void RegistryFollowingTest::withoutWatches_data()
{
    QTest::addColumn<int>("watches");
    QTest::newRow("none") << 0;
    QTest::newRow("one") << 1;
    QTest::newRow("all but that of the directory") << 4;
}

void RegistryFollowingTest::withoutWatches()
{
    QFETCH(int, watches);
    s_freeWatches = watches;
    const MessageLog log;
    const auto registry = impatientRegistry();
    declare("b");
    QTRY_COMPARE_WITH_TIMEOUT(paths(*registry), path("a/b"), 10000);
    rename(Constants::EntriesDirectory, s_away + text("/old"));
    make(Constants::EntriesDirectory);
    declare("c");
    QTRY_COMPARE_WITH_TIMEOUT(paths(*registry), path("c"), 10000);
    QVERIFY(looks(*registry));
    const QStringList messages = log.take();
    QVERIFY2(messages.size() <= 1, qPrintable(messages.join(QLatin1Char('\n'))));
}

void RegistryFollowingTest::withoutInotify()
{
    const MessageLog log;
    std::unique_ptr<PluginRegistry> registry;
    {
        const SimulatedShortage none;
        registry = impatientRegistry();
    }
    QTRY_COMPARE_WITH_TIMEOUT(paths(*registry), path("a"), 10000);
    QCOMPARE(log.take().size(), 2); // of what could not be read
    rename(Constants::EntriesDirectory, s_away + text("/old"));
    make(Constants::EntriesDirectory);
    declare("b");
    QTRY_COMPARE_WITH_TIMEOUT(paths(*registry), path("b"), 10000);
    declare("c");
    QTRY_COMPARE_WITH_TIMEOUT(paths(*registry), path("b/c"), 10000);
    QCOMPARE(log.take(), QStringList());
}

QTEST_GUILESS_MAIN(RegistryFollowingTest)
#include "tst_registryfollowing.moc"
