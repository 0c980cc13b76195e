// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "lateannouncements.h"
#include "registry/pluginregistry.h"
#include "registry/treeitem.h"
#include "text.h"
#include "watchedfavorites.h"
#include "world.h"

#include <mgconfitem.h>

#include <QPointer>
#include <QTest>

#include <optional>

namespace
{
void (*const s_edits[])(FavoritesModel *) = {
    [](FavoritesModel *model) { model->removeFavorite(text("a")); },
    [](FavoritesModel *model) { model->move(0, 1); },
    [](FavoritesModel *model) { model->addFavorite(text("e")); },
};

/// Runs @p handler at the next userModifiedChanged(), in the middle of an edit.
void inTheMiddle(FavoritesModel *model, const std::function<void()> &handler)
{
    auto *once = new QObject; // not a child of the model, which the handler may delete
    QObject::connect(model, &FavoritesModel::userModifiedChanged, once, [once, handler] {
        const std::function<void()> copy = handler;
        delete once; // and the lambda with it
        copy();
    });
}
}

// Edits of favourites in handlers, if dconf announces a write at once and if it does later.
class FavoritesEditingHandlersTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void outsideWriteBeforeTheOwn_data();
    void outsideWriteBeforeTheOwn();
    void outsideWriteAfterTheOwn_data();
    void outsideWriteAfterTheOwn();
    void handlerChangesKey();
    void handlerChangesUserModifiedKey();
    void handlerDeletesTheModel_data();
    void handlerDeletesTheModel();
    void handlerEditsAgain_data();
    void handlerEditsAgain();
    void handlerChangesTheTree_data();
    void handlerChangesTheTree();
    void handlersOfPickerChangeMore();
    void handlerChangesFilter();
};

void FavoritesEditingHandlersTest::init()
{
    World::reset();
    storeFavorites(path("a/b"));
    storeUserModified(false);
    MGConfItem(text("/test/other")).set({});
    declareSections(path("a/b/c/d/e/f"));
}

void FavoritesEditingHandlersTest::outsideWriteBeforeTheOwn_data()
{
    QTest::addColumn<int>("edit");
    QTest::addColumn<bool>("late");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("remove") << 0 << false << path("d/b");
    QTest::newRow("move") << 1 << false << path("d/b/a");
    QTest::newRow("add") << 2 << false << path("d/a/b/e");
    // Then the change of the flag is announced after the edit, together with the other write.
    QTest::newRow("remove, announced later") << 0 << true << path("d/a/b");
    QTest::newRow("move, announced later") << 1 << true << path("d/a/b");
    QTest::newRow("add, announced later") << 2 << true << path("d/a/b");
}

void FavoritesEditingHandlersTest::outsideWriteBeforeTheOwn()
{
    QFETCH(int, edit);
    QFETCH(bool, late);
    QFETCH(QStringList, expected);
    WatchedFavorites favorites;
    std::optional<LateAnnouncements> announcements;
    if (late) {
        announcements.emplace();
    }
    inTheMiddle(&*favorites, [] { storeFavorites(path("d/a/b")); });
    s_edits[edit](&*favorites);
    QTRY_COMPARE(storedFavorites(), expected);
    QTRY_VERIFY(favorites.isConsistent());
}

void FavoritesEditingHandlersTest::outsideWriteAfterTheOwn_data()
{
    QTest::addColumn<int>("edit");
    QTest::addColumn<bool>("late");
    for (int edit = 0; edit < 3; ++edit) {
        QTest::addRow("edit %d", edit) << edit << false;
        QTest::addRow("edit %d, announced later", edit) << edit << true;
    }
}

void FavoritesEditingHandlersTest::outsideWriteAfterTheOwn()
{
    QFETCH(int, edit);
    QFETCH(bool, late);
    // Notified before the model
    const MGConfItem list(WatchedFavorites::keyOfTests());
    auto *once = new QObject(this);
    WatchedFavorites favorites;
    std::optional<LateAnnouncements> announcements;
    if (late) {
        announcements.emplace();
    }
    connect(&list, &MGConfItem::valueChanged, once, [once] {
        delete once;
        storeFavorites(path("b/f"));
    });
    s_edits[edit](&*favorites);
    QTRY_COMPARE(storedFavorites(), path("b/f"));
    QTRY_VERIFY(favorites.isConsistent());
}

void FavoritesEditingHandlersTest::handlerChangesKey()
{
    MGConfItem other(text("/test/other"));
    other.set(path("d/e"));
    WatchedFavorites favorites;
    inTheMiddle(&*favorites, [&] { favorites->setKey(text("/test/other")); });
    favorites->removeFavorite(text("a"));
    // The edit changes the list for which it was made.
    QCOMPARE(storedFavorites(), path("b"));
    QCOMPARE(other.value().toStringList(), path("d/e"));
    QCOMPARE(favorites.names(), path("d/e"));

    storeUserModified(false);
    inTheMiddle(&*favorites, [&] {
        favorites->setKey(WatchedFavorites::keyOfTests());
        favorites->addFavorite(text("f"));
    });
    favorites->move(0, 1);
    QCOMPARE(other.value().toStringList(), path("e/d"));
    QCOMPARE(storedFavorites(), path("b/f"));
    QCOMPARE(favorites.names(), path("b/f"));
    QVERIFY(favorites.isConsistent());
}

void FavoritesEditingHandlersTest::handlerChangesUserModifiedKey()
{
    WatchedFavorites favorites;
    inTheMiddle(&*favorites, [&] { favorites->setUserModifiedKey(text("/test/other")); });
    favorites->removeFavorite(text("a"));
    QCOMPARE(storedFavorites(), path("b"));
    QVERIFY(!favorites->userModified());
    inTheMiddle(&*favorites, [&] { favorites->setUserModifiedKey({}); });
    favorites->addFavorite(text("c"));
    QCOMPARE(storedFavorites(), path("b/c"));
    QVERIFY(MGConfItem(text("/test/other")).value().toBool());
    QCOMPARE(favorites->userModifiedKey(), QString());
    QVERIFY(favorites.isConsistent());
}

void FavoritesEditingHandlersTest::handlerDeletesTheModel_data()
{
    QTest::addColumn<int>("edit");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("add") << 0 << path("a/b/c");
    QTest::newRow("remove") << 1 << path("b");
    QTest::newRow("move") << 2 << path("b/a");
    QTest::newRow("remove from picker") << 3 << path("b");
}

void FavoritesEditingHandlersTest::handlerDeletesTheModel()
{
    QFETCH(int, edit);
    QFETCH(QStringList, expected);
    const QPointer<FavoritesModel> model(new FavoritesModel);
    model->setFilter({text("grid_favorites")});
    model->setUserModifiedKey(WatchedFavorites::userModifiedKeyOfTests());
    model->setShowPotential(edit == 3);
    model->componentComplete();
    connect(model, &FavoritesModel::userModifiedChanged, this, [&model] { delete model; });
    switch (edit) {
    case 0:
        model->addFavorite(text("c"));
        break;
    case 2:
        model->move(0, 1);
        break;
    default:
        model->removeFavorite(text("a"));
    }
    QVERIFY(!model);
    // The user's edit is not lost.
    QCOMPARE(storedFavorites(), expected);
    QVERIFY(MGConfItem(WatchedFavorites::userModifiedKeyOfTests()).value().toBool());
}

void FavoritesEditingHandlersTest::handlerEditsAgain_data()
{
    QTest::addColumn<int>("outer");
    QTest::addColumn<int>("inner");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("remove, add") << 0 << 1 << path("b/c/e");
    QTest::newRow("remove, remove") << 0 << 2 << path("c");
    QTest::newRow("remove, move") << 0 << 3 << path("c/b");
    QTest::newRow("move, add") << 4 << 1 << path("b/a/c/e");
    QTest::newRow("move, remove") << 4 << 2 << path("a/c");
    QTest::newRow("move, move") << 4 << 3 << path("c/b/a");
    QTest::newRow("add, remove") << 1 << 2 << path("a/c/e");
    QTest::newRow("add, move") << 1 << 3 << path("a/c/b/e");
}

void FavoritesEditingHandlersTest::handlerEditsAgain()
{
    QFETCH(int, outer);
    QFETCH(int, inner);
    QFETCH(QStringList, expected);
    storeFavorites(path("a/b/c"));
    WatchedFavorites favorites;
    const QVector<std::function<void()>> edits{
        [&] { favorites->removeFavorite(text("a")); },
        [&] { favorites->addFavorite(text("e")); },
        [&] { favorites->removeFavorite(text("b")); },
        [&] { favorites->move(favorites->indexOf(text("b")), favorites->indexOf(text("c"))); },
        [&] { favorites->move(0, 1); },
    };
    inTheMiddle(&*favorites, edits.at(inner));
    edits.at(outer)();
    QVERIFY(favorites.isConsistent());
    QCOMPARE(storedFavorites(), expected);
    QCOMPARE(favorites.names(), expected);
}

void FavoritesEditingHandlersTest::handlerChangesTheTree_data()
{
    QTest::addColumn<bool>("rescan");
    QTest::newRow("node dies") << false;
    QTest::newRow("content changes") << true;
}

void FavoritesEditingHandlersTest::handlerChangesTheTree()
{
    QFETCH(bool, rescan);
    storeFavorites(path("a/b/c/d"));
    WatchedFavorites favorites;
    const auto change = [rescan] {
        if (rescan) {
            declareSections(path("c/d/e"));
        } else {
            removeNode(path("a"));
            removeNode(path("b"));
        }
    };
    inTheMiddle(&*favorites, change);
    favorites->move(1, 3);
    QCOMPARE(storedFavorites(), path("a/c/d/b"));
    QCOMPARE(favorites.names(), path("c/d"));
    QVERIFY(favorites.isConsistent());

    declareSections(path("a/b/c/d"));
    storeUserModified(false);
    inTheMiddle(&*favorites, change);
    favorites->removeFavorite(text("c"));
    QCOMPARE(storedFavorites(), path("a/d/b"));
    QCOMPARE(favorites.names(), path("d"));
    QVERIFY(favorites.isConsistent());
}

void FavoritesEditingHandlersTest::handlersOfPickerChangeMore()
{
    declareJson(R"({"path": "a"}, {"path": "n", "type": "integer"})");
    WatchedFavorites favorites;
    favorites->setShowPotential(true);
    QCOMPARE(favorites.names(), path("a"));
    QObject context;
    connect(&*favorites, &FavoritesModel::rowsRemoved, &context,
            [&] { favorites->setFilter({text("grid_favorites")}); });
    connect(&*favorites, &FavoritesModel::countChanged, &context, [&] { favorites->removeFavorite(text("x")); });
    favorites->setFilter({text("list_favorites")});
    QCOMPARE(favorites->filter(), QStringList{text("grid_favorites")});
    QCOMPARE(favorites.names(), path("a"));
}

void FavoritesEditingHandlersTest::handlerChangesFilter()
{
    declareJson(R"({"path": "a"}, {"path": "b"}, {"path": "n", "type": "integer"})");
    storeFavorites(path("a/n/b"));
    WatchedFavorites favorites;
    inTheMiddle(&*favorites, [&] { favorites->setFilter({text("list_favorites")}); });
    favorites->removeFavorite(text("a"));
    QCOMPARE(favorites.names(), path("n"));
    storeUserModified(false);
    inTheMiddle(&*favorites, [&] { favorites->setFilter({text("grid_favorites")}); });
    favorites->move(0, 0);
    QCOMPARE(favorites.names(), path("b"));
    QVERIFY(favorites.isConsistent());
}

QTEST_GUILESS_MAIN(FavoritesEditingHandlersTest)
#include "tst_favoriteseditinghandlers.moc"
