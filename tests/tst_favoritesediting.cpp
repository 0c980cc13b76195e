// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "common/messages.h"
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

#include <QTest>

#include <optional>

// Edits of favourites, if dconf announces a write at once and if it does later.
class FavoritesEditingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void isFavoriteComparesExactly();
    void isFavoriteReadsTheKey();
    void indexOf();
    void indexOfFirstRow();
    void indexOfInLinearTime();
    void adds_data();
    void adds();
    void addsTwice();
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
    void movesInThePicker();
    void refusesAListThatCannotBeStored();

private:
    void announcements();
};

namespace
{

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

void FavoritesEditingTest::indexOfFirstRow()
{
    storeFavorites(path("b/a/a/c/a"));
    WatchedFavorites favorites;
    QCOMPARE(favorites.names(), path("b/a/a/c/a"));
    QCOMPARE(favorites->indexOf(text("a")), 1);
}

// Every node on the way to an entry is offered.
void FavoritesEditingTest::indexOfInLinearTime()
{
    const auto find = [](int names) {
        const QString deepest = text("a") + text("/a").repeated(names - 1);
        declareSections({deepest});
        FavoritesModel model;
        model.setFilter({text("grid_favorites")});
        model.setShowPotential(true);
        model.componentComplete();
        CpuTimer timer;
        timer.start();
        const bool found = model.indexOf(deepest) == names - 1 && model.indexOf(deepest + text("/a")) == -1;
        return found ? timer.nsecsElapsed() : -1;
    };
    QVERIFY(Growth::isLinear(find, 1000));
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

    // A path that cannot be shown is stored, too.
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
    settle(); // the model already has the announced value
    QCOMPARE(favorites.takeSignals(), QStringList());
    QVERIFY(favorites.isConsistent());
    // The removed row's entry is no longer followed.
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
    seen.sort(); // the flag and the list are announced separately
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
    // Only the exact path is removed from the list, but no row of the entry stays or returns.
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
    // A picker's row that is not a favourite does not move either.
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

// Changes of a list that the user has modified are followed row by row, and rows that stay are never moved.
void FavoritesEditingTest::movesInThePicker()
{
    storeFavorites(path("e/b"));
    WatchedFavorites favorites;
    favorites->setShowPotential(true);
    QCOMPARE(favorites.names(), path("e/b/a/c/d/f"));
    favorites->move(1, 0);
    QCOMPARE(storedFavorites(), path("b/e"));
    QCOMPARE(favorites.names(), path("b/e/a/c/d/f"));
    favorites->move(1, 2); // this row is not a favourite
    QCOMPARE(storedFavorites(), path("b/e"));
    QVERIFY(favorites->userModified());
}

// Work that is deferred during a change is not lost if something else happens, too.

void FavoritesEditingTest::refusesAListThatCannotBeStored()
{
    const QStringList paths = path("a/b") + QStringList(QString(15 * 1024 * 1024, QLatin1Char('x')));
    storeFavorites(paths);
    WatchedFavorites favorites;
    const MessageLog log;
    favorites->addFavorite(QString(2 * 1024 * 1024, QLatin1Char('y')));
    QCOMPARE(log.take(), QStringList(settingsWarning(Messages::TooManyFavorites, WatchedFavorites::keyOfTests())));
    QCOMPARE(favorites.takeSignals(), QStringList());
    QVERIFY(storedFavorites() == paths);
    QVERIFY(!favorites->userModified());
    favorites->removeFavorite(text("a"));
    QCOMPARE(favorites.names(), path("b"));
    QVERIFY(storedFavorites() == paths.mid(1));
    QCOMPARE(log.take(), QStringList());
}

QTEST_GUILESS_MAIN(FavoritesEditingTest)
#include "tst_favoritesediting.moc"
