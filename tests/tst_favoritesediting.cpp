// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "dconftool.h"
#include "growth.h"
#include "lateannouncements.h"
#include "messagelog.h"
#include "registry/pluginregistry.h"
#include "registry/treeitem.h"
#include "text.h"
#include "watchedfavorites.h"
#include "world.h"

#include <mgconfitem.h>

#include <QPointer>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>

#include <optional>

// How favourites are edited, whether dconf announces a write at once or later.
class FavoritesEditingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void isFavoriteComparesExactly();
    void isFavoriteReadsTheKey();
    void indexOf();
    void adds_data();
    void adds();
    void addsTwice();
    void writesFlagBeforeList();
    void removes_data();
    void removes();
    void removesEveryCopy_data();
    void removesEveryCopy();
    void removesOnlyWhatItShows();
    void removesInPicker_data();
    void removesInPicker();
    void removesOtherSpelling();
    void moves_data();
    void moves();
    void moveKeepsHiddenPaths();
    void moveOntoItself_data();
    void moveOntoItself();
    void movesNothing_data();
    void movesNothing();
    void moveOfEqualEntries();
    void userModified();
    void userModifiedKey();
    void editsWithoutUserModifiedKey_data();
    void editsWithoutUserModifiedKey();
    void twoModels_data();
    void twoModels();
    void twoModelsOfAUser();
    void movesInThePicker();
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
    void randomEdits_data();
    void randomEdits();
    void editsInLinearTime_data();
    void editsInLinearTime();

private:
    void announcements();
};

namespace
{
void (*const s_edits[])(FavoritesModel *) = {
    [](FavoritesModel *model) { model->removeFavorite(text("a")); },
    [](FavoritesModel *model) { model->move(0, 1); },
    [](FavoritesModel *model) { model->addFavorite(text("e")); },
};

void removeNode(const QStringList &path)
{
    TreeItem *item = PluginRegistry::instance()->getItem(path);
    if (item) {
        item->parentItem()->removeChild(item);
    }
}

/// What becomes of rows that stay where they are, as long as they are wanted.
QStringList followed(const QStringList &rows, QStringList wanted)
{
    QStringList kept;
    for (auto row = rows.crbegin(); row != rows.crend(); ++row) {
        if (wanted.removeOne(*row)) {
            kept.prepend(*row);
        }
    }
    return kept + wanted;
}

/// Runs @p handler at the next userModifiedChanged(), in the middle of an edit.
void inTheMiddle(FavoritesModel *model, const std::function<void()> &handler)
{
    auto *once = new QObject; // not the model's: the handler may delete that
    QObject::connect(model, &FavoritesModel::userModifiedChanged, once, [once, handler] {
        const std::function<void()> copy = handler;
        delete once; // and the lambda with it
        copy();
    });
}
}

void FavoritesEditingTest::announcements()
{
    QTest::addColumn<bool>("late");
    QTest::newRow("announced at once") << false;
    QTest::newRow("announced later") << true;
}

void FavoritesEditingTest::init()
{
    World::reset();
    storeFavorites(path("a/b"));
    storeUserModified(false);
    MGConfItem(text("/test/other")).set({});
    declareSections(path("a/b/c/d/e/f"));
}

void FavoritesEditingTest::isFavoriteComparesExactly()
{
    storeFavorites(QStringList{text("a"), text("x/y")});
    WatchedFavorites favorites;
    QVERIFY(favorites->isFavorite(text("a")));
    QVERIFY(favorites->isFavorite(text("x/y")));
    for (const char *other : {"", "A", "a/", "/a", "x", "y", "x//y"}) {
        QVERIFY(!favorites->isFavorite(text(other)));
    }
}

void FavoritesEditingTest::isFavoriteReadsTheKey()
{
    WatchedFavorites favorites;
    QVERIFY(favorites->isFavorite(text("a")));
    waitForWrites();
    store(favorites->key(), text("['c']"));
    // The change is not announced before the event loop runs.
    QVERIFY(favorites->isFavorite(text("c")));
    QVERIFY(!favorites->isFavorite(text("a")));
    QCOMPARE(favorites.names(), path("a/b"));
    QTRY_COMPARE(favorites.names(), path("c"));
}

void FavoritesEditingTest::indexOf()
{
    declareSections({text("a/x"), text("x")});
    storeFavorites(QStringList{text("a/x"), text("x"), text("nowhere")});
    WatchedFavorites favorites;
    QCOMPARE(favorites->indexOf(text("a/x")), 0);
    QCOMPARE(favorites->indexOf(text("x")), 1);
    for (const char *other : {"", "a", "nowhere", "/x", "X"}) {
        QCOMPARE(favorites->indexOf(text(other)), -1);
    }
}

void FavoritesEditingTest::adds_data()
{
    announcements();
}

void FavoritesEditingTest::adds()
{
    QFETCH(bool, late);
    storeUserModified(true);
    WatchedFavorites favorites;
    std::optional<LateAnnouncements> announcements;
    if (late) {
        announcements.emplace();
    }
    favorites->addFavorite(text("c"));
    QCOMPARE(storedFavorites(), path("a/b/c"));
    QVERIFY(favorites->isFavorite(text("c")));
    QTRY_COMPARE(favorites.names(), path("a/b/c"));
    QCOMPARE(favorites.takeSignals(), (QStringList{text("rowsInserted 2-2"), text("dataChanged 0-0"),
                                                   text("dataChanged 1-1"), text("countChanged")}));
    QVERIFY(favorites.isConsistent());

    // What cannot be shown is stored all the same.
    favorites->addFavorite(text("nowhere"));
    QCOMPARE(storedFavorites(), path("a/b/c/nowhere"));
    QCOMPARE(favorites->count(), 3);
}

void FavoritesEditingTest::addsTwice()
{
    WatchedFavorites favorites;
    favorites->addFavorite(text("a"));
    QCOMPARE(storedFavorites(), path("a/b/a"));
    QCOMPARE(favorites.names(), path("a/b/a"));
    favorites->removeFavorite(text("a"));
    QCOMPARE(storedFavorites(), path("b"));
    QCOMPARE(favorites.names(), path("b"));
}

void FavoritesEditingTest::writesFlagBeforeList()
{
    WatchedFavorites favorites;
    const MGConfItem list(WatchedFavorites::keyOfTests());
    const MGConfItem flag(WatchedFavorites::userModifiedKeyOfTests());
    QStringList order;
    connect(&list, &MGConfItem::valueChanged, this, [&order] { order.append(text("list")); });
    connect(&flag, &MGConfItem::valueChanged, this, [&order] { order.append(text("flag")); });
    favorites->addFavorite(text("c"));
    favorites->addFavorite(text("d"));
    QCOMPARE(order, (QStringList{text("flag"), text("list"), text("list")}));
    for (const auto &edit : {std::function<void()>([&] { favorites->removeFavorite(text("c")); }),
                             std::function<void()>([&] { favorites->move(0, 1); })}) {
        storeUserModified(false);
        order.clear();
        edit();
        QCOMPARE(order, (QStringList{text("flag"), text("list")}));
    }
    // As another program sees it
    QTRY_COMPARE(stored(WatchedFavorites::keyOfTests()), QByteArray("['b', 'a', 'd']"));
    QTRY_COMPARE(stored(WatchedFavorites::userModifiedKeyOfTests()), QByteArray("true"));
}

void FavoritesEditingTest::removes_data()
{
    announcements();
}

void FavoritesEditingTest::removes()
{
    QFETCH(bool, late);
    storeFavorites(path("a/b/c"));
    storeUserModified(true);
    WatchedFavorites favorites;
    std::optional<LateAnnouncements> announcements;
    if (late) {
        announcements.emplace();
    }
    favorites->removeFavorite(text("b"));
    QCOMPARE(storedFavorites(), path("a/c"));
    QCOMPARE(favorites.names(), path("a/c"));
    QCOMPARE(favorites.takeSignals(),
             (QStringList{text("rowsAboutToBeRemoved 1-1"), text("rowsRemoved 1-1"), text("countChanged")}));
    settle(); // the announcement tells the model nothing new
    QCOMPARE(favorites.takeSignals(), QStringList());
    QVERIFY(favorites.isConsistent());
    // The row that went is not followed any more.
    removeNode(path("b"));
    QCOMPARE(favorites.takeSignals(), QStringList());
}

void FavoritesEditingTest::removesEveryCopy_data()
{
    announcements();
}

void FavoritesEditingTest::removesEveryCopy()
{
    QFETCH(bool, late);
    storeFavorites(path("a/b/a/c/a"));
    WatchedFavorites favorites;
    std::optional<LateAnnouncements> announcements;
    if (late) {
        announcements.emplace();
    }
    favorites->removeFavorite(text("a"));
    QCOMPARE(storedFavorites(), path("b/c"));
    QCOMPARE(favorites.names(), path("b/c"));
    QVERIFY(favorites.isConsistent());
}

void FavoritesEditingTest::removesOnlyWhatItShows()
{
    declareJson(R"({"path": "a"}, {"path": "n", "type": "integer"})");
    const QStringList stored = path("a/n/nowhere");
    storeFavorites(stored);
    WatchedFavorites favorites;
    for (const char *hidden : {"n", "nowhere", "other", ""}) {
        favorites->removeFavorite(text(hidden));
    }
    QCOMPARE(storedFavorites(), stored);
    QVERIFY(!favorites->userModified());
    QCOMPARE(favorites.takeSignals(), QStringList());
}

void FavoritesEditingTest::removesInPicker_data()
{
    announcements();
}

void FavoritesEditingTest::removesInPicker()
{
    QFETCH(bool, late);
    storeFavorites(path("nowhere/a/b/nowhere"));
    WatchedFavorites favorites;
    favorites->setShowPotential(true);
    favorites.takeSignals();
    std::optional<LateAnnouncements> announcements;
    if (late) {
        announcements.emplace();
    }
    favorites->removeFavorite(text("nowhere"));
    QCOMPARE(storedFavorites(), path("a/b"));
    QVERIFY(favorites->userModified());
    QCOMPARE(favorites->count(), 6);
    QStringList notified;
    for (int row = 0; row < 6; ++row) {
        notified.append(text("dataChanged %1-%1").arg(row));
    }
    notified.append(text("userModifiedChanged"));
    QStringList seen;
    QTRY_COMPARE((seen += favorites.takeSignals()).size(), notified.size());
    seen.sort(); // the flag and the list are announced each for itself
    QCOMPARE(seen, notified);
    favorites->addFavorite(text("d"));
    QCOMPARE(storedFavorites(), path("a/b/d"));
    QCOMPARE(favorites->count(), 6);
}

void FavoritesEditingTest::removesOtherSpelling()
{
    declareSections({text("b"), text("net/a")});
    storeFavorites(QStringList{text("/net//a/"), text("b"), text("net/a")});
    storeUserModified(true);
    WatchedFavorites favorites;
    QCOMPARE(favorites.names(), path("a/b/a"));
    favorites->removeFavorite(text("net/a"));
    // Only the path as it is spelled leaves the list, but no row of the entry stays or comes back.
    QCOMPARE(storedFavorites(), (QStringList{text("/net//a/"), text("b")}));
    QCOMPARE(favorites.names(), path("b"));
    QCOMPARE(favorites.takeSignals(),
             (QStringList{text("rowsAboutToBeRemoved 0-0"), text("rowsRemoved 0-0"),
                          text("rowsAboutToBeRemoved 1-1"), text("rowsRemoved 1-1"), text("countChanged")}));
    settle();
    favorites->removeFavorite(text("net/a"));
    QCOMPARE(favorites.takeSignals(), QStringList());
    QCOMPARE(storedFavorites(), (QStringList{text("/net//a/"), text("b")}));
}

void FavoritesEditingTest::moves_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<QString>("signal");
    QTest::addColumn<bool>("late");
    for (const bool late : {false, true}) {
        const QByteArray suffix = late ? ", announced later" : "";
        const auto row = [&](int from, int to, const char *expected, const char *signal) {
            QTest::newRow((QByteArray::number(from) + " to " + QByteArray::number(to) + suffix).constData())
                << from << to << text(expected) << text(signal) << late;
        };
        row(0, 2, "b/c/a/d", "rowsMoved 0-0 to 3");
        row(2, 0, "c/a/b/d", "rowsMoved 2-2 to 0");
        row(0, 1, "b/a/c/d", "rowsMoved 0-0 to 2");
        row(1, 0, "b/a/c/d", "rowsMoved 1-1 to 0");
        row(0, 3, "b/c/d/a", "rowsMoved 0-0 to 4");
        row(3, 2, "a/b/d/c", "rowsMoved 3-3 to 2");
    }
}

void FavoritesEditingTest::moves()
{
    QFETCH(int, from);
    QFETCH(int, to);
    QFETCH(QString, expected);
    QFETCH(QString, signal);
    QFETCH(bool, late);
    storeFavorites(path("a/b/c/d"));
    storeUserModified(true);
    WatchedFavorites favorites;
    std::optional<LateAnnouncements> announcements;
    if (late) {
        announcements.emplace();
    }
    favorites->move(from, to);
    QCOMPARE(favorites.names().join(QLatin1Char('/')), expected);
    QCOMPARE(storedFavorites().join(QLatin1Char('/')), expected);
    QCOMPARE(favorites.takeSignals(), QStringList{signal});
    settle();
    QCOMPARE(favorites.takeSignals(), QStringList());
    QCOMPARE(favorites.names().join(QLatin1Char('/')), expected);
    QVERIFY(favorites.isConsistent());
}

void FavoritesEditingTest::moveKeepsHiddenPaths()
{
    storeFavorites(path("hidden1/a/hidden2/b/hidden3/c"));
    WatchedFavorites favorites;
    favorites->move(0, 2);
    QCOMPARE(favorites.names(), path("b/c/a"));
    QCOMPARE(storedFavorites(), path("hidden1/hidden2/b/hidden3/c/a"));
    favorites->move(2, 1);
    QCOMPARE(storedFavorites(), path("hidden1/hidden2/b/hidden3/a/c"));
}

void FavoritesEditingTest::moveOntoItself_data()
{
    announcements();
}

void FavoritesEditingTest::moveOntoItself()
{
    QFETCH(bool, late);
    WatchedFavorites favorites;
    std::optional<LateAnnouncements> announcements;
    if (late) {
        announcements.emplace();
    }
    favorites->move(1, 1);
    QVERIFY(favorites->userModified());
    QCOMPARE(storedFavorites(), path("a/b"));
    QStringList seen;
    QTRY_COMPARE(seen += favorites.takeSignals(), QStringList{text("userModifiedChanged")});
    QVERIFY(favorites.isConsistent());
    storeFavorites(path("a/b/c")); // it still follows
    QTRY_COMPARE(favorites.names(), path("a/b/c"));
}

void FavoritesEditingTest::movesNothing_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    for (const auto &[from, to] : {std::pair(-1, 0), std::pair(0, -1), std::pair(2, 0), std::pair(0, 2),
                                   std::pair(-1, -1), std::pair(2, 2), std::pair(INT_MAX, INT_MIN)}) {
        QTest::newRow((QByteArray::number(from) + " to " + QByteArray::number(to)).constData()) << from << to;
    }
}

void FavoritesEditingTest::movesNothing()
{
    QFETCH(int, from);
    QFETCH(int, to);
    WatchedFavorites favorites;
    favorites->move(from, to);
    QCOMPARE(favorites.takeSignals(), QStringList());
    QVERIFY(!favorites->userModified());
    // Nor does a picker's row that is no favourite move.
    favorites->setShowPotential(true);
    favorites.takeSignals();
    favorites->move(favorites->indexOf(text("a")), favorites->indexOf(text("c")));
    favorites->move(favorites->indexOf(text("c")), favorites->indexOf(text("a")));
    QCOMPARE(favorites.takeSignals(), QStringList());
    QCOMPARE(storedFavorites(), path("a/b"));
}

void FavoritesEditingTest::moveOfEqualEntries()
{
    storeFavorites(path("a/b/a/c"));
    WatchedFavorites favorites;
    favorites->move(2, 3);
    // The first stored "a" counts.
    QCOMPARE(storedFavorites(), path("b/a/c/a"));
    QCOMPARE(favorites.names(), path("a/b/c/a"));
    QVERIFY(favorites.isConsistent());
}

void FavoritesEditingTest::userModified()
{
    WatchedFavorites favorites{QString()};
    QCOMPARE(favorites->userModifiedKey(), QString());
    QVERIFY(!favorites->userModified());
    favorites->setUserModifiedKey(text("/test/other"));
    QVERIFY(!favorites->userModified()); // not set
    QSignalSpy spy(&*favorites, &FavoritesModel::userModifiedChanged);
    MGConfItem flag(text("/test/other"));
    flag.set(true);
    QVERIFY(favorites->userModified());
    QCOMPARE(spy.count(), 1);
    flag.set(text("no bool"));
    QVERIFY(favorites->userModified()); // a text that is not "false" converts to true
    flag.set(0);
    QVERIFY(!favorites->userModified());
    flag.set(QStringList{text("true")});
    QVERIFY(!favorites->userModified());
    QTRY_COMPARE(stored(text("/test/other")), QByteArray("['true']"));
    store(text("/test/other"), text("true"));
    QTRY_VERIFY(favorites->userModified());
}

void FavoritesEditingTest::userModifiedKey()
{
    WatchedFavorites favorites{QString()};
    favorites->setUserModifiedKey({});
    QCOMPARE(favorites.takeSignals(), QStringList());
    const QStringList changed{text("userModifiedKeyChanged"), text("userModifiedChanged")};
    favorites->setUserModifiedKey(text("/test/other"));
    QCOMPARE(favorites.takeSignals(), changed);
    QCOMPARE(favorites->userModifiedKey(), text("/test/other"));
    favorites->setUserModifiedKey(text("/test/other"));
    QCOMPARE(favorites.takeSignals(), QStringList());
    favorites->setUserModifiedKey({});
    QCOMPARE(favorites.takeSignals(), changed);
    QCOMPARE(favorites->userModifiedKey(), QString());
    // The old key is neither written nor followed any more.
    favorites->addFavorite(text("c"));
    QVERIFY(!MGConfItem(text("/test/other")).value().isValid());
    favorites.takeSignals();
    MGConfItem(text("/test/other")).set(true);
    QCOMPARE(favorites.takeSignals(), QStringList());
}

void FavoritesEditingTest::editsWithoutUserModifiedKey_data()
{
    announcements();
}

void FavoritesEditingTest::editsWithoutUserModifiedKey()
{
    QFETCH(bool, late);
    WatchedFavorites favorites{QString()};
    std::optional<LateAnnouncements> announcements;
    if (late) {
        announcements.emplace();
    }
    favorites->addFavorite(text("c"));
    QTRY_COMPARE(favorites.names(), path("a/b/c"));
    favorites->removeFavorite(text("a"));
    QCOMPARE(favorites.names(), path("b/c"));
    favorites->move(0, 1);
    QCOMPARE(favorites.names(), path("c/b"));
    QCOMPARE(storedFavorites(), path("c/b"));
    settle(); // whatever is still announced
    QCOMPARE(favorites.names(), path("c/b"));
    QVERIFY(favorites.isConsistent());
    QVERIFY(!favorites->userModified());
}

void FavoritesEditingTest::twoModels_data()
{
    announcements();
}

void FavoritesEditingTest::twoModels()
{
    QFETCH(bool, late);
    WatchedFavorites first;
    WatchedFavorites second{QString()};
    std::optional<LateAnnouncements> announcements;
    if (late) {
        announcements.emplace();
    }
    first->addFavorite(text("c"));
    QTRY_COMPARE(second.names(), path("a/b/c"));
    QTRY_COMPARE(first.names(), path("a/b/c"));
    first->move(0, 2);
    QTRY_COMPARE(second.names(), path("b/c/a"));
    second->removeFavorite(text("c"));
    QTRY_COMPARE(first.names(), path("b/a"));
    second->addFavorite(text("b"));
    first->removeFavorite(text("b"));
    QTRY_COMPARE(second.names(), path("a"));
    QTRY_COMPARE(first.names(), path("a"));
    QTRY_COMPARE(stored(first->key()), QByteArray("['a']"));
    store(first->key(), text("['d', 'a']"));
    QTRY_COMPARE(second.names(), path("d/a"));
    QTRY_COMPARE(first.names(), path("a/d")); // the user's order stays
    QVERIFY(first.isConsistent());
    QVERIFY(second.isConsistent());
}

// What the user has modified is followed row by row, and rows that stay are never moved.
void FavoritesEditingTest::twoModelsOfAUser()
{
    storeFavorites(path("a/b/c"));
    WatchedFavorites first;
    WatchedFavorites second;
    first->move(0, 2);
    QCOMPARE(first.names(), path("b/c/a"));
    QCOMPARE(second.names(), path("a/b/c"));
    second->addFavorite(text("d"));
    QCOMPARE(first.names(), path("b/c/a/d"));
    QCOMPARE(second.names(), path("a/b/c/d"));
    second->setKey(text("/test/other"));
    second->setKey(first->key());
    QCOMPARE(second.names(), first.names());
}

void FavoritesEditingTest::movesInThePicker()
{
    storeFavorites(path("e/b"));
    WatchedFavorites favorites;
    favorites->setShowPotential(true);
    QCOMPARE(favorites.names(), path("e/b/a/c/d/f"));
    favorites->move(1, 0);
    QCOMPARE(storedFavorites(), path("b/e"));
    QCOMPARE(favorites.names(), path("b/e/a/c/d/f"));
    favorites->move(1, 2); // no favourite there
    QCOMPARE(storedFavorites(), path("b/e"));
    QVERIFY(favorites->userModified());
}

void FavoritesEditingTest::outsideWriteBeforeTheOwn_data()
{
    QTest::addColumn<int>("edit");
    QTest::addColumn<bool>("late");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("remove") << 0 << false << path("d/b");
    QTest::newRow("move") << 1 << false << path("d/b/a");
    QTest::newRow("add") << 2 << false << path("d/a/b/e");
    // Then the flag's change is heard of after the edit, and the other write with it.
    QTest::newRow("remove, announced later") << 0 << true << path("d/a/b");
    QTest::newRow("move, announced later") << 1 << true << path("d/a/b");
    QTest::newRow("add, announced later") << 2 << true << path("d/a/b");
}

void FavoritesEditingTest::outsideWriteBeforeTheOwn()
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

void FavoritesEditingTest::outsideWriteAfterTheOwn_data()
{
    QTest::addColumn<int>("edit");
    QTest::addColumn<bool>("late");
    for (int edit = 0; edit < 3; ++edit) {
        QTest::addRow("edit %d", edit) << edit << false;
        QTest::addRow("edit %d, announced later", edit) << edit << true;
    }
}

void FavoritesEditingTest::outsideWriteAfterTheOwn()
{
    QFETCH(int, edit);
    QFETCH(bool, late);
    // Heard of before the model does
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

void FavoritesEditingTest::handlerChangesKey()
{
    MGConfItem other(text("/test/other"));
    other.set(path("d/e"));
    WatchedFavorites favorites;
    inTheMiddle(&*favorites, [&] { favorites->setKey(text("/test/other")); });
    favorites->removeFavorite(text("a"));
    // The edit goes to the list that it was meant for.
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

void FavoritesEditingTest::handlerChangesUserModifiedKey()
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

void FavoritesEditingTest::handlerDeletesTheModel_data()
{
    QTest::addColumn<int>("edit");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("add") << 0 << path("a/b/c");
    QTest::newRow("remove") << 1 << path("b");
    QTest::newRow("move") << 2 << path("b/a");
    QTest::newRow("remove from picker") << 3 << path("b");
}

void FavoritesEditingTest::handlerDeletesTheModel()
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
    // What the user did is not lost.
    QCOMPARE(storedFavorites(), expected);
    QVERIFY(MGConfItem(WatchedFavorites::userModifiedKeyOfTests()).value().toBool());
}

void FavoritesEditingTest::handlerEditsAgain_data()
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

void FavoritesEditingTest::handlerEditsAgain()
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

void FavoritesEditingTest::handlerChangesTheTree_data()
{
    QTest::addColumn<bool>("rescan");
    QTest::newRow("node dies") << false;
    QTest::newRow("content changes") << true;
}

void FavoritesEditingTest::handlerChangesTheTree()
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

// What is put off in the middle of a change is not forgotten because something else happens, too.
void FavoritesEditingTest::handlersOfPickerChangeMore()
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

void FavoritesEditingTest::handlerChangesFilter()
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

void FavoritesEditingTest::randomEdits_data()
{
    announcements();
}

void FavoritesEditingTest::randomEdits()
{
    QFETCH(bool, late);
    QRandomGenerator random(11);
    const auto name = [&random] { return QString(QLatin1Char(char('a' + random.bounded(10)))); };
    WatchedFavorites first;
    WatchedFavorites second{QString()};
    std::optional<LateAnnouncements> announcements;
    if (late) {
        announcements.emplace();
    }
    for (int step = 0; step < 500; ++step) {
        WatchedFavorites &favorites = random.bounded(2) ? first : second;
        const int size = qMax(1, favorites->rowCount());
        const QStringList storedBefore = storedFavorites();
        QStringList rowsOfFirst = first.names();
        QStringList rowsOfSecond = second.names();
        QStringList &rows = &favorites == &first ? rowsOfFirst : rowsOfSecond;
        bool isChangedInPlace = false;
        bool isReset = false;
        switch (random.bounded(10)) {
        case 0:
        case 1:
            favorites->addFavorite(name());
            break;
        case 2:
        case 3: {
            const QString removed = name();
            isChangedInPlace = rows.removeOne(removed);
            favorites->removeFavorite(removed);
            break;
        }
        case 4:
        case 5: {
            const int from = random.bounded(size);
            const int to = random.bounded(size);
            isChangedInPlace = storedBefore.contains(rows.value(from)) && storedBefore.contains(rows.value(to));
            if (isChangedInPlace) {
                rows.move(from, to);
            }
            favorites->move(from, to);
            break;
        }
        case 6: {
            QStringList paths;
            for (int i = random.bounded(8); i > 0; --i) {
                paths.append(name());
            }
            storeFavorites(paths);
            break;
        }
        case 7:
            removeNode({name()});
            break;
        case 8:
            declareSections({name(), name(), name(), name(), name(), name()});
            isReset = true;
            break;
        default:
            storeUserModified(random.bounded(2));
        }
        QTRY_VERIFY2(first.isConsistent() && second.isConsistent(), qPrintable(QString::number(step)));
        if (late) {
            continue;
        }
        const bool isOtherList = storedFavorites() != storedBefore;
        const QStringList wanted = WatchedFavorites::wantedNames();
        for (const WatchedFavorites *model : {&first, &second}) {
            const bool isDefault = model == &second || !first->userModified();
            const bool isAnnounced = isOtherList && !(isChangedInPlace && model == &favorites);
            const QStringList &before = model == &first ? rowsOfFirst : rowsOfSecond;
            QCOMPARE(model->names(), isReset || (isDefault && isAnnounced) ? wanted : followed(before, wanted));
        }
    }
}

void FavoritesEditingTest::editsInLinearTime_data()
{
    QTest::addColumn<int>("edit");
    QTest::newRow("add") << 0;
    QTest::newRow("remove") << 1;
    QTest::newRow("move") << 2;
}

void FavoritesEditingTest::editsInLinearTime()
{
    QFETCH(int, edit);
    const auto measure = [edit](int count) {
        QStringList paths;
        for (int i = 0; i < count; ++i) {
            paths.append(text("p%1").arg(i));
        }
        declareSections(paths + QStringList(text("new")));
        storeFavorites(paths);
        storeUserModified(true);
        FavoritesModel model;
        model.setFilter({text("grid_favorites")});
        model.setUserModifiedKey(WatchedFavorites::userModifiedKeyOfTests());
        model.componentComplete();
        CpuTimer timer;
        timer.start();
        for (int i = 0; i < 10; ++i) {
            switch (edit) {
            case 0:
                model.addFavorite(text("new"));
                break;
            case 1:
                model.removeFavorite(paths.at(count / 2 + i));
                break;
            default:
                model.move(0, model.count() - 1);
            }
        }
        const int expected = edit == 0 ? count + 10 : edit == 1 ? count - 10 : count;
        return model.count() == expected ? timer.nsecsElapsed() : -1;
    };
    QVERIFY(Growth::isLinear(measure, 500));
}

QTEST_GUILESS_MAIN(FavoritesEditingTest)
#include "tst_favoritesediting.moc"
