// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "common/messages.h"
#include "dconftool.h"
#include "growth.h"
#include "messagelog.h"
#include "registry/pluginregistry.h"
#include "registry/treeitem.h"
#include "text.h"
#include "watchedfavorites.h"
#include "world.h"

#include <mgconfitem.h>

#include <QPointer>
#include <QTest>

// Changes of the favourites that a model lists. tst_favoritesediting tests edits.
class FavoritesModelChangesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void defaultListResets();
    void userModifiedListChangesIncrementally();
    void keptRowsStay();
    void otherProcessWrites();
    void potentialRowsAreRefreshed();
    void changesKey();
    void contentChangeResets();
    void rootIsLookedUpAgain();
    void potentialEntriesAreRebuilt();
    void destroyedRowIsRemovedAlone();
    void destroyedEntryRemovesAllItsRows();
    void slotFindsItsSender();
    void removedRowKeepsTheOthersWatched();
    void potentialEntryDies();
    void rootDies();
    void deadNodesAreGoneFromTwoModels();
    void handlersMayChangeTheModel();
    void entriesDieInLinearTime();
    void oneEntryManyTimesTakesLinearTime_data();
    void oneEntryManyTimesTakesLinearTime();
};

void FavoritesModelChangesTest::init()
{
    World::reset();
    storeFavorites({});
    MGConfItem(WatchedFavorites::userModifiedKeyOfTests()).set({});
    declareSections(path("a/b/c/d"));
}

void FavoritesModelChangesTest::defaultListResets()
{
    storeFavorites(path("a/b"));
    for (const bool hasKey : {false, true}) {
        WatchedFavorites favorites(hasKey ? WatchedFavorites::userModifiedKeyOfTests() : QString());
        storeFavorites(path("c/b/d"));
        QCOMPARE(favorites.names(), path("c/b/d"));
        QCOMPARE(favorites.takeSignals(), (QStringList{text("modelAboutToBeReset"), text("countChanged"),
                                                       text("modelReset"), text("countChanged")}));
        storeFavorites(path("b/c/d"));
        QCOMPARE(favorites.names(), path("b/c/d"));
        QCOMPARE(favorites.takeSignals(),
                 (QStringList{text("modelAboutToBeReset"), text("countChanged"), text("modelReset")}));
        storeFavorites(QStringList());
        QCOMPARE(favorites.takeSignals(),
                 (QStringList{text("modelAboutToBeReset"), text("modelReset"), text("countChanged")}));
        storeFavorites(path("a/b"));
    }
}

void FavoritesModelChangesTest::userModifiedListChangesIncrementally()
{
    storeFavorites(path("a/b/c"));
    storeUserModified(true);
    WatchedFavorites favorites;
    storeFavorites(path("d/c/b"));
    QCOMPARE(favorites.names(), path("b/c/d"));
    QCOMPARE(favorites.takeSignals(),
             (QStringList{text("rowsAboutToBeRemoved 0-0"), text("rowsRemoved 0-0"), text("rowsInserted 2-2"),
                          text("dataChanged 0-0"), text("dataChanged 1-1")}));
    storeFavorites(path("c"));
    QCOMPARE(favorites.takeSignals(), (QStringList{text("rowsAboutToBeRemoved 2-2"), text("rowsRemoved 2-2"),
                                                   text("rowsAboutToBeRemoved 0-0"), text("rowsRemoved 0-0"),
                                                   text("dataChanged 0-0"), text("countChanged")}));
    QVERIFY(favorites.isConsistent());
}

void FavoritesModelChangesTest::keptRowsStay()
{
    storeFavorites(path("a/b/c"));
    storeUserModified(true);
    WatchedFavorites favorites;
    storeFavorites(path("c/b/a"));
    QCOMPARE(favorites.names(), path("a/b/c"));
    QCOMPARE(favorites.takeSignals(),
             (QStringList{text("dataChanged 0-0"), text("dataChanged 1-1"), text("dataChanged 2-2")}));
}

void FavoritesModelChangesTest::otherProcessWrites()
{
    storeFavorites(path("a"));
    WatchedFavorites favorites;
    QVERIFY(!favorites->isFavorite(text("b")));
    QTRY_COMPARE(stored(favorites->key()), QByteArray("['a']"));
    store(favorites->key(), text("['b', 'c']"));
    QTRY_COMPARE(favorites.names(), path("b/c"));
    QVERIFY(favorites->isFavorite(text("b")));
    QVERIFY(favorites.isConsistent());
}

void FavoritesModelChangesTest::potentialRowsAreRefreshed()
{
    WatchedFavorites favorites;
    favorites->setShowPotential(true);
    const QStringList rows = favorites.names();
    favorites.takeSignals();
    storeFavorites(path("c"));
    QCOMPARE(favorites.names(), rows);
    QCOMPARE(favorites.takeSignals(), (QStringList{text("dataChanged 0-0"), text("dataChanged 1-1"),
                                                   text("dataChanged 2-2"), text("dataChanged 3-3")}));
    const int row = rows.indexOf(text("c"));
    QVERIFY(favorites->data(favorites->index(row), 258).toBool());
}

void FavoritesModelChangesTest::changesKey()
{
    MGConfItem(text("/test/other")).set(path("b/c"));
    storeFavorites(path("a/b"));
    WatchedFavorites favorites;
    favorites->setKey(text("/test/other"));
    QCOMPARE(favorites->key(), text("/test/other"));
    QCOMPARE(favorites.names(), path("b/c"));
    QCOMPARE(favorites.takeSignals(),
             (QStringList{text("rowsAboutToBeRemoved 0-0"), text("rowsRemoved 0-0"), text("rowsInserted 1-1"),
                          text("dataChanged 0-0"), text("keyChanged")}));
    storeFavorites(path("d"));
    QCOMPARE(favorites.takeSignals(), QStringList());
    QVERIFY(favorites->isFavorite(text("c")));
    QVERIFY(!favorites->isFavorite(text("d")));
    MGConfItem(text("/test/other")).set({});
    QCOMPARE(favorites->count(), 0);
}

void FavoritesModelChangesTest::contentChangeResets()
{
    storeFavorites(path("new/a"));
    storeUserModified(true);
    WatchedFavorites favorites;
    QCOMPARE(favorites.names(), path("a"));
    World::writeEntries(text("y.json"), R"({"entries": [{"path": "new"}]})");
    World::rescan(PluginRegistry::instance());
    QCOMPARE(favorites.names(), path("new/a"));
    QCOMPARE(favorites.takeSignals(), (QStringList{text("modelAboutToBeReset"), text("countChanged"),
                                                   text("modelReset"), text("countChanged")}));
}

void FavoritesModelChangesTest::rootIsLookedUpAgain()
{
    declareSections({text("page/x"), text("page/y")});
    storeFavorites(path("x"));
    WatchedFavorites favorites;
    favorites->setPath(path("page"));
    const QPointer<TreeItem> root(PluginRegistry::instance()->getItem(path("page")));
    declareSections({text("page/x"), text("page/y")});
    QVERIFY(!root);
    QCOMPARE(favorites.names(), path("x"));
    storeFavorites(path("y/x"));
    QCOMPARE(favorites.names(), path("y/x"));
}

void FavoritesModelChangesTest::potentialEntriesAreRebuilt()
{
    WatchedFavorites favorites;
    favorites->setShowPotential(true);
    declareSections(path("c/e"));
    QStringList names = favorites.names();
    names.sort();
    QCOMPARE(names, path("c/e"));
}

void FavoritesModelChangesTest::destroyedRowIsRemovedAlone()
{
    storeFavorites(path("a/b/c"));
    WatchedFavorites favorites;
    TreeItem *item = favorites.item(1);
    item->parentItem()->removeChild(item);
    QCOMPARE(favorites.names(), path("a/c"));
    QCOMPARE(favorites.takeSignals(),
             (QStringList{text("rowsAboutToBeRemoved 1-1"), text("rowsRemoved 1-1"), text("countChanged")}));
    QVERIFY(favorites.isConsistent());
}

void FavoritesModelChangesTest::destroyedEntryRemovesAllItsRows()
{
    storeFavorites(path("a/b/a/c/a"));
    WatchedFavorites favorites;
    QStringList seen;
    const auto look = [&] { seen.append(favorites.names().join(QLatin1Char(' '))); };
    connect(&*favorites, &QAbstractItemModel::modelAboutToBeReset, this, look);
    connect(&*favorites, &QAbstractItemModel::modelReset, this, look);
    connect(&*favorites, &QAbstractItemModel::rowsAboutToBeRemoved, this, look);
    connect(&*favorites, &QAbstractItemModel::rowsRemoved, this, look);
    connect(&*favorites, &FavoritesModel::countChanged, this, look);
    TreeItem *item = favorites.item(0);
    item->parentItem()->removeChild(item);
    QCOMPARE(favorites.names(), path("b/c"));
    // No handler finds a row without an entry.
    QCOMPARE(seen, (QStringList{text("b c"), text("b c"), text("b c")}));
    QCOMPARE(favorites.takeSignals(),
             (QStringList{text("modelAboutToBeReset"), text("modelReset"), text("countChanged")}));
    QVERIFY(favorites.isConsistent());
}

void FavoritesModelChangesTest::slotFindsItsSender()
{
    storeFavorites(path("a/b"));
    WatchedFavorites favorites;
    // The row is removed with its entry, and also if the entry only emits its signal.
    TreeItem *item = favorites.item(0);
    connect(item, SIGNAL(objectNameChanged(QString)), &*favorites, SLOT(removeDestroyedItem()));
    TreeItem stranger(text("stranger"), {});
    connect(&stranger, SIGNAL(objectNameChanged(QString)), &*favorites, SLOT(removeDestroyedItem()));
    stranger.setObjectName(text("x"));
    QCOMPARE(favorites.takeSignals(), QStringList());
    item->setObjectName(text("x"));
    QCOMPARE(favorites.names(), path("b"));
    QCOMPARE(favorites.takeSignals(),
             (QStringList{text("rowsAboutToBeRemoved 0-0"), text("rowsRemoved 0-0"), text("countChanged")}));
}

void FavoritesModelChangesTest::removedRowKeepsTheOthersWatched()
{
    storeFavorites(path("a/b/a"));
    storeUserModified(true);
    WatchedFavorites favorites;
    storeFavorites(path("a/b"));
    QCOMPARE(favorites.names(), path("b/a")); // the last rows are kept
    TreeItem *item = favorites.item(1);
    item->parentItem()->removeChild(item);
    QCOMPARE(favorites.names(), path("b"));
}

void FavoritesModelChangesTest::potentialEntryDies()
{
    WatchedFavorites favorites;
    favorites->setShowPotential(true);
    QCOMPARE(favorites->count(), 4);
    TreeItem *item = PluginRegistry::instance()->getItem(path("b"));
    item->parentItem()->removeChild(item);
    QCOMPARE(favorites->count(), 3);
    // The rows are compared with the entries that were found before.
    storeFavorites(path("a"));
    favorites->setKey(text("/test/other"));
    QCOMPARE(favorites->count(), 3);
    QVERIFY(!favorites.names().contains(text("(dead)")));
}

void FavoritesModelChangesTest::rootDies()
{
    declareSections({text("page/x")});
    storeFavorites(path("x"));
    WatchedFavorites favorites;
    favorites->setPath(path("page"));
    TreeItem *root = PluginRegistry::instance()->getItem(path("page"));
    root->parentItem()->removeChild(root);
    QCOMPARE(favorites->count(), 0);
    storeFavorites(path("x/y"));
    favorites->setShowPotential(true);
    QCOMPARE(favorites->count(), 0);
}

void FavoritesModelChangesTest::deadNodesAreGoneFromTwoModels()
{
    storeFavorites(path("a/b"));
    WatchedFavorites first;
    WatchedFavorites second;
    QStringList seen;
    const auto look = [&] {
        seen << first.names().join(QLatin1Char(' ')) << second.names().join(QLatin1Char(' '));
    };
    connect(&*first, &FavoritesModel::countChanged, this, look);
    connect(&*second, &FavoritesModel::countChanged, this, look);
    TreeItem *item = first.item(0);
    item->parentItem()->removeChild(item);
    // The roles of a row whose entry was deleted are empty until the row is removed.
    QCOMPARE(seen, (QStringList{text("b"), text("(dead) b"), text("b"), text("b")}));
}

void FavoritesModelChangesTest::handlersMayChangeTheModel()
{
    declareJson(
        R"({"path": "a"}, {"path": "b"}, {"path": "n", "type": "integer"}, {"path": "m", "type": "integer"})");
    storeFavorites(path("a/b/n/m"));
    storeUserModified(true);
    // Each once, during another change
    const QVector<std::function<void(FavoritesModel &)>> changes{
        [](FavoritesModel &model) { model.setFilter({text("list_favorites")}); },
        [](FavoritesModel &model) { model.setShowPotential(true); },
        [](FavoritesModel &model) { model.setKey(text("/test/other")); },
        [](FavoritesModel &model) { model.setPath(path("nowhere")); },
        [](FavoritesModel &model) { model.addFavorite(text("b")); },
        [](FavoritesModel &model) { model.removeFavorite(text("b")); },
        [](FavoritesModel &model) { model.move(0, model.count() - 1); },
        [](FavoritesModel &) { declareSections(path("b/c")); },
        [](FavoritesModel &) {
            TreeItem *item = PluginRegistry::instance()->getItem(path("b"));
            item->parentItem()->removeChild(item);
        },
    };
    using Model = QAbstractItemModel;
    const MessageLog log; // there is no path "nowhere"
    for (int i = 0; i < changes.size(); ++i) {
        declareJson(R"({"path": "a"}, {"path": "b"}, {"path": "n", "type": "integer"})");
        storeFavorites(path("a/b/n/m"));
        WatchedFavorites favorites;
        QObject context;
        const auto change = [&] {
            if (context.children().isEmpty()) {
                new QObject(&context); // done
                changes.at(i)(*favorites);
            }
        };
        connect(&*favorites, &Model::rowsAboutToBeInserted, &context, change);
        connect(&*favorites, &Model::rowsInserted, &context, change);
        connect(&*favorites, &Model::rowsAboutToBeRemoved, &context, change);
        connect(&*favorites, &Model::dataChanged, &context, change);
        connect(&*favorites, &Model::modelAboutToBeReset, &context, change);
        if (i % 2 == 0) {
            storeFavorites(path("b/d/n"));
        } else {
            favorites->addFavorite(text("a"));
        }
        QVERIFY(!context.children().isEmpty());
        QVERIFY(!favorites.names().contains(text("(dead)")));
        const bool sections = favorites->filter().contains(text("grid_favorites")) && !favorites->showPotential()
                              && favorites->key() == WatchedFavorites::keyOfTests() && favorites->path().isEmpty();
        QVERIFY(!sections || favorites.isConsistent());
    }
}

void FavoritesModelChangesTest::entriesDieInLinearTime()
{
    const auto loseAll = [](int count) {
        QStringList paths;
        for (int i = 0; i < count; ++i) {
            paths.append(text("p%1").arg(i));
        }
        declareSections(paths);
        FavoritesModel model;
        model.setFilter({text("grid_favorites")});
        model.setShowPotential(true);
        model.componentComplete();
        const int before = model.count();
        CpuTimer timer;
        timer.start();
        World::removeEntries(text("x.json"));
        World::rescan(PluginRegistry::instance());
        return before == count && model.count() == 0 ? timer.nsecsElapsed() : -1;
    };
    QVERIFY(Growth::isLinear(loseAll, 3000));
}

void FavoritesModelChangesTest::oneEntryManyTimesTakesLinearTime_data()
{
    QTest::addColumn<int>("change");
    QTest::newRow("remove") << 0;
    QTest::newRow("move") << 1;
    QTest::newRow("destroy the entry") << 2;
    QTest::newRow("show potential ones") << 3;
    QTest::newRow("store another list") << 4;
}

void FavoritesModelChangesTest::oneEntryManyTimesTakesLinearTime()
{
    QFETCH(int, change);
    storeUserModified(true);
    const auto measure = [change](int count) {
        declareSections(path("a/b"));
        QStringList paths = path("b");
        while (paths.size() < count) {
            paths.append(text("a"));
        }
        storeFavorites(paths);
        CpuTimer timer;
        timer.start();
        FavoritesModel model;
        model.setFilter({text("grid_favorites")});
        model.setUserModifiedKey(WatchedFavorites::userModifiedKeyOfTests());
        model.componentComplete();
        const int before = model.count();
        switch (change) {
        case 0:
            model.removeFavorite(text("a"));
            break;
        case 1:
            model.move(0, 1);
            model.removeFavorite(text("a"));
            break;
        case 2:
            removeNode(path("a"));
            break;
        case 3:
            model.setShowPotential(true);
            break;
        default:
            storeFavorites(path("b"));
        }
        const int expected = change == 3 ? 2 : 1;
        return before == count && model.count() == expected ? timer.nsecsElapsed() : -1;
    };
    QVERIFY(Growth::isLinear(measure, 300));
}

QTEST_GUILESS_MAIN(FavoritesModelChangesTest)
#include "tst_favoritesmodelchanges.moc"
