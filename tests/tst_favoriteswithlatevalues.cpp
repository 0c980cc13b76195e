// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

// Favourites in an MGConfItem whose value changes only when the event loop runs, together with the announcement. The
// item below replaces the platform's in this program; its keys are in memory.

#include "nodescriptors.h"
#include "text.h"
#include "watchedfavorites.h"
#include "world.h"

#include <mgconfitem.h>

#include <QSet>
#include <QTest>
#include <QTimer>

class MGConfItemPrivate
{
public:
    const QString key;
};

namespace
{
QHash<QString, QVariant> s_values;
QSet<MGConfItem *> s_items;
QSet<const MGConfItem *> s_emptyItems; ///< that could not read their keys at the last change

void announce(const QString &key)
{
    const QSet<MGConfItem *> items = s_items;
    for (MGConfItem *item : items) {
        if (s_items.contains(item) && item->key() == key) {
            Q_EMIT item->valueChanged();
        }
    }
}

void change(const QString &key, const QVariant &value)
{
    if (std::exchange(s_values[key], value) == value) {
        return;
    }
    s_emptyItems.clear();
    announce(key);
}
}

MGConfItem::MGConfItem(const QString &key, QObject *parent)
    : QObject(parent)
    , d(new MGConfItemPrivate{key})
{
    s_items.insert(this);
}

MGConfItem::~MGConfItem()
{
    s_items.remove(this);
}

QString MGConfItem::key() const
{
    return d->key;
}

QVariant MGConfItem::value() const
{
    return s_emptyItems.contains(this) ? QVariant() : s_values.value(d->key);
}

QVariant MGConfItem::value(const QVariant &defaultValue) const
{
    return s_values.value(d->key, defaultValue);
}

void MGConfItem::set(const QVariant &value)
{
    QTimer::singleShot(0, [key = d->key, value] { change(key, value); });
}

class FavoritesWithLateValuesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void removedRowDoesNotComeBack_data();
    void removedRowDoesNotComeBack();
    void movedRowDoesNotComeBack_data();
    void movedRowDoesNotComeBack();
    void addedRowComesWithTheValue();
    void otherListIsFollowed();
    void listIsReadAgainBeforeAnEdit();

private:
    static void modifiedOrNot();
};

void FavoritesWithLateValuesTest::init()
{
    s_values.clear();
    World::reset();
    declareSections(path("a/b/c/d"));
    change(WatchedFavorites::keyOfTests(), path("a/b/c"));
}

void FavoritesWithLateValuesTest::modifiedOrNot()
{
    QTest::addColumn<bool>("modified");
    QTest::newRow("default") << false;
    QTest::newRow("user's") << true;
}

void FavoritesWithLateValuesTest::removedRowDoesNotComeBack_data()
{
    modifiedOrNot();
}

void FavoritesWithLateValuesTest::removedRowDoesNotComeBack()
{
    QFETCH(bool, modified);
    change(WatchedFavorites::userModifiedKeyOfTests(), modified);
    WatchedFavorites favorites;
    favorites->removeFavorite(text("b"));
    QCOMPARE(favorites.takeSignals(),
             (QStringList{text("rowsAboutToBeRemoved 1-1"), text("rowsRemoved 1-1"), text("countChanged")}));
    QCOMPARE(storedFavorites(), path("a/b/c")); // not yet
    QVERIFY(favorites->isFavorite(text("b")));
    QTRY_COMPARE(storedFavorites(), path("a/c"));
    QVERIFY(!favorites->isFavorite(text("b")));
    QCOMPARE(favorites.names(), path("a/c"));
    QCOMPARE(favorites.takeSignals(), modified ? QStringList() : QStringList{text("userModifiedChanged")});
}

void FavoritesWithLateValuesTest::movedRowDoesNotComeBack_data()
{
    modifiedOrNot();
}

void FavoritesWithLateValuesTest::movedRowDoesNotComeBack()
{
    QFETCH(bool, modified);
    change(WatchedFavorites::userModifiedKeyOfTests(), modified);
    WatchedFavorites favorites;
    favorites->move(0, 2);
    QCOMPARE(favorites.names(), path("b/c/a"));
    QCOMPARE(favorites.takeSignals(), QStringList{text("rowsMoved 0-0 to 3")});
    QTRY_COMPARE(storedFavorites(), path("b/c/a"));
    QCOMPARE(favorites.names(), path("b/c/a"));
    QCOMPARE(favorites.takeSignals(), modified ? QStringList() : QStringList{text("userModifiedChanged")});
}

void FavoritesWithLateValuesTest::addedRowComesWithTheValue()
{
    WatchedFavorites favorites;
    favorites->addFavorite(text("d"));
    QCOMPARE(favorites.names(), path("a/b/c"));
    QTRY_COMPARE(favorites.names(), path("a/b/c/d"));
    QVERIFY(favorites.isConsistent());
}

void FavoritesWithLateValuesTest::otherListIsFollowed()
{
    WatchedFavorites favorites;
    favorites->removeFavorite(text("b"));
    change(favorites->key(), path("d/b"));
    QCOMPARE(favorites.names(), path("d/b"));
    QTRY_COMPARE(favorites.names(), path("a/c"));
    QVERIFY(favorites.isConsistent());
}

// An item that reads its key when it is announced only, finds nothing if there is no descriptor then.
void FavoritesWithLateValuesTest::listIsReadAgainBeforeAnEdit()
{
    WatchedFavorites favorites;
    {
        const NoDescriptors none;
        for (const MGConfItem *item : qAsConst(s_items)) {
            s_emptyItems.insert(item);
        }
        announce(favorites->key());
    }
    favorites->addFavorite(text("d"));
    QTRY_COMPARE(favorites.names(), path("a/b/c/d"));
    QCOMPARE(storedFavorites(), path("a/b/c/d"));
}

QTEST_GUILESS_MAIN(FavoritesWithLateValuesTest)
#include "tst_favoriteswithlatevalues.moc"
