// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "common/messages.h"
#include "messagelog.h"
#include "text.h"
#include "watchedentry.h"
#include "world.h"

#include <mgconfitem.h>

#include <QTest>

#include <memory>

namespace
{
const QString s_key = QStringLiteral("/apps/velka-settings/favorites");
const QString s_flag = QStringLiteral("/test/userModified");

QStringList stored(const QString &key)
{
    return MGConfItem(key).value().toStringList();
}
}

/// The property "favorite" of a SettingsEntry
class EntryFavoritesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void isWhatTheListNames();
    void editsTheList();
    void setsTheFlag();
    void ofAnotherKey();
    void isRightBeforeThePathIsAnnounced();
    void handlerOfThePathMayEditTheList();
    void followsOtherEntries();
    void comparesWithTheStoredList();
    void refusesWhatCannotBeStored();
    void withoutAPathIsRefused();
};

void EntryFavoritesTest::init()
{
    World::reset();
    MGConfItem(s_key).set({});
    MGConfItem(s_flag).set({});
}

void EntryFavoritesTest::isWhatTheListNames()
{
    MGConfItem(s_key).set(QStringList{text("a/b")});
    WatchedEntry entry("a/b");
    QCOMPARE(entry.favorite(), true);
    MGConfItem(s_key).set(QStringList{text("a"), text("/a/b")});
    QTRY_COMPARE(entry.favorite(), false); // compared as it is written
    MGConfItem(s_key).set(QStringList{text("c"), text("a/b")});
    QTRY_COMPARE(entry.favorite(), true);
    MGConfItem(s_key).set(QStringList{text("a/b")});
    entry.setPath(text("a"));
    QCOMPARE(entry.favorite(), false);
    QCOMPARE(entry.takeChanges().count(text("favorite")), 3);
    QVERIFY(entry.isAsAnnounced());
}

void EntryFavoritesTest::editsTheList()
{
    MGConfItem(s_key).set(QStringList{text("x"), text("y")});
    WatchedEntry entry("/a/b");
    entry.setFavorite(true);
    QCOMPARE(entry.favorite(), true);
    QCOMPARE(stored(s_key), names("x y a/b"));
    entry.setFavorite(true);
    QCOMPARE(stored(s_key), names("x y a/b"));
    QCOMPARE(entry.takeChanges(), names("favorite"));
    MGConfItem(s_key).set(names("a/b x a/b y"));
    entry.setFavorite(false);
    QCOMPARE(stored(s_key), names("x y"));
    QCOMPARE(entry.takeChanges(), names("favorite"));
    QVERIFY(entry.isAsAnnounced());
}

void EntryFavoritesTest::setsTheFlag()
{
    WatchedEntry entry("a");
    entry.setFavorite(true);
    QCOMPARE(MGConfItem(s_flag).value(), QVariant());
    entry.setUserModifiedKey(s_flag);
    entry.setFavorite(true); // it is
    QCOMPARE(MGConfItem(s_flag).value(), QVariant());
    entry.setFavorite(false);
    QCOMPARE(MGConfItem(s_flag).value(), QVariant(true));
    entry.setFavorite(true);
    QCOMPARE(MGConfItem(s_flag).value(), QVariant(true));
    QCOMPARE(entry.takeChanges(), names("favorite favorite favorite userModifiedKey"));
}

void EntryFavoritesTest::ofAnotherKey()
{
    const QString other = text("/test/otherFavorites");
    MGConfItem(other).set(names("a"));
    WatchedEntry entry("a");
    entry.setFavoritesKey(other);
    QCOMPARE(entry.takeChanges(), names("favorite favoritesKey"));
    entry.setFavorite(false);
    QCOMPARE(stored(other), QStringList());
    QCOMPARE(stored(s_key), QStringList());
    entry.setFavoritesKey({});
    entry.setFavorite(true);
    QCOMPARE(entry.favorite(), false);
    QVERIFY(entry.isAsAnnounced());
}

void EntryFavoritesTest::isRightBeforeThePathIsAnnounced()
{
    MGConfItem(s_key).set(names("b"));
    WatchedEntry entry("a");
    QVector<bool> values;
    const auto note = [&] { values.append(entry.favorite()); };
    connect(&entry, &SettingsEntry::pathChanged, this, note);
    connect(&entry, &SettingsEntry::favoriteChanged, this, note);
    connect(&entry, &SettingsEntry::favoritesKeyChanged, this, note);
    entry.setPath(text("b"));
    QCOMPARE(values, (QVector<bool>{true, true}));
    entry.setPath(text("c"));
    QCOMPARE(values, (QVector<bool>{true, true, false, false}));
    entry.setPath(text("b"));
    entry.setFavoritesKey({});
    QCOMPARE(values.mid(6), (QVector<bool>{false, false}));
    QVERIFY(entry.isAsAnnounced());
}

void EntryFavoritesTest::handlerOfThePathMayEditTheList()
{
    MGConfItem(s_key).set(names("b"));
    WatchedEntry entry("a");
    connect(&entry, &SettingsEntry::pathChanged, this, [&entry] { entry.setFavorite(true); });
    entry.setPath(text("b"));
    QCOMPARE(stored(s_key), names("b"));
    entry.setPath(text("c"));
    QCOMPARE(stored(s_key), names("b c"));
    QCOMPARE(entry.takeChanges().count(text("favorite")), 1);
    QVERIFY(entry.isAsAnnounced());
}

void EntryFavoritesTest::followsOtherEntries()
{
    WatchedEntry first("a");
    WatchedEntry second("a");
    WatchedEntry other("b");
    first.setFavorite(true);
    QTRY_COMPARE(second.favorite(), true);
    QCOMPARE(second.takeChanges(), names("favorite"));
    QCOMPARE(other.takeChanges(), QStringList());
    auto third = std::make_unique<SettingsEntry>();
    third->setPath(text("a"));
    connect(&first, &SettingsEntry::favoriteChanged, this, [&third] { third.reset(); });
    first.setFavorite(false);
    QVERIFY(!third);
    QTRY_COMPARE(second.favorite(), false);
}

void EntryFavoritesTest::comparesWithTheStoredList()
{
    MGConfItem(s_key).set(names("x"));
    WatchedEntry first("a");
    WatchedEntry second("a");
    // One of them is notified before the other.
    connect(&first, &SettingsEntry::favoriteChanged, this, [&] { second.setFavorite(true); });
    connect(&second, &SettingsEntry::favoriteChanged, this, [&] { first.setFavorite(true); });
    first.setFavorite(true);
    QTRY_VERIFY(first.isAsAnnounced() && second.isAsAnnounced());
    QCOMPARE(stored(s_key), names("x a"));
    QVERIFY(first.favorite() && second.favorite());
}

void EntryFavoritesTest::refusesWhatCannotBeStored()
{
    const QStringList paths{text("a"), QString(15 * 1024 * 1024, QLatin1Char('x'))};
    MGConfItem(s_key).set(paths);
    WatchedEntry entry;
    entry.setUserModifiedKey(s_flag);
    entry.setPath(QString(2 * 1024 * 1024, QLatin1Char('y')));
    const MessageLog log;
    entry.setFavorite(true);
    QCOMPARE(log.take(), QStringList(settingsWarning(Messages::TooManyFavorites, s_key)));
    QVERIFY(stored(s_key) == paths);
    QVERIFY(!entry.favorite());
    QCOMPARE(MGConfItem(s_flag).value(), QVariant());
    entry.setPath(text("a"));
    entry.setFavorite(false);
    QVERIFY(stored(s_key) == paths.mid(1));
    QCOMPARE(MGConfItem(s_flag).value(), QVariant(true));
    QCOMPARE(log.take(), QStringList());
}

void EntryFavoritesTest::withoutAPathIsRefused()
{
    WatchedEntry entry("//");
    entry.setFavorite(true);
    QCOMPARE(entry.favorite(), false);
    QCOMPARE(stored(s_key), QStringList());
}

QTEST_GUILESS_MAIN(EntryFavoritesTest)
#include "tst_entryfavorites.moc"
