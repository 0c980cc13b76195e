// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "dconftool.h"
#include "lateannouncements.h"
#include "registry/pluginregistry.h"
#include "registry/treeitem.h"
#include "text.h"
#include "watchedfavorites.h"
#include "world.h"

#include <mgconfitem.h>

#include <QSignalSpy>
#include <QTest>

#include <optional>

// The user-modified flag, if dconf announces a write at once and if it does later.
class FavoritesUserModifiedTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void writesFlagBeforeList();
    void userModified();
    void userModifiedKey();
    void editsWithoutUserModifiedKey_data();
    void editsWithoutUserModifiedKey();

private:
    void announcements();
};

void FavoritesUserModifiedTest::announcements()
{
    QTest::addColumn<bool>("late");
    QTest::newRow("announced at once") << false;
    QTest::newRow("announced later") << true;
}

void FavoritesUserModifiedTest::init()
{
    World::reset();
    storeFavorites(path("a/b"));
    storeUserModified(false);
    MGConfItem(text("/test/other")).set({});
    declareSections(path("a/b/c/d/e/f"));
}

void FavoritesUserModifiedTest::writesFlagBeforeList()
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
    // As another program reads it
    QTRY_COMPARE(stored(WatchedFavorites::keyOfTests()), QByteArray("['b', 'a', 'd']"));
    QTRY_COMPARE(stored(WatchedFavorites::userModifiedKeyOfTests()), QByteArray("true"));
}

void FavoritesUserModifiedTest::userModified()
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

void FavoritesUserModifiedTest::userModifiedKey()
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
    // The old key is no longer written or followed.
    favorites->addFavorite(text("c"));
    QVERIFY(!MGConfItem(text("/test/other")).value().isValid());
    favorites.takeSignals();
    MGConfItem(text("/test/other")).set(true);
    QCOMPARE(favorites.takeSignals(), QStringList());
}

void FavoritesUserModifiedTest::editsWithoutUserModifiedKey_data()
{
    announcements();
}

void FavoritesUserModifiedTest::editsWithoutUserModifiedKey()
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
    settle(); // until all announcements have arrived
    QCOMPARE(favorites.names(), path("c/b"));
    QVERIFY(favorites.isConsistent());
    QVERIFY(!favorites->userModified());
}

QTEST_GUILESS_MAIN(FavoritesUserModifiedTest)
#include "tst_favoritesusermodified.moc"
