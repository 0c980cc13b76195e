// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/treeitem.h"

#include "entrydata.h"
#include "registry/fileindex.h"
#include "registry/jsonvariant.h"
#include "registry/treeitem_p.h"
#include "text.h"
#include "world.h"

#include <QTest>

class TreeItemRemovalTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void removesBottomUp();
    void removesSubtreeWithItsTop();
    void neverRemovesTheNodeItself();
    void removedNodeHasLeftTheTreeWhenItDies();
    void subtreeDiesLeavesFirst();
};

void TreeItemRemovalTest::removesBottomUp()
{
    TreeItem root({}, {});
    root.insertItem(path("a/b/c"), {});
    root.insertItem(path("keep"), entry("one.json"));
    QStringList asked;
    root.removeItems([&asked](const TreeItem *item) {
        asked.append(item->name());
        return item->count() == 0 && !item->isDeclared();
    });
    QCOMPARE(World::paths(&root), path("keep"));
    // The parent is read after it has lost its child.
    QVERIFY(asked.indexOf(text("c")) < asked.indexOf(text("b")));
    QVERIFY(asked.indexOf(text("b")) < asked.indexOf(text("a")));
}

void TreeItemRemovalTest::removesSubtreeWithItsTop()
{
    TreeItem root({}, {});
    const QPointer<TreeItem> c = root.insertItem(path("a/b/c"), {});
    root.insertItem(path("d"), {});
    root.removeItems([](const TreeItem *item) { return item->name() == text("a"); });
    QVERIFY(!c);
    QCOMPARE(World::paths(&root), path("d"));
}

void TreeItemRemovalTest::neverRemovesTheNodeItself()
{
    TreeItem root({}, {});
    root.insertItem(path("a/b"), {});
    const QPointer<TreeItem> a = root.lookup(path("a"));
    a->removeItems([](const TreeItem *) { return true; });
    QVERIFY(a);
    QCOMPARE(World::paths(&root), path("a"));
}

void TreeItemRemovalTest::removedNodeHasLeftTheTreeWhenItDies()
{
    TreeItem root({}, {});
    TreeItem *b = root.insertItem(path("a/b"), {});
    TreeItem *seen = &root;
    connect(b, &QObject::destroyed, this, [&] { seen = root.lookup(path("a/b")); });
    root.lookup(path("a"))->removeChild(b);
    QCOMPARE(seen, nullptr);
}

void TreeItemRemovalTest::subtreeDiesLeavesFirst()
{
    TreeItem root({}, {});
    QStringList died;
    for (const char *joined : {"a", "a/b", "a/b/c", "a/b/d"}) {
        TreeItem *item = root.insertItem(path(joined), {});
        const QString name = item->name();
        connect(item, &QObject::destroyed, this, [&, name] {
            died.append(name);
            // A handler may read the rest of the tree.
            QVERIFY(World::brokenInvariants(&root).isEmpty());
        });
    }
    root.removeChild(root.lookup(path("a")));
    QCOMPARE(died.mid(2), path("b/a"));
    QCOMPARE(root.count(), 0);
}

QTEST_GUILESS_MAIN(TreeItemRemovalTest)
#include "tst_treeitemremoval.moc"
