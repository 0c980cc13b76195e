// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "common/listdifference.h"

#include "testsize.h"

#include <QRandomGenerator>
#include <QTest>

#include <algorithm>

class ListDifferenceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void steps_data();
    void steps();
    void tooManyMoves();
    void randomLists();
};

namespace
{
constexpr int Many = 500;

/// A key for each letter.
QStringList keys(const QString &letters)
{
    return letters.split(QString(), Qt::SkipEmptyParts);
}

/// "-1-2 3>0 +0-0"
QString description(const ListDifference &difference)
{
    QStringList steps;
    for (const ListDifference::Range &range : difference.removals) {
        steps.append(QStringLiteral("-%1-%2").arg(range.first).arg(range.last));
    }
    for (const ListDifference::Move &move : difference.moves) {
        steps.append(QStringLiteral("%1>%2").arg(move.from).arg(move.to));
    }
    for (const ListDifference::Range &range : difference.insertions) {
        steps.append(QStringLiteral("+%1-%2").arg(range.first).arg(range.last));
    }
    return steps.join(QLatin1Char(' '));
}

/// Does the steps of @p difference with the list @p before.
QStringList applied(const ListDifference &difference, QStringList before, const QStringList &after)
{
    for (const ListDifference::Range &range : difference.removals) {
        before.erase(before.begin() + range.first, before.begin() + range.last + 1);
    }
    for (const ListDifference::Move &move : difference.moves) {
        before.move(move.from, move.from < move.to ? move.to - 1 : move.to);
    }
    for (const ListDifference::Range &range : difference.insertions) {
        for (int row = range.first; row <= range.last; ++row) {
            before.insert(row, after.at(row));
        }
    }
    return before;
}

/// The length of a longest increasing subsequence, by trying all pairs.
int sortedLength(const QVector<int> &values)
{
    QVector<int> lengths;
    for (int i = 0; i < values.size(); ++i) {
        int length = 1;
        for (int before = 0; before < i; ++before) {
            if (values.at(before) < values.at(i)) {
                length = std::max(length, lengths.at(before) + 1);
            }
        }
        lengths.append(length);
    }
    return lengths.isEmpty() ? 0 : *std::max_element(lengths.cbegin(), lengths.cend());
}
}

void ListDifferenceTest::steps_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::addColumn<QString>("steps");
    QTest::newRow("nothing") << QString() << QString() << QString();
    QTest::newRow("equal") << "abc"
                           << "abc" << QString();
    QTest::newRow("all new") << QString() << "abc"
                             << "+0-2";
    QTest::newRow("all gone") << "abc" << QString() << "-0-2";
    QTest::newRow("one more above") << "abc"
                                    << "xabc"
                                    << "+0-0";
    QTest::newRow("one less") << "abcd"
                              << "acd"
                              << "-1-1";
    QTest::newRow("some less") << "abcdef"
                               << "ad"
                               << "-4-5 -1-2";
    QTest::newRow("last to the front") << "abcd"
                                       << "dabc"
                                       << "3>0";
    QTest::newRow("first to the end") << "abcd"
                                      << "bcda"
                                      << "0>4";
    QTest::newRow("reversed") << "abc"
                              << "cba"
                              << "1>3 0>3";
    QTest::newRow("some of each") << "abcde"
                                  << "xeacy"
                                  << "-3-3 -1-1 2>0 +0-0 +4-4";
    QTest::newRow("another one") << "a"
                                 << "b"
                                 << "-0-0 +0-0";
    QTest::newRow("one more of equal keys") << "aa"
                                            << "aaa"
                                            << "+2-2";
    QTest::newRow("one less of equal keys") << "aaa"
                                            << "aa"
                                            << "-2-2";
    QTest::newRow("equal keys around another") << "aba"
                                               << "aab"
                                               << "1>3";
}

void ListDifferenceTest::steps()
{
    QFETCH(QString, before);
    QFETCH(QString, after);
    const ListDifference difference = differenceOf(keys(before), keys(after), Many);
    QTEST(description(difference), "steps");
    QCOMPARE(applied(difference, keys(before), keys(after)), keys(after));
}

void ListDifferenceTest::tooManyMoves()
{
    QVERIFY(!differenceOf(keys(QStringLiteral("abcd")), keys(QStringLiteral("dcba")), 3).hasTooManyMoves);
    const ListDifference difference = differenceOf(keys(QStringLiteral("abcd")), keys(QStringLiteral("dcba")), 2);
    QVERIFY(difference.hasTooManyMoves);
    QCOMPARE(description(difference), QString());
}

void ListDifferenceTest::randomLists()
{
    QRandomGenerator random(1);
    const auto randomKeys = [&random] {
        QStringList keys;
        const int letters = 1 + random.bounded(20); // few make equal keys
        for (int count = random.bounded(15); count > 0; --count) {
            keys.append(QString(QChar(u'a' + random.bounded(letters))));
        }
        return keys;
    };
    for (int step = testSize(100000); step > 0; --step) {
        const QStringList before = randomKeys();
        const QStringList after = randomKeys();
        const ListDifference difference = differenceOf(before, after, Many);
        QCOMPARE(applied(difference, before, after), after);

        QVector<int> stays = difference.origins;
        stays.removeAll(-1);
        QVERIFY(difference.moves.size() <= stays.size() - sortedLength(stays));
        for (int row = 0; row < after.size(); ++row) {
            const int origin = difference.origins.at(row);
            QVERIFY(origin < 0 || before.at(origin) == after.at(row));
        }
        for (const QString &key : after) { // nothing is removed that is wanted
            const int both = std::min(before.count(key), after.count(key));
            int kept = 0;
            for (const int origin : qAsConst(stays)) {
                kept += before.at(origin) == key ? 1 : 0;
            }
            QCOMPARE(kept, both);
        }
    }
}

QTEST_APPLESS_MAIN(ListDifferenceTest)
#include "tst_listdifference.moc"
