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

#include <QQmlEngine>
#include <QTest>

namespace
{
const QString s_qmlInfo = QStringLiteral("info default: <Unknown File>: QML FavoritesModel: ");
}

// The favourites that a model lists. tst_favoritesediting tests edits.
class FavoritesModelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void roleNames();
    void nothingBeforeCompletion();
    void settersStoreBeforeCompletion();
    void listsStoredOrder();
    void skipsWhatItCannotShow();
    void otherSpellings_data();
    void otherSpellings();
    void sameEntryTwice();
    void searchesBelowItsPath();
    void unknownPath();
    void emptyFilterAdmitsNothing();
    void unknownFilterIsRefusedWhole();
    void filterChangesIncrementally();
    void sameValuesAreSilent();
    void potentialEntries();
    void potentialEntriesByOrder();
    void blacklistIsReadOnce();
    void roles();
    void remoteAction();
    void rowsOutside();
    void get();
    void triggerActionOfNoAction();
    void objectsSurviveTheGarbageCollector();
    void valueIsNoList_data();
    void valueIsNoList();
    void invalidKeys_data();
    void invalidKeys();
    void rebuildsInLinearTime();
    void rolesInLinearTime();
};

void FavoritesModelTest::init()
{
    World::reset();
    storeFavorites({});
    MGConfItem(WatchedFavorites::userModifiedKeyOfTests()).set({});
    declareSections(path("a/b/c/d"));
}

void FavoritesModelTest::roleNames()
{
    const QHash<int, QByteArray> expected{{257, "object"}, {258, "favorite"}, {259, "remoteAction"}};
    QCOMPARE(FavoritesModel().roleNames(), expected);
}

void FavoritesModelTest::nothingBeforeCompletion()
{
    storeFavorites(path("a/b"));
    FavoritesModel model;
    model.setFilter({text("grid_favorites")});
    SignalLog log(&model);
    QCOMPARE(model.count(), 0);
    QVERIFY(!model.isFavorite(text("a")));
    QCOMPARE(model.indexOf(text("a")), -1);
    QCOMPARE(model.get(0), QVariantMap());
    model.addFavorite(text("c"));
    model.removeFavorite(text("a"));
    model.move(0, 1);
    model.setShowPotential(true);
    model.removeFavorite(text("a"));
    QCOMPARE(model.count(), 0);
    QCOMPARE(log.take(), QStringList{text("showPotentialChanged")});
    QCOMPARE(storedFavorites(), path("a/b"));
    QVERIFY(!isWatched(WatchedFavorites::keyOfTests()));
}

void FavoritesModelTest::settersStoreBeforeCompletion()
{
    MGConfItem(text("/test/favorites")).set(path("sub"));
    declareSections({text("page/sub"), text("page/other")});
    FavoritesModel model;
    SignalLog log(&model);
    model.setKey(text("/test/favorites"));
    model.setPath(path("page"));
    model.setFilter({text("grid_favorites")});
    model.setUserModifiedKey(text("/test/modified"));
    model.classBegin();
    QCOMPARE(log.take(), (QStringList{text("keyChanged"), text("pathChanged"), text("filterChanged"),
                                      text("userModifiedKeyChanged"), text("userModifiedChanged")}));
    model.componentComplete();
    QCOMPARE(log.take(), (QStringList{text("modelAboutToBeReset"), text("countChanged"), text("modelReset"),
                                      text("countChanged")}));
    QCOMPARE(model.count(), 1);
    MGConfItem(text("/test/favorites")).set({});
}

void FavoritesModelTest::listsStoredOrder()
{
    storeFavorites(path("c/a/d"));
    WatchedFavorites favorites;
    QCOMPARE(favorites.names(), path("c/a/d"));
    QCOMPARE(favorites->count(), 3);
    QCOMPARE(favorites->rowCount(favorites->index(0)), 3);
}

void FavoritesModelTest::skipsWhatItCannotShow()
{
    declareJson(R"({"path": "a"}, {"path": "number", "type": "integer"}, {"path": "a/b"})");
    const QStringList stored{text("nowhere"), text("number"), text("a/b"), text("a/b/c"),
                             QString(),       text("/"),      text("A")};
    storeFavorites(stored);
    const MessageLog log;
    WatchedFavorites favorites;
    QCOMPARE(favorites.names(), path("b")); // and not the root, which an empty path names
    QCOMPARE(storedFavorites(), stored);
    QCOMPARE(MessageLog::take(), QStringList());
}

void FavoritesModelTest::otherSpellings_data()
{
    QTest::addColumn<QString>("stored");
    for (const char *spelling : {"a/b", "/a/b", "a/b/", "a//b", "///a///b///"}) {
        QTest::newRow(spelling) << text(spelling);
    }
}

void FavoritesModelTest::otherSpellings()
{
    QFETCH(QString, stored);
    declareSections({text("a/b")});
    storeFavorites(QStringList{stored});
    WatchedFavorites favorites;
    QCOMPARE(favorites.names(), path("b"));
    QCOMPARE(favorites->indexOf(text("a/b")), 0);
    // Stored paths are compared as they are written.
    QCOMPARE(favorites->isFavorite(text("a/b")), stored == text("a/b"));
    QVERIFY(favorites->isFavorite(stored));
}

void FavoritesModelTest::sameEntryTwice()
{
    storeFavorites(path("a/b/a"));
    WatchedFavorites favorites;
    QCOMPARE(favorites.names(), path("a/b/a"));
    QCOMPARE(favorites->indexOf(text("a")), 0);
    storeUserModified(true);
    favorites.takeSignals();

    // The existing rows are those of the first of equal entries.
    storeFavorites(path("a/c/a/a/b/a"));
    QCOMPARE(favorites.names(), path("a/b/a/c/a/a"));
    QVERIFY(favorites.isConsistent());
    storeFavorites(path("a"));
    QCOMPARE(favorites.names(), path("a"));
    QVERIFY(favorites.isConsistent());
}

void FavoritesModelTest::searchesBelowItsPath()
{
    declareSections({text("page/x"), text("x"), text("page/page/x")});
    storeFavorites(QStringList{text("x"), text("page/x")});
    WatchedFavorites favorites;
    favorites->setPath(path("page"));
    QCOMPARE(favorites->rowCount(), 2);
    QCOMPARE(favorites.item(0)->location(), path("page/x"));
    QCOMPARE(favorites.item(1)->location(), path("page/page/x"));
    // Locations are full paths.
    QCOMPARE(favorites->indexOf(text("page/x")), 0);
    QCOMPARE(favorites->indexOf(text("x")), -1);
    const auto isFavorite = [&](int row) { return favorites->data(favorites->index(row), 258).toBool(); };
    QVERIFY(isFavorite(0));
    QVERIFY(!isFavorite(1));
}

void FavoritesModelTest::unknownPath()
{
    storeFavorites(path("a/b"));
    WatchedFavorites favorites;
    const MessageLog log;
    favorites->setPath({text("no"), text("wh\"ere")});
    QCOMPARE(MessageLog::take(),
             QStringList{text("warning org.orvantaos.settings.framework: FavoritesModel: path not found "
                              "(\"no\", \"wh\\\"ere\")")});
    QCOMPARE(favorites.takeSignals(), (QStringList{text("rowsAboutToBeRemoved 1-1"), text("rowsRemoved 1-1"),
                                                   text("rowsAboutToBeRemoved 0-0"), text("rowsRemoved 0-0"),
                                                   text("countChanged"), text("pathChanged")}));
    QCOMPARE(favorites->path(), (QStringList{text("no"), text("wh\"ere")}));
    favorites->setShowPotential(true);
    QCOMPARE(favorites->count(), 0);
    // It may be declared later, without another message.
    favorites->setPath(path("late"));
    QCOMPARE(MessageLog::take().size(), 1);
    declareSections({text("late/x")});
    QCOMPARE(favorites.names(), path("x"));
    QCOMPARE(MessageLog::take(), QStringList());
}

void FavoritesModelTest::emptyFilterAdmitsNothing()
{
    storeFavorites(path("a/b"));
    WatchedFavorites favorites;
    favorites->setFilter({});
    QCOMPARE(favorites->count(), 0);
    favorites->setShowPotential(true);
    QCOMPARE(favorites->count(), 0);
}

void FavoritesModelTest::unknownFilterIsRefusedWhole()
{
    storeFavorites(path("a/b"));
    WatchedFavorites favorites;
    const MessageLog log;
    favorites->setFilter({text("list_favorites"), text("gr\"id"), text("other")});
    QCOMPARE(MessageLog::take(), QStringList{settingsWarning(Messages::UnknownFilter, text("gr\\\"id"))});
    QCOMPARE(favorites->filter(), QStringList{text("grid_favorites")});
    QCOMPARE(favorites.takeSignals(), QStringList());
    QCOMPARE(favorites.names(), path("a/b"));
}

void FavoritesModelTest::filterChangesIncrementally()
{
    declareJson(R"({"path": "a"}, {"path": "n", "type": "integer"}, {"path": "b"})");
    storeFavorites(path("a/n/b"));
    WatchedFavorites favorites;
    favorites->setFilter({text("list_favorites")});
    QCOMPARE(favorites.names(), path("n"));
    QCOMPARE(favorites.takeSignals(),
             (QStringList{text("rowsAboutToBeRemoved 1-1"), text("rowsRemoved 1-1"),
                          text("rowsAboutToBeRemoved 0-0"), text("rowsRemoved 0-0"), text("rowsInserted 0-0"),
                          text("countChanged"), text("filterChanged")}));
    favorites->setFilter({text("grid_favorites"), text("list_favorites")});
    QCOMPARE(favorites.names(), path("n/a/b"));
    QCOMPARE(favorites.takeSignals(),
             (QStringList{text("rowsInserted 1-1"), text("rowsInserted 2-2"), text("dataChanged 0-0"),
                          text("countChanged"), text("filterChanged")}));
}

void FavoritesModelTest::sameValuesAreSilent()
{
    storeFavorites(path("a/b"));
    WatchedFavorites favorites;
    favorites->setFilter(favorites->filter());
    favorites->setPath(favorites->path());
    favorites->setKey(favorites->key());
    favorites->setShowPotential(false);
    favorites->setUserModifiedKey(favorites->userModifiedKey());
    QCOMPARE(favorites.takeSignals(), QStringList());
}

void FavoritesModelTest::potentialEntries()
{
    declareSections({text("a/deep/deeper"), text("b")});
    storeFavorites(path("b"));
    WatchedFavorites favorites;
    favorites.takeSignals();
    favorites->setShowPotential(true);
    QStringList names = favorites.names();
    QCOMPARE(names.takeFirst(), text("b")); // kept
    QCOMPARE(names, path("a/deep/deeper"));
    QCOMPARE(favorites.takeSignals().last(), text("showPotentialChanged"));
    favorites->setPath(path("a"));
    QCOMPARE(favorites.names(), path("deep/deeper"));
    favorites->setShowPotential(false);
    QCOMPARE(favorites->count(), 0); // below "a" there is no "b"
}

void FavoritesModelTest::potentialEntriesByOrder()
{
    declareJson(R"({"path": "late", "order": 101}, {"path": "default"}, {"path": "early", "order": -1},
                   {"path": "text", "order": "7"}, {"path": "default/second", "order": 2},
                   {"path": "default/first", "order": 1}, {"path": "number", "type": "integer", "order": 0})");
    WatchedFavorites favorites;
    favorites->setShowPotential(true);
    QCOMPARE(favorites.names(), path("early/text/default/first/second/late"));
}

void FavoritesModelTest::blacklistIsReadOnce()
{
    declareJson(R"({"path": "black", "type": "action"}, {"path": "white", "type": "action"})");
    World::writeBlacklist("[\"black\"]");
    WatchedFavorites favorites;
    World::writeBlacklist("[]");
    favorites->setFilter({text("action")});
    favorites->setShowPotential(true);
    QCOMPARE(favorites.names(), path("white"));
}

void FavoritesModelTest::roles()
{
    storeFavorites(path("a"));
    WatchedFavorites favorites;
    const auto value = [&](int role) { return favorites->data(favorites->index(0), role); };
    QCOMPARE(value(257).value<QObject *>(), PluginRegistry::instance()->getItem(path("a")));
    QCOMPARE(value(258), QVariant(true));
    QCOMPARE(value(259), QVariant(QString()));
    for (const int role : {-1, 0, 1, 256, 260, 100000}) {
        QCOMPARE(value(role), QVariant(0));
        QCOMPARE(value(role).userType(), int(QMetaType::Int));
    }
    // A picker's rows need not be favourites.
    favorites->setShowPotential(true);
    QVERIFY(favorites->data(favorites->index(0), 258).toBool());
    QCOMPARE(favorites->data(favorites->index(1), 258), QVariant(false));
}

void FavoritesModelTest::remoteAction()
{
    declareJson(R"({"path": "act", "type": "action", "params": {"remote-service": "s.x", "remote-path": "/p",
                       "remote-interface": "i.x", "remote-method": "m", "remote-arguments": [true]}},
                   {"path": "page", "type": "page", "params": {"remote-service": "s.x"}})");
    storeFavorites(path("act/page"));
    WatchedFavorites favorites;
    favorites->setFilter({text("action"), text("grid_favorites")});
    QCOMPARE(favorites.names(), path("page/act"));
    QCOMPARE(favorites->data(favorites->index(0), 259), QVariant(QString()));
    QCOMPARE(favorites->data(favorites->index(1), 259), QVariant(text("s.x /p i.x m AAAAAQAB")));
}

void FavoritesModelTest::rowsOutside()
{
    storeFavorites(path("a"));
    WatchedFavorites favorites;
    const MessageLog log;
    for (const int row : {-1, 1, 1000000}) {
        for (const int role : {0, 257, 258, 259}) {
            QVERIFY(!favorites->data(favorites->index(row), role).isValid());
        }
        QCOMPARE(favorites->get(row), QVariantMap());
        favorites->triggerAction(row);
        QCOMPARE(MessageLog::take(), QStringList{s_qmlInfo + text("invalid index ") + QString::number(row)});
    }
}

void FavoritesModelTest::get()
{
    declareJson(R"({"path": "a", "title": "T", "order": 3})");
    storeFavorites(path("a"));
    WatchedFavorites favorites;
    const QVariantMap expected{{text("path"), text("a")},
                               {text("title"), text("T")},
                               {text("order"), 3.0},
                               {text("from_file"), text("x.json")}};
    QCOMPARE(favorites->get(0), expected);
}

void FavoritesModelTest::triggerActionOfNoAction()
{
    storeFavorites(path("a/b"));
    WatchedFavorites favorites;
    const MessageLog log;
    favorites->triggerAction(1);
    QCOMPARE(MessageLog::take(), QStringList{s_qmlInfo + text("item at index 1 is not an action")});
}

void FavoritesModelTest::objectsSurviveTheGarbageCollector()
{
    storeFavorites(path("a"));
    WatchedFavorites favorites;
    QCOMPARE(QQmlEngine::objectOwnership(favorites.item(0)), QQmlEngine::CppOwnership);
}

void FavoritesModelTest::valueIsNoList_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("text") << QVariant(text("a")) << path("a");
    QTest::newRow("number") << QVariant(7) << QStringList();
    QTest::newRow("bool") << QVariant(true) << QStringList();
    QTest::newRow("map") << QVariant(QVariantMap{{text("a"), text("b")}}) << QStringList();
    QTest::newRow("mixed list") << QVariant(QVariantList{7, text("b"), QVariantList{text("c")}, text("d")})
                                << path("b/d");
}

void FavoritesModelTest::valueIsNoList()
{
    QFETCH(QVariant, value);
    QFETCH(QStringList, expected);
    WatchedFavorites favorites;
    storeFavorites(value);
    QCOMPARE(favorites->filter(), QStringList{text("grid_favorites")});
    QCOMPARE(favorites.names(), expected);
    QVERIFY(favorites.isConsistent());
    favorites->addFavorite(text("d"));
    QCOMPARE(storedFavorites().last(), text("d"));
    QVERIFY(favorites.isConsistent());
}

void FavoritesModelTest::invalidKeys_data()
{
    QTest::addColumn<QString>("key");
    for (const char *key : {"relative", "/slash/", "/a//b", "/"}) {
        QTest::newRow(key) << text(key);
    }
}

void FavoritesModelTest::invalidKeys()
{
    QFETCH(QString, key);
    const QString warning = text("warning default: MGConfItem: invalid key \"%1\"").arg(key);
    storeFavorites(path("a"));
    WatchedFavorites favorites;
    const MessageLog log;
    favorites->setKey(key);
    QCOMPARE(MessageLog::take(), QStringList{warning});
    QCOMPARE(favorites->count(), 0);
    favorites->addFavorite(text("a"));
    QVERIFY(!favorites->isFavorite(text("a")));
    QCOMPARE(favorites->count(), 0);

    favorites->setUserModifiedKey(key);
    QCOMPARE(MessageLog::take(), QStringList{warning});
    QCOMPARE(favorites->userModifiedKey(), key);
    QVERIFY(!favorites->userModified());

    favorites->setKey({});
    QCOMPARE(MessageLog::take(), QStringList{text("warning default: MGConfItem: invalid key \"\"")});
    favorites->setUserModifiedKey({}); // without a flag
    QCOMPARE(MessageLog::take(), QStringList());
}

void FavoritesModelTest::rebuildsInLinearTime()
{
    const auto rebuild = [](int count) {
        QStringList paths;
        for (int i = 0; i < count; ++i) {
            paths.append(text("p%1").arg(i));
        }
        declareSections(paths);
        storeFavorites(paths);
        storeUserModified(true);
        FavoritesModel model;
        model.setFilter({text("grid_favorites")});
        model.setUserModifiedKey(WatchedFavorites::userModifiedKeyOfTests());
        model.componentComplete();
        CpuTimer timer;
        timer.start();
        storeFavorites(paths.mid(count / 2) + QStringList(text("nowhere")));
        storeFavorites(paths);
        World::rescan(PluginRegistry::instance());
        storeUserModified(false);
        storeFavorites(QStringList(text("nowhere")) + paths);
        return model.count() == count ? timer.nsecsElapsed() : -1;
    };
    QVERIFY(Growth::isLinear(rebuild, 1000));
}

void FavoritesModelTest::rolesInLinearTime()
{
    const auto readAll = [](int count) {
        QStringList paths;
        for (int i = 0; i < count; ++i) {
            paths.append(text("p%1").arg(i));
        }
        declareSections(paths);
        storeFavorites(paths);
        FavoritesModel model;
        model.setFilter({text("grid_favorites")});
        model.componentComplete();
        CpuTimer timer;
        timer.start();
        int found = 0;
        for (int row = 0; row < model.rowCount(); ++row) {
            found += model.data(model.index(row), FavoritesModel::FavoriteRole).toBool() ? 1 : 0;
        }
        return found == count ? timer.nsecsElapsed() : -1;
    };
    QVERIFY(Growth::isLinear(readAll, 1000));
}

QTEST_GUILESS_MAIN(FavoritesModelTest)
#include "tst_favoritesmodel.moc"
