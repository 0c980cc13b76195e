// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "growth.h"
#include "text.h"

#include <launcherrows.h>

#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <iterator>
#include <numeric>
#include <vector>

class LauncherRowsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sorts();
    void equalsAPlainList();
    void scales_data();
    void scales();

private:
    LauncherRow row(int rank);

    QCollator m_collator;
};

LauncherRow LauncherRowsTest::row(int rank)
{
    return {this, rank, m_collator.sortKey(QString()), QString::number(rank)};
}

void LauncherRowsTest::sorts()
{
    const auto titled = [this](const char *title, const char *id, int rank = LauncherRow::Unordered) {
        return LauncherRow{this, rank, m_collator.sortKey(text(title)), text(id)};
    };
    const std::vector<LauncherRow> sorted{titled("z", "1", 1), titled("a", "1", 2), titled("a", "0"),
                                          titled("a", "1"), titled("b", "0")};
    LauncherRows assigned;
    assigned.assign({sorted.rbegin(), sorted.rend()});
    LauncherRows inserted;
    for (const LauncherRow &row : sorted) {
        QVERIFY(!inserted.contains(row));
        inserted.insert(row);
    }
    for (int i = 0; i < int(sorted.size()); ++i) {
        QCOMPARE(assigned.indexOf(sorted[i]), i);
        QCOMPARE(inserted.indexOf(sorted[i]), i);
        QVERIFY(inserted.contains(sorted[i]));
    }
}

void LauncherRowsTest::equalsAPlainList()
{
    std::vector<QObject> objects(2000);
    std::vector<int> plain;
    LauncherRows rows;
    QRandomGenerator random(5);
    const auto check = [&] {
        QCOMPARE(rows.count(), int(plain.size()));
        QVERIFY(!rows.at(-1));
        QVERIFY(!rows.at(rows.count()));
        for (int i = 0; i < rows.count(); ++i) {
            QCOMPARE(rows.at(i), &objects[plain[i]]);
        }
    };
    for (int step = 0; step < 8000; ++step) {
        const bool grows = (step / 3000) % 2 == 0;
        const int rank = random.bounded(int(objects.size()));
        LauncherRow changed = row(rank);
        changed.object = &objects[rank];
        const auto place = std::lower_bound(plain.begin(), plain.end(), rank);
        const bool isThere = place != plain.end() && *place == rank;
        QCOMPARE(rows.contains(changed), isThere);
        QCOMPARE(rows.indexOf(changed), int(std::distance(plain.begin(), place)));
        if (isThere && (!grows || random.bounded(4) == 0)) {
            rows.remove(changed);
            plain.erase(place);
        } else if (!isThere && (grows || random.bounded(4) == 0)) {
            rows.insert(changed);
            plain.insert(place, rank);
        }
        if (step % 500 == 0) {
            check();
        }
    }
    check();
    std::vector<LauncherRow> all;
    for (int rank : plain) {
        all.push_back(row(rank));
        all.back().object = &objects[rank];
    }
    rows.assign(all);
    check();
    for (const LauncherRow &removed : all) {
        rows.remove(removed);
    }
    QCOMPARE(rows.count(), 0);
}

void LauncherRowsTest::scales_data()
{
    QTest::addColumn<bool>("removes");
    QTest::newRow("insert") << false;
    QTest::newRow("remove") << true;
}

void LauncherRowsTest::scales()
{
    QFETCH(bool, removes);
    const auto work = [this, removes](int size) -> qint64 {
        std::vector<int> ranks(size);
        std::iota(ranks.begin(), ranks.end(), 0);
        QRandomGenerator random(1);
        std::shuffle(ranks.begin(), ranks.end(), random);
        std::vector<LauncherRow> all;
        std::transform(ranks.cbegin(), ranks.cend(), std::back_inserter(all),
                       [this](int rank) { return row(rank); });
        LauncherRows rows;
        if (removes) {
            rows.assign(all);
        }
        CpuTimer timer;
        timer.start();
        for (const LauncherRow &changed : all) {
            if (removes) {
                rows.remove(changed);
            } else {
                rows.insert(changed);
            }
        }
        const qint64 time = timer.nsecsElapsed();
        return rows.count() == (removes ? 0 : size) ? time : -1;
    };
    QVERIFY(Growth::isLinear(work, 2000));
}

QTEST_GUILESS_MAIN(LauncherRowsTest)
#include "tst_launcherrows.moc"
