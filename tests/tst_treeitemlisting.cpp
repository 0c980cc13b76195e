// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/treeitem.h"

#include "entrydata.h"
#include "growth.h"
#include "registry/fileindex.h"
#include "registry/jsonvariant.h"
#include "registry/treeitem_p.h"
#include "text.h"
#include "world.h"

#include <QRandomGenerator>
#include <QTest>

namespace
{
QStringList names(const QList<TreeItem *> &items)
{
    QStringList names;
    for (const TreeItem *item : items) {
        names.append(item->name());
    }
    return names;
}

bool byName(const TreeItem *a, const TreeItem *b)
{
    return a->name() < b->name();
}

bool byNameBackwards(TreeItem *a, TreeItem *b)
{
    return b->name() < a->name();
}

bool isNotB(TreeItem *item)
{
    return item->name() != text("b");
}

QStringList chain(int length)
{
    QStringList names;
    names.reserve(length);
    for (int i = 0; i < length; ++i) {
        names.append(text("n"));
    }
    return names;
}
}

class TreeItemListingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void subitemsInPreOrder();
    void comparesAndFiltersWithAnyCallable();
    void subitemsOfRejectedNode();
    void subitemsDepth();
    void subitemsNeedComparison();
    void itemsAtLevelEqualsFilteredSubitems();
    void siblingsOfEqualOrderAreSortedByName();
    void orderFollowsEachChange();
    void indexFollowsRandomChanges();
    void deepPathCostsLinearTime();
    void manySiblingsCostLinearTime();
};

void TreeItemListingTest::subitemsInPreOrder()
{
    TreeItem root({}, {});
    for (const char *joined : {"b/y", "b/x", "a/z/deep", "a/w", "c"}) {
        root.insertItem(path(joined), {});
    }
    QCOMPARE(names(root.getSubitems(byName, 2)), path("a/w/z/b/x/y/c"));
    QCOMPARE(
        names(root.getSubitems([](const TreeItem *a, const TreeItem *b) { return a->name() > b->name(); }, -1)),
        path("c/b/y/x/a/z/deep/w"));
}

void TreeItemListingTest::comparesAndFiltersWithAnyCallable()
{
    TreeItem root({}, {});
    for (const char *joined : {"b", "c", "a"}) {
        root.insertItem(path(joined), {});
    }
    using ConstComparison = std::function<bool(const TreeItem *, const TreeItem *)>;
    using ConstPredicate = std::function<bool(const TreeItem *)>;
    const auto forwards = [](const TreeItem *a, const TreeItem *b) { return a->name() < b->name(); };
    const auto all = [](TreeItem *item) { return item->count() == 0; };
    QCOMPARE(names(root.getSubitems(forwards, all, 1)), path("a/b/c"));
    QCOMPARE(names(root.getSubitems(byName, isNotB, 1)), path("a/c"));
    QCOMPARE(
        names(root.getSubitems(byNameBackwards,
                               ConstPredicate([](const TreeItem *item) { return item->name() != text("b"); }), 1)),
        path("c/a"));
    QCOMPARE(names(root.getSubitems(ConstComparison(byName), TreeItem::Predicate(isNotB), 1)), path("a/c"));
    QCOMPARE(names(root.getSubitems(TreeItem::Comparison(byNameBackwards), 1)), path("c/b/a"));
    root.removeItems(isNotB);
    QCOMPARE(names(root.getSubitems(byName, -1)), path("b"));
    root.removeItems(ConstPredicate([](const TreeItem *item) { return item->name() == text("b"); }));
    QCOMPARE(root.count(), 0);
}

void TreeItemListingTest::subitemsOfRejectedNode()
{
    TreeItem root({}, {});
    root.insertItem(path("a/b/c"), {});
    root.insertItem(path("d"), {});
    const auto accepts = [](const TreeItem *item) {
        return item->name() == text("c") || item->name() == text("d");
    };
    QCOMPARE(names(root.getSubitems(byName, accepts, -1)), path("c/d"));
    QCOMPARE(names(root.getSubitems(byName, accepts, 2)), path("d"));
}

void TreeItemListingTest::subitemsDepth()
{
    TreeItem root({}, {});
    root.insertItem(path("a/b/c"), {});
    QCOMPARE(root.getSubitems(byName, 0), QList<TreeItem *>());
    QCOMPARE(names(root.getSubitems(byName, 1)), path("a"));
    QCOMPARE(names(root.getSubitems(byName, 2)), path("a/b"));
    QCOMPARE(names(root.getSubitems(byName, -1)), path("a/b/c"));
}

void TreeItemListingTest::subitemsNeedComparison()
{
    TreeItem root({}, {});
    root.insertItem(path("a"), {});
    root.insertItem(path("b"), {});
    QVERIFY_EXCEPTION_THROWN(root.getSubitems({}, 1), std::bad_function_call);
    QCOMPARE(root.getSubitems({}, 0), QList<TreeItem *>());
}

void TreeItemListingTest::itemsAtLevelEqualsFilteredSubitems()
{
    QRandomGenerator random(7);
    TreeItem root({}, {});
    for (int i = 0; i < 300; ++i) {
        QStringList where;
        for (int length = random.bounded(1, 6); length > 0; --length) {
            where.append(QString::number(random.bounded(6)));
        }
        root.insertItem(where, {{text("order"), random.bounded(4)}});
    }
    for (int level = -1; level <= 7; ++level) {
        const auto isAtLevel = [&](const TreeItem *item) { return item->depth(&root) == level; };
        QCOMPARE(root.itemsAtLevel(TreeItem::orderLessThan, level),
                 root.getSubitems(TreeItem::orderLessThan, isAtLevel, level));
    }
}

void TreeItemListingTest::siblingsOfEqualOrderAreSortedByName()
{
    TreeItem root({}, {});
    for (int i = 99; i >= 10; --i) {
        root.insertItem({QString::number(i)}, {});
    }
    root.insertItem(path("last"), {{text("order"), 101.0}});
    root.insertItem(path("zfirst"), {{text("order"), 99.0}});
    const QStringList sorted = names(root.getSubitems(TreeItem::orderLessThan, 1));
    QCOMPARE(sorted.first(), text("zfirst"));
    QCOMPARE(sorted.last(), text("last"));
    const QStringList middle = sorted.mid(1, 90);
    QVERIFY(std::is_sorted(middle.cbegin(), middle.cend()));
}

void TreeItemListingTest::orderFollowsEachChange()
{
    TreeItem root{QString(), QVariantMap()};
    const auto insert = [&root](const char *name, int order) {
        root.insertItem(path(name), {{text("order"), order}});
    };
    const auto names = [&root] {
        QString names;
        for (const TreeItem *item : root.getSubitems(TreeItem::orderLessThan, 1)) {
            names += item->name();
        }
        return names;
    };
    insert("d", 4);
    insert("b", 2);
    insert("a", 1);
    insert("c", 3);
    QCOMPARE(names(), text("abcd"));
    insert("b", 5);
    QCOMPARE(names(), text("acdb"));
    root.removeChild(root.lookup(path("a")));
    QCOMPARE(names(), text("cdb"));
    insert("e", 0);
    QCOMPARE(names(), text("ecdb"));
}

void TreeItemListingTest::indexFollowsRandomChanges()
{
    QRandomGenerator random(42);
    FileIndex index;
    TreeItem root({}, {});
    root.insertItem(path("made/before"), entry("0"));
    TreeItemPrivate::of(&root)->setIndex(&index);
    for (int step = 0; step < 3000; ++step) {
        QStringList where;
        for (int length = random.bounded(1, 5); length > 0; --length) {
            where.append(QString::number(random.bounded(4)));
        }
        const QVariantMap data = random.bounded(3) ? entry(qPrintable(QString::number(random.bounded(4))))
                                                   : QVariantMap();
        switch (random.bounded(4)) {
        case 0:
            if (TreeItem *item = root.lookup(where)) {
                item->parentItem()->removeChild(item);
            }
            break;
        case 1:
            if (TreeItem *item = root.lookup(where); item && item->count() == 0) {
                auto *subtree = new TreeItem(text("sub"), data);
                subtree->insertItem(path("x/y"), data);
                item->addChild(subtree);
            }
            break;
        default:
            root.insertItem(where, data);
        }

        const QString file = QString::number(random.bounded(4));
        QSet<const TreeItem *> found;
        for (const QPointer<TreeItem> &item : index.removableWith({file})) {
            QVERIFY(item);
            found.insert(item);
        }
        QSet<const TreeItem *> expected;
        for (const TreeItem *item : root.getSubitems(byName, -1)) {
            if (item->isDeclared() ? item->fromFile() == file : item->count() == 0) {
                expected.insert(item);
            }
        }
        QCOMPARE(found, expected);
        QCOMPARE(World::brokenInvariants(&root), QStringList());
    }
}

void TreeItemListingTest::deepPathCostsLinearTime()
{
    // Quadratic work would take 100 times as long for 10 times the length, and recursion would end the process.
    const auto work = [](int length) {
        const QStringList deep = chain(length);
        CpuTimer timer;
        timer.start();
        FileIndex index;
        TreeItem root({}, {});
        TreeItemPrivate::of(&root)->setIndex(&index);
        TreeItem *leaf = root.insertItem(deep, entry("one.json"));
        const bool right = root.lookup(deep) == leaf && leaf->location() == deep && root.count(-1) == length
                           && root.getSubitems(byName, -1).size() == length && leaf->depth(&root) == length
                           && root.itemsAtLevel(byName, length) == QList<TreeItem *>{leaf};
        root.removeItems([](const TreeItem *item) { return item->count() == 0; });
        const bool empty = root.count() == 0;
        root.insertItem(deep, {});
        root.removeChild(root.lookup({deep.first()}));
        return right && empty ? timer.nsecsElapsed() : -1;
    };
    QVERIFY(Growth::isLinear(work, 100000));
}

void TreeItemListingTest::manySiblingsCostLinearTime()
{
    const auto work = [](int count) {
        CpuTimer timer;
        timer.start();
        FileIndex index;
        TreeItem root({}, {});
        TreeItemPrivate::of(&root)->setIndex(&index);
        TreeItem *parent = root.insertItem(path("p"), entry("p.json"));
        for (int i = 0; i < count; ++i) {
            parent->insertItem({QString::number(i)}, entry("one.json"));
        }
        const bool complete = root.getSubitems(TreeItem::orderLessThan, -1).size() == count + 1;
        root.removeItems([](const TreeItem *item) { return item->count() == 0; });
        return complete && root.count() == 0 ? timer.nsecsElapsed() : -1;
    };
    QVERIFY(Growth::isLinear(work, 10000));
}

QTEST_GUILESS_MAIN(TreeItemListingTest)
#include "tst_treeitemlisting.moc"
