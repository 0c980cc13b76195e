// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "common/constants.h"
#include "common/messages.h"
#include "dconftool.h"
#include "messagelog.h"
#include "models/favoritesmodel.h"
#include "registry/entrysources.h"
#include "registry/entrytree.h"
#include "registry/loadobserver.h"
#include "registry/pluginregistry.h"
#include "registry/treeitem.h"
#include "simulatedshortage.h"
#include "text.h"
#include "world.h"

#include <QSignalSpy>
#include <QTest>

#include <cerrno>
#include <functional>
#include <memory>
#include <optional>

// What the registry reads while the process can open no file.
class RegistryShortageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void directoryIsListedLater();
    void registryIsFilledLater();
    void fileIsReadLater();
    void fileOfGroupIsReadLater();
    void order();
    void maskingIsPostponed();
    void maskingIsPostponedAndChanged();
    void maskingWaitsForTheBlacklist();
    void fileLoadedByName();
    void favoritesReadTheBlacklistLater();
    void eachShortageIsLogged();
};

namespace
{
const QString s_tryingAgain = settingsWarning(Messages::TryingAgain, QStringLiteral("Too many open files"));
const QString s_cannotReadBlacklist = QStringLiteral("warning default: %1 \"%2\"")
                                          .arg(QLatin1String(Messages::CannotReadBlacklist),
                                               Constants::FavoritesBlacklistFile);

QString file(const char *name)
{
    return text(name) + text(".json");
}

void declare(const char *name)
{
    World::writeEntries(file(name), declaring(name, {name}));
}

/// Lets there be no descriptors from the listing of the directory on.
class Exhauster : public LoadObserver
{
public:
    void scanStarted(int newFiles) override
    {
        if (newFiles > 0 && exhausts) {
            descriptors = std::make_unique<SimulatedShortage>();
        }
    }
    void fileRead(const FileReport &report) override
    {
        Q_UNUSED(report)
    }
    void entryRead(const QString &fileName, int index, EntryStatus status, const TreeItem *item) override
    {
        Q_UNUSED(fileName)
        Q_UNUSED(index)
        Q_UNUSED(status)
        Q_UNUSED(item)
    }
    void catalogInstalled(const QString &catalog, const CatalogTranslator *translator) override
    {
        Q_UNUSED(catalog)
        Q_UNUSED(translator)
    }

    bool exhausts = true;
    std::unique_ptr<SimulatedShortage> descriptors;
};

QStringList paths(const EntryTree &tree)
{
    return World::paths(tree.root());
}
}

void RegistryShortageTest::init()
{
    World::reset();
    PluginRegistry::instance(); // watches its dconf key
    waitForWrites(); // by then GLib has its thread and pipes: without descriptors for these it ends the process
    declare("a");
    declare("b");
}

void RegistryShortageTest::directoryIsListedLater()
{
    PluginRegistry registry;
    const QSignalSpy changes(&registry, &PluginRegistry::contentChanged);
    World::removeEntries(file("a"));
    declare("c");
    const MessageLog log;
    {
        const SimulatedShortage none;
        for (int i = 0; i < 3; ++i) {
            World::rescan(&registry);
            QCOMPARE(::paths(registry), path("a/b"));
        }
    }
    QCOMPARE(changes.count(), 0);
    QTRY_COMPARE(::paths(registry), path("b/c"));
    QCOMPARE(changes.count(), 1);
    QCOMPARE(log.take(), QStringList{s_tryingAgain});
}

void RegistryShortageTest::registryIsFilledLater()
{
    const MessageLog log;
    std::optional<SimulatedShortage> none(std::in_place);
    const PluginRegistry registry;
    QCOMPARE(::paths(registry), QStringList());
    none.reset();
    QTRY_COMPARE(::paths(registry), path("a/b"));
    QCOMPARE(log.take(), (QStringList{s_cannotReadBlacklist, s_tryingAgain}));
}

void RegistryShortageTest::fileIsReadLater()
{
    Exhauster exhauster;
    QObject translators;
    EntryTree tree(EntrySources::ofSystem(), &translators, &exhauster);
    const MessageLog log;
    QVERIFY(!tree.scan());
    QVERIFY(tree.isShort());
    QCOMPARE(paths(tree), QStringList());
    exhauster.descriptors.reset();
    exhauster.exhausts = false;
    QVERIFY(tree.scan());
    QVERIFY(!tree.isShort());
    QCOMPARE(paths(tree), path("a/b"));
    QCOMPARE(log.take(), QStringList{s_tryingAgain});
}

void RegistryShortageTest::fileOfGroupIsReadLater()
{
    World::writeEntries(file("b"), R"({"required_group": "settings", "entries": [{"path": "b"}]})");
    declare("c");
    bool isShort = true;
    EntrySources sources = EntrySources::ofSystem();
    sources.isMember = [&isShort](uid_t, const QString &) {
        errno = isShort ? EMFILE : 0;
        return !isShort;
    };
    QObject translators;
    EntryTree tree(sources, &translators);
    const MessageLog log;
    QVERIFY(tree.scan());
    QCOMPARE(paths(tree), path("a"));
    isShort = false;
    QVERIFY(tree.scan());
    QCOMPARE(paths(tree), path("a/b/c"));
    QCOMPARE(log.take(), QStringList{s_tryingAgain});
}

// Of two files with one path the later one wins, as ever.
void RegistryShortageTest::order()
{
    World::writeEntries(file("a"), declaring("A", {"x"}));
    World::writeEntries(file("b"), R"({"required_group": "settings", "entries": [{"path": "x", "title": "B"}]})");
    World::writeEntries(file("c"), declaring("C", {"x"}));
    bool isShort = true;
    EntrySources sources = EntrySources::ofSystem();
    sources.isMember = [&isShort](uid_t, const QString &) {
        errno = isShort ? EMFILE : 0;
        return !isShort;
    };
    QObject translators;
    EntryTree tree(sources, &translators);
    const MessageLog log;
    tree.scan();
    QCOMPARE(tree.root()->lookup(path("x"))->title(), text("A"));
    isShort = false;
    tree.scan();
    QCOMPARE(tree.root()->lookup(path("x"))->title(), text("C"));
}

void RegistryShortageTest::maskingIsPostponed()
{
    QObject translators;
    EntryTree tree(EntrySources::ofSystem(), &translators);
    tree.scan();
    const MessageLog log;
    {
        const SimulatedShortage none;
        QVERIFY(!tree.changeMasked({text("a")}));
        QVERIFY(tree.isShort());
        QVERIFY(!tree.scan());
    }
    QCOMPARE(paths(tree), path("a/b"));
    QVERIFY(tree.scan());
    QVERIFY(!tree.isShort());
    QCOMPARE(paths(tree), path("b"));
    {
        const SimulatedShortage none;
        QVERIFY(!tree.changeMasked({}));
    }
    QCOMPARE(paths(tree), path("b"));
    QVERIFY(tree.scan());
    QCOMPARE(paths(tree), path("a/b"));
    QCOMPARE(log.take(), (QStringList{s_tryingAgain, s_tryingAgain}));
}

void RegistryShortageTest::maskingIsPostponedAndChanged()
{
    QObject translators;
    EntryTree tree(EntrySources::ofSystem(), &translators);
    tree.scan();
    const MessageLog log;
    {
        const SimulatedShortage none;
        tree.changeMasked({text("a")});
    }
    QVERIFY(tree.changeMasked({text("b")}));
    QCOMPARE(paths(tree), path("a"));
    QVERIFY(!tree.scan());
    QCOMPARE(paths(tree), path("a"));
    QVERIFY(!tree.isShort());
}

void RegistryShortageTest::maskingWaitsForTheBlacklist()
{
    World::writeBlacklist(R"(["a"])");
    const MessageLog log;
    std::optional<SimulatedShortage> none(std::in_place);
    const PluginRegistry registry;
    none.reset();
    World::setMasked(path("a/b"));
    QTRY_COMPARE(::paths(registry), path("a"));
    QCOMPARE(log.take(), (QStringList{s_cannotReadBlacklist, s_tryingAgain}));
}

void RegistryShortageTest::fileLoadedByName()
{
    PluginRegistry registry;
    registry.removeEntriesForFile(file("a"));
    const MessageLog log;
    {
        const SimulatedShortage none;
        registry.addEntriesForFile(file("a"));
    }
    QCOMPARE(::paths(registry), path("b"));
    QCOMPARE(log.take(), QStringList{settingsWarning(Messages::CannotReadEntries, file("a"))});
    registry.addEntriesForFile(file("a"));
    QCOMPARE(::paths(registry), path("a/b"));
}

void RegistryShortageTest::favoritesReadTheBlacklistLater()
{
    World::writeEntries(file("pages"),
                        R"({"entries": [{"path": "a", "type": "page"}, {"path": "c", "type": "page"}]})");
    World::rescan(PluginRegistry::instance());
    World::writeBlacklist(R"(["a"])");
    const MessageLog log;
    std::optional<SimulatedShortage> none(std::in_place);
    FavoritesModel model;
    none.reset();
    model.setFilter({text("grid_favorites_page")});
    model.setShowPotential(true);
    model.componentComplete();
    QCOMPARE(model.indexOf(text("a")), 0);
    QTRY_COMPARE(model.indexOf(text("a")), -1);
    QCOMPARE(model.indexOf(text("c")), 0);
    QCOMPARE(log.take(), QStringList{s_cannotReadBlacklist});
}

void RegistryShortageTest::eachShortageIsLogged()
{
    PluginRegistry registry;
    const MessageLog log;
    for (int i = 0; i < 2; ++i) {
        {
            const SimulatedShortage none;
            World::rescan(&registry);
            World::rescan(&registry);
        }
        QCOMPARE(log.take(), QStringList{s_tryingAgain});
        World::rescan(&registry);
        QCOMPARE(log.take(), QStringList());
    }
}

QTEST_GUILESS_MAIN(RegistryShortageTest)
#include "tst_registryshortage.moc"
