// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "models/pathlist.h"

#include "text.h"

#include <QTest>

class PathListTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void appends();
    void removesAll();
    void moves_data();
    void moves();
};

void PathListTest::appends()
{
    QCOMPARE(PathList::appended({}, text("a")), path("a"));
    QCOMPARE(PathList::appended(path("a/b"), text("a")), path("a/b/a"));
}

void PathListTest::removesAll()
{
    QCOMPARE(PathList::removedAll(path("a/b/a"), text("a")), path("b"));
    QCOMPARE(PathList::removedAll(path("a/b"), text("A")), path("a/b"));
    QCOMPARE(PathList::removedAll({}, text("a")), QStringList());
}

void PathListTest::moves_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<QString>("expected");
    QTest::newRow("down") << text("a") << text("c") << text("b/c/a/d");
    QTest::newRow("up") << text("d") << text("b") << text("a/d/b/c");
    QTest::newRow("onto itself") << text("b") << text("b") << text("a/b/c/d");
    QTest::newRow("missing path") << text("x") << text("b") << text("a/b/c/d");
    QTest::newRow("missing target") << text("b") << text("x") << text("a/b/c/d");
}

void PathListTest::moves()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(QString, expected);
    QCOMPARE(PathList::moved(path("a/b/c/d"), from, to).join(QLatin1Char('/')), expected);
    // The first of equal paths counts.
    QCOMPARE(PathList::moved(path("a/b/c/d/a/b/c/d"), from, to).join(QLatin1Char('/')),
             expected + text("/a/b/c/d"));
}

QTEST_APPLESS_MAIN(PathListTest)
#include "tst_pathlist.moc"
