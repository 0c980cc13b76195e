// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "models/rowdifference.h"

#include "text.h"

#include <QTest>

#include <array>

class RowDifferenceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void difference_data();
    void difference();
    void deadRowsAreObsolete();
};

namespace
{
/// Returns the items whose letters are in @p names.
QList<TreeItem *> items(const QString &names)
{
    static std::array<TreeItem, 5> all{TreeItem(text("a"), {}), TreeItem(text("b"), {}), TreeItem(text("c"), {}),
                                       TreeItem(text("d"), {}), TreeItem(text("e"), {})};
    QList<TreeItem *> items;
    for (const QChar name : names) {
        items.append(&all.at(std::size_t(name.unicode() - u'a')));
    }
    return items;
}
}

void RowDifferenceTest::difference_data()
{
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("wanted");
    QTest::addColumn<QVector<int>>("obsolete");
    QTest::addColumn<QString>("missing");
    QTest::newRow("nothing") << ""
                             << "" << QVector<int>() << "";
    QTest::newRow("equal") << "abc"
                           << "abc" << QVector<int>() << "";
    QTest::newRow("another order") << "abc"
                                   << "cba" << QVector<int>() << "";
    QTest::newRow("all new") << ""
                             << "cab" << QVector<int>() << "cab";
    QTest::newRow("all gone") << "abc"
                              << "" << QVector<int>{2, 1, 0} << "";
    QTest::newRow("some of each") << "abcd"
                                  << "edb" << QVector<int>{2, 0} << "e";
    QTest::newRow("twice wanted") << "a"
                                  << "aba" << QVector<int>() << "ba";
    QTest::newRow("twice shown, the last one stays") << "aba"
                                                     << "ab" << QVector<int>{0} << "";
    QTest::newRow("twice both") << "aba"
                                << "aab" << QVector<int>() << "";
}

void RowDifferenceTest::difference()
{
    QFETCH(QString, shown);
    QFETCH(QString, wanted);
    QFETCH(QString, missing);
    ItemRows rows;
    rows.reset(items(shown));
    const RowDifference difference(rows, items(wanted));
    QTEST(difference.obsolete, "obsolete");
    QString names;
    for (const TreeItem *item : difference.missing) {
        names.append(item->name());
    }
    QCOMPARE(names, missing);
    QCOMPARE(difference.isEmpty(), difference.obsolete.isEmpty() && missing.isEmpty());
}

void RowDifferenceTest::deadRowsAreObsolete()
{
    ItemRows rows;
    {
        TreeItem mortal(text("x"), {});
        rows.reset(items(text("a")) + QList<TreeItem *>{&mortal});
    }
    QCOMPARE(RowDifference(rows, items(text("a"))).obsolete, QVector<int>{1});
}

QTEST_GUILESS_MAIN(RowDifferenceTest)

#include "tst_rowdifference.moc"
