// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "models/shrinkingrows.h"

#include "world.h"

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTest>

#include <memory>
#include <vector>

class ShrinkingRowsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void empty();
    void deadItemReadsAsNull();
    void randomRemovalsMatchList();
    void losingAllRowsIsNotQuadratic();
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

void ShrinkingRowsTest::empty()
{
    ShrinkingRows rows;
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(rows.count(), 0);
        QCOMPARE(rows.at(-1), nullptr);
        QCOMPARE(rows.at(0), nullptr);
        QCOMPARE(rows.rowOf(nullptr), -1);
        rows.remove(nullptr);
        rows.reset({});
    }
}

void ShrinkingRowsTest::deadItemReadsAsNull()
{
    auto items = makeItems(3);
    ShrinkingRows rows;
    rows.reset(pointers(items));
    const QObject *dead = items.at(1).get();
    items.at(1).reset();
    QCOMPARE(rows.count(), 3);
    QCOMPARE(rows.at(1), nullptr);
    QCOMPARE(rows.rowOf(dead), 1);
    rows.remove(dead);
    QCOMPARE(rows.at(1), items.at(2).get());
    QCOMPARE(rows.rowOf(dead), -1);
}

void ShrinkingRowsTest::randomRemovalsMatchList()
{
    QRandomGenerator random(3);
    for (int size = 1; size < 70; ++size) {
        const auto items = makeItems(size);
        QList<TreeItem *> expected = pointers(items);
        ShrinkingRows rows;
        rows.reset(expected);
        while (!expected.isEmpty()) {
            rows.remove(expected.takeAt(random.bounded(expected.size())));
            QCOMPARE(rows.count(), expected.size());
            for (int row = 0; row < expected.size(); ++row) {
                QCOMPARE(rows.at(row), expected.at(row));
                QCOMPARE(rows.rowOf(expected.at(row)), row);
            }
            QCOMPARE(rows.at(expected.size()), nullptr);
        }
    }
}

void ShrinkingRowsTest::losingAllRowsIsNotQuadratic()
{
    const auto work = [](int count) {
        const auto items = makeItems(count);
        ShrinkingRows rows;
        rows.reset(pointers(items));
        QElapsedTimer timer;
        timer.start();
        for (int i = 0; i < count; ++i) {
            const TreeItem *item = items.at(size_t(i) * 7919 % size_t(count)).get(); // in no order
            if (rows.at(rows.rowOf(item)) != item) {
                return qint64(-1);
            }
            rows.remove(item);
        }
        return rows.count() == 0 ? timer.nsecsElapsed() : -1;
    };
    QVERIFY(World::isLinear(work, 10000));
}

QTEST_GUILESS_MAIN(ShrinkingRowsTest)
#include "tst_shrinkingrows.moc"
