// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "models/itemrows.h"

#include "growth.h"
#include "testsize.h"
#include "world.h"

#include <QRandomGenerator>
#include <QTest>

#include <memory>
#include <vector>

class ItemRowsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void empty();
    void deadItemReadsAsNull();
    void randomChangesMatchList();
    void losingAllRowsIsNotQuadratic();
    void rowsOfOneItemAreNotQuadratic();
};

namespace
{
std::vector<std::unique_ptr<TreeItem>> makeItems(int count)
{
    std::vector<std::unique_ptr<TreeItem>> items;
    for (int i = 0; i < count; ++i) {
        items.push_back(std::make_unique<TreeItem>(QString::number(i), QVariantMap()));
    }
    return items;
}

QList<TreeItem *> pointers(const std::vector<std::unique_ptr<TreeItem>> &items)
{
    QList<TreeItem *> list;
    for (const auto &item : items) {
        list.append(item.get());
    }
    return list;
}
}

void ItemRowsTest::empty()
{
    ItemRows rows;
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(rows.count(), 0);
        QCOMPARE(rows.at(-1), nullptr);
        QCOMPARE(rows.at(0), nullptr);
        QCOMPARE(rows.rowOf(nullptr), -1);
        rows.reset({});
    }
}

void ItemRowsTest::deadItemReadsAsNull()
{
    auto items = makeItems(3);
    ItemRows rows;
    rows.reset(pointers(items));
    const QObject *dead = items.at(1).get();
    items.at(1).reset();
    QCOMPARE(rows.count(), 3);
    QCOMPARE(rows.at(1), nullptr);
    QCOMPARE(rows.rowOf(dead), 1);
    rows.move(0, 2);
    QCOMPARE(rows.rowOf(dead), 0);
    rows.move(2, 0);
    rows.removeAt(1);
    QCOMPARE(rows.at(1), items.at(2).get());
    QCOMPARE(rows.rowOf(dead), -1);
}

void ItemRowsTest::randomChangesMatchList()
{
    QRandomGenerator random(3);
    const auto items = makeItems(20);
    const QList<TreeItem *> all = pointers(items);
    QList<TreeItem *> expected;
    ItemRows rows;
    for (int left = testSize(20000); left > 0; --left) {
        const int size = expected.size();
        const int change = random.bounded(200);
        if (change == 0) {
            expected = all + all;
            rows.reset(expected);
        } else if (change < 10 && size > 0) {
            const int from = random.bounded(size);
            const int to = random.bounded(size);
            expected.move(from, to);
            rows.move(from, to);
        } else if (change < 110 && size > 0) {
            const int row = random.bounded(size);
            expected.removeAt(row);
            rows.removeAt(row);
        } else {
            expected.append(all.at(random.bounded(all.size())));
            rows.append(expected.last());
        }
        QCOMPARE(rows.count(), expected.size());
        QCOMPARE(rows.at(expected.size()), nullptr);
        for (int row = 0; row < expected.size(); ++row) {
            QCOMPARE(rows.at(row), expected.at(row));
        }
        TreeItem *const counted = all.at(left % all.size());
        QCOMPARE(rows.countOf(counted), expected.count(counted));
        for (TreeItem *item : all) {
            const int row = rows.rowOf(item);
            QVERIFY(row < 0 ? !expected.contains(item) : expected.at(row) == item);
            QCOMPARE(row, expected.lastIndexOf(item));
            QCOMPARE(rows.firstRowOf(item), expected.indexOf(item));
        }
    }
}

void ItemRowsTest::losingAllRowsIsNotQuadratic()
{
    const auto work = [](int count) {
        const auto items = makeItems(count);
        ItemRows rows;
        rows.reset(pointers(items));
        CpuTimer timer;
        timer.start();
        for (int i = 0; i < count; ++i) {
            const TreeItem *item = items.at(size_t(i) * 7919 % size_t(count)).get(); // in no order
            if (rows.at(rows.rowOf(item)) != item) {
                return qint64(-1);
            }
            rows.removeAt(rows.rowOf(item));
        }
        return rows.count() == 0 ? timer.nsecsElapsed() : -1;
    };
    QVERIFY(Growth::isLinear(work, 10000));
}

void ItemRowsTest::rowsOfOneItemAreNotQuadratic()
{
    const auto work = [](int count) {
        const auto items = makeItems(1);
        ItemRows rows;
        CpuTimer timer;
        timer.start();
        for (int i = 0; i < count; ++i) {
            rows.append(items.front().get());
        }
        while (rows.countOf(items.front().get()) > 1) {
            rows.removeAt(rows.count() / 2);
        }
        rows.removeAt(rows.rowOf(items.front().get()));
        return rows.count() == 0 ? timer.nsecsElapsed() : -1;
    };
    QVERIFY(Growth::isLinear(work, 2000));
}

QTEST_GUILESS_MAIN(ItemRowsTest)
#include "tst_itemrows.moc"
