// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "dconftool.h"
#include "growth.h"
#include "lateannouncements.h"
#include "registry/pluginregistry.h"
#include "registry/treeitem.h"
#include "testsize.h"
#include "text.h"
#include "watchedfavorites.h"
#include "world.h"

#include <mgconfitem.h>

#include <QRandomGenerator>
#include <QTest>

#include <optional>

namespace
{
/// Returns the rows after the list has changed to @p wanted: rows that stay keep their order, and new ones follow them.
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
}

// Random edits of favourites, if dconf announces a write at once and if it does later.
class FavoritesEditingRandomTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void twoModels_data();
    void twoModels();
    void twoModelsOfAUser();
    void randomEdits_data();
    void randomEdits();
    void editsInLinearTime_data();
    void editsInLinearTime();

private:
    void announcements();
};

void FavoritesEditingRandomTest::announcements()
{
    QTest::addColumn<bool>("late");
    QTest::newRow("announced at once") << false;
    QTest::newRow("announced later") << true;
}

void FavoritesEditingRandomTest::init()
{
    World::reset();
    storeFavorites(path("a/b"));
    storeUserModified(false);
    MGConfItem(text("/test/other")).set({});
    declareSections(path("a/b/c/d/e/f"));
}

void FavoritesEditingRandomTest::twoModels_data()
{
    announcements();
}

void FavoritesEditingRandomTest::twoModels()
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

void FavoritesEditingRandomTest::twoModelsOfAUser()
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

void FavoritesEditingRandomTest::randomEdits_data()
{
    announcements();
}

void FavoritesEditingRandomTest::randomEdits()
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
    for (int step = testSize(2000); step > 0; --step) {
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

void FavoritesEditingRandomTest::editsInLinearTime_data()
{
    QTest::addColumn<int>("edit");
    QTest::newRow("add") << 0;
    QTest::newRow("remove") << 1;
    QTest::newRow("move") << 2;
}

void FavoritesEditingRandomTest::editsInLinearTime()
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

QTEST_GUILESS_MAIN(FavoritesEditingRandomTest)
#include "tst_favoriteseditingrandom.moc"
