// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications.h"
#include "applications/applicationssettingsmodel.h"
#include "messagelog.h"
#include "models/favoritesmodel.h"
#include "models/settingsmodel.h"
#include "registry/pluginregistry.h"
#include "stablelist.h"
#include "testsize.h"
#include "text.h"
#include "watchedfavorites.h"
#include "world.h"

#include <mgconfitem.h>

#include <QRandomGenerator>
#include <QTest>

#include <algorithm>

namespace
{
using Row = ListSource::Row;
using Rows = ListSource::Rows;
}

/// Random changes of the source of a StableListModel.
class StableListRandomTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void resets();
    void largeResets();
    void handlers();
    void realModels();
};

void StableListRandomTest::init()
{
    World::reset();
    World::rescan(PluginRegistry::instance());
}

void StableListRandomTest::resets()
{
    QRandomGenerator random(18);
    QObject objects[3];
    const auto randomRow = [&random, &objects] {
        return Row{QString(QChar(u'a' + random.bounded(10))), random.bounded(2), &objects[random.bounded(3)]};
    };
    ListSource source;
    StableList byKey(&source);
    StableList byObject(&source, "object");
    for (int step = testSize(10000); step > 0; --step) {
        Rows other;
        for (int count = random.bounded(12); count > 0; --count) {
            other.append(randomRow());
        }
        source.reset(other);
        QVERIFY(byKey.isConsistent());
        QVERIFY(byObject.isConsistent());
        QVERIFY(byKey.takeSignals().filter(text("modelReset")).isEmpty());
    }
}

/// With fewer and with more moves than MaxMoves.
void StableListRandomTest::largeResets()
{
    QRandomGenerator random(21);
    ListSource source;
    StableList model(&source);
    Rows rows;
    for (int i = 0; i < 2 * StableListModel::MaxMoves; ++i) {
        rows.append({QString::number(i)});
    }
    source.reset(rows);
    int resets = 0;
    const int steps = qMax(10, testSize(200));
    for (int step = 0; step < steps; ++step) {
        const int shuffled = step % 2 == 0 ? rows.size() : StableListModel::MaxMoves / 2;
        std::shuffle(rows.begin(), rows.begin() + shuffled, random);
        rows[random.bounded(rows.size())].value = step;
        source.reset(rows);
        QVERIFY(model.isConsistent());
        resets += model.takeSignals().filter(text("modelReset")).size();
    }
    QCOMPARE(resets, steps / 2);
}

void StableListRandomTest::handlers()
{
    QRandomGenerator random(19);
    ListSource source;
    int depth = 0;
    const auto changeSource = [&] {
        const Row row{QString(QChar(u'a' + random.bounded(10))), random.bounded(2)};
        const int count = source.rowCount();
        const int place = count > 0 ? random.bounded(count) : 0;
        switch (count > 0 ? random.bounded(6) : random.bounded(2)) {
        case 0: {
            Rows other;
            for (int left = random.bounded(10); left > 0; --left) {
                other.append({QString(QChar(u'a' + random.bounded(10))), random.bounded(2)});
            }
            source.reset(other);
            break;
        }
        case 1:
            source.insert(place, row);
            break;
        case 2:
            source.remove(place);
            break;
        case 3:
            source.change(place, row);
            break;
        case 4:
            source.sortByKey();
            break;
        default:
            if (place > 0) {
                source.move(place, random.bounded(place));
            }
        }
    };
    const auto handler = [&] {
        if (depth < 2 && random.bounded(4) == 0) {
            ++depth;
            changeSource();
            --depth;
        }
    };
    const QObject early;
    connect(&source, &QAbstractItemModel::rowsInserted, &early, handler);
    connect(&source, &QAbstractItemModel::rowsRemoved, &early, handler);
    connect(&source, &QAbstractItemModel::rowsMoved, &early, handler);
    connect(&source, &QAbstractItemModel::dataChanged, &early, handler);
    connect(&source, &QAbstractItemModel::layoutChanged, &early, handler);
    connect(&source, &QAbstractItemModel::modelReset, &early, handler);
    StableList model(&source);
    connect(model.operator->(), &QAbstractItemModel::rowsInserted, &early, handler);
    connect(model.operator->(), &QAbstractItemModel::rowsAboutToBeRemoved, &early, handler);
    connect(model.operator->(), &QAbstractItemModel::rowsMoved, &early, handler);
    connect(model.operator->(), &QAbstractItemModel::dataChanged, &early, handler);
    for (int step = testSize(10000); step > 0; --step) {
        changeSource();
        QVERIFY(model.isConsistent());
    }
}

void StableListRandomTest::realModels()
{
    const Applications applications;
    MGConfItem(WatchedFavorites::keyOfTests()).set(QStringList{text("page/1"), text("page/2"), text("page/3")});
    SettingsModel settings;
    settings.setPath(path("page"));
    settings.setDepth(1);
    FavoritesModel favorites;
    favorites.setFilter({text("grid_favorites")});
    favorites.componentComplete();
    World::writeEntries(text("applications.json"), declaring("", {"applications"}));
    World::rescan(PluginRegistry::instance());
    ApplicationsSettingsModel applicationRows;
    applicationRows.componentComplete();
    StableList stableSettings(&settings, "object");
    StableList stableFavorites(&favorites, "object");
    StableList stableApplications(&applicationRows, "object");
    const auto areConsistent = [&] {
        return stableSettings.isConsistent() && stableFavorites.isConsistent()
               && stableApplications.isConsistent();
    };
    const MessageLog log; // masks read files again that may be gone
    QRandomGenerator random(20);
    for (int step = testSize(3000); step > 0; --step) {
        const QString file = QString::number(random.bounded(6)) + text(".json");
        const QByteArray place = "page/" + QByteArray::number(random.bounded(8));
        switch (random.bounded(6)) {
        case 0:
            World::removeEntries(file);
            break;
        case 1:
            World::setMasked({QString::fromLatin1(place)});
            break;
        case 2:
            applications.write(
                QByteArray("first/" + QByteArray::number(random.bounded(5)) + ".desktop").constData(),
                application("A"));
            QMetaObject::invokeMethod(&applicationRows, "launcherModelReset");
            break;
        case 3:
            favorites.isFavorite(QString::fromLatin1(place)) ? favorites.removeFavorite(QString::fromLatin1(place))
                                                             : favorites.addFavorite(QString::fromLatin1(place));
            break;
        case 4:
            removeNode({text("page"), QString::number(random.bounded(8))});
            break;
        default:
            World::writeEntries(file, declaring(QByteArray::number(random.bounded(3)),
                                                {place, "page/" + QByteArray::number(random.bounded(8))}));
        }
        QVERIFY(areConsistent());
        World::rescan(PluginRegistry::instance());
        QVERIFY(areConsistent());
    }
    QVERIFY(stableSettings->count() > 0);
}

QTEST_GUILESS_MAIN(StableListRandomTest)
#include "tst_stablelistrandom.moc"
