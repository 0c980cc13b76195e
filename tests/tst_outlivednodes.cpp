// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "common/messages.h"
#include "messagelog.h"
#include "registry/pluginregistry.h"
#include "registry/treeitem.h"
#include "text.h"
#include "world.h"

#include <QSignalSpy>
#include <QTest>

namespace
{
QByteArray declaring(const char *path, const char *title)
{
    return QByteArray("{\"path\": \"") + path + "\", \"title\": \"" + title + "\"}";
}

void writeFile(const char *name, const QByteArrayList &entries)
{
    World::writeEntries(text(name), "{\"entries\": [" + entries.join(", ") + "]}");
}

QString titleOf(const PluginRegistry &registry, const char *joined)
{
    const TreeItem *item = registry.getItem(path(joined));
    return item ? item->title() : text("no node");
}
}

// A node whose own file was unloaded stays, with its data, as long as entries of other files are below it.
class OutlivedNodesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void isRemovedWithItsLastChild();
    void staysWhileItsFileIsLoadedAgain();
    void fileThatWasNeverLoaded();
    void fileThatWasNeverLoadedAndIsUnloaded();
    void maskReloadsTheFilesBelow_data();
    void maskReloadsTheFilesBelow();
    void maskRemovesTheLastChild();
    void maskOfUndeclaredNode();
};

void OutlivedNodesTest::init()
{
    World::reset();
}

void OutlivedNodesTest::isRemovedWithItsLastChild()
{
    writeFile("a.json", {declaring("a", "A")});
    writeFile("b.json", {declaring("a/b", "B")});
    writeFile("c.json", {declaring("a/c", "C")});
    PluginRegistry registry;
    registry.removeEntriesForFile(text("a.json"));
    QCOMPARE(titleOf(registry, "a"), text("A"));
    registry.removeEntriesForFile(text("b.json"));
    QCOMPARE(titleOf(registry, "a"), text("A"));
    registry.removeEntriesForFile(text("c.json"));
    QCOMPARE(paths(registry), QStringList());
}

void OutlivedNodesTest::staysWhileItsFileIsLoadedAgain()
{
    writeFile("a.json", {declaring("a", "A")});
    writeFile("b.json", {declaring("a/b", "B")});
    PluginRegistry registry;
    registry.removeEntriesForFile(text("a.json"));
    registry.addEntriesForFile(text("a.json"));
    registry.removeEntriesForFile(text("b.json"));
    QCOMPARE(titleOf(registry, "a"), text("A"));
    registry.removeEntriesForFile(text("a.json"));
    QCOMPARE(paths(registry), QStringList());
}

void OutlivedNodesTest::fileThatWasNeverLoaded()
{
    writeFile("b.json", {declaring("a/b", "B")});
    PluginRegistry registry;
    registry.getItem({})->insertItem(path("a"), {{text("from_file"), text("never.json")}});
    registry.removeEntriesForFile(text("b.json"));
    // Its file is not among those that were unloaded.
    QCOMPARE(paths(registry), path("a"));
    registry.removeEntriesForFile(text("never.json"));
    QCOMPARE(paths(registry), QStringList());
}

void OutlivedNodesTest::fileThatWasNeverLoadedAndIsUnloaded()
{
    writeFile("b.json", {declaring("a/b", "B")});
    PluginRegistry registry;
    registry.getItem({})->insertItem(path("a"), {{text("from_file"), text("never.json")}});
    registry.removeEntriesForFile(text("never.json"));
    registry.removeEntriesForFile(text("b.json"));
    QCOMPARE(paths(registry), path("a"));
}

void OutlivedNodesTest::maskReloadsTheFilesBelow_data()
{
    QTest::addColumn<QStringList>("masked");
    QTest::newRow("one file") << QStringList{text("x")};
    QTest::newRow("several files") << QStringList{text("x"), text("y")};
}

void OutlivedNodesTest::maskReloadsTheFilesBelow()
{
    QFETCH(QStringList, masked);
    writeFile("a.json", {declaring("a", "A")});
    writeFile("b.json", {declaring("a/b", "B"), declaring("x", "X")});
    writeFile("c.json", {declaring("a/c", "C"), declaring("y", "Y")});
    PluginRegistry registry;
    if (masked.size() == 1) {
        registry.removeEntriesForFile(text("c.json"));
    }
    registry.removeEntriesForFile(text("a.json"));
    QSignalSpy changes(&registry, &PluginRegistry::contentChanged);
    World::setMasked(masked);
    QTRY_COMPARE(changes.count(), 1);
    QVERIFY(!registry.getItem(path("x")));
    QCOMPARE(titleOf(registry, "a"), text("A"));
    QCOMPARE(titleOf(registry, "a/b"), text("B"));
    World::setMasked({});
    QTRY_COMPARE(changes.count(), 2);
    QCOMPARE(titleOf(registry, "a"), text("A"));
    // It is still removed with its last child.
    registry.removeEntriesForFile(text("b.json"));
    registry.removeEntriesForFile(text("c.json"));
    QVERIFY(!registry.getItem(path("a")));
}

void OutlivedNodesTest::maskRemovesTheLastChild()
{
    writeFile("a.json", {declaring("a", "A")});
    writeFile("b.json", {declaring("a/b", "B")});
    PluginRegistry registry;
    registry.removeEntriesForFile(text("a.json"));
    QSignalSpy changes(&registry, &PluginRegistry::contentChanged);
    World::setMasked({text("a/b")});
    QTRY_COMPARE(changes.count(), 1);
    QCOMPARE(paths(registry), QStringList());
}

void OutlivedNodesTest::maskOfUndeclaredNode()
{
    writeFile("b.json", {declaring("a/b", "B")});
    PluginRegistry registry;
    QSignalSpy changes(&registry, &PluginRegistry::contentChanged);
    const MessageLog log;
    World::setMasked({text("a")});
    QTRY_COMPARE(changes.count(), 1);
    // The name of the file that declared the node is empty, and there is no such file.
    QCOMPARE(log.take(), QStringList{settingsWarning(Messages::CannotReadEntries, QString())});
    QCOMPARE(paths(registry), (QStringList{text("a"), text("a/b")}));
    World::setMasked({});
    World::setMasked({text("unknown")});
    World::setMasked({text("b")});
    QCOMPARE(changes.count(), 1);
}

QTEST_GUILESS_MAIN(OutlivedNodesTest)

#include "tst_outlivednodes.moc"
