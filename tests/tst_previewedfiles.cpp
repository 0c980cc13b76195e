// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "catalogwatcher.h"
#include "messagelog.h"
#include "previewedfiles.h"
#include "registry/pluginregistry.h"
#include "registry/treeitem.h"
#include "text.h"
#include "world.h"

#include <QSaveFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

class PreviewedFilesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void followsWhatIsSaved();
    void followsDirectories();
    void followsFilesThatAreStillEmpty();
    void namesProblems();
    void followsCatalogs();
    void noticesCatalogsOfTheStart();
};

void PreviewedFilesTest::followsWhatIsSaved()
{
    World::reset();
    const QTemporaryDir directory;
    const QString file = directory.filePath(text("x.json"));
    World::writeFile(file, R"({"entries": [{"path": "a", "title": "First"}, {"path": "b"}]})");
    PreviewedFiles files({file});
    files.follow();
    PluginRegistry *const registry = PluginRegistry::instance();
    const auto titleOf = [registry](const char *name) {
        const TreeItem *item = registry->getItem({text(name)});
        return item ? item->title() : QString();
    };
    QCOMPARE(titleOf("a"), text("First"));
    QVERIFY(registry->getItem({text("b")}));

    QSignalSpy changed(registry, &PluginRegistry::contentChanged);
    QSaveFile replacement(file); // as editors do
    QVERIFY(replacement.open(QIODevice::WriteOnly));
    replacement.write(R"({"entries": [{"path": "a", "title": "Second"}]})");
    QVERIFY(replacement.commit());
    QTRY_COMPARE(titleOf("a"), text("Second"));
    QVERIFY(!registry->getItem({text("b")}));
    QVERIFY(changed.count() > 0);

    const MessageLog log; // a part of a file may be read
    World::writeFile(file, R"({"entries": [{"path": "a", "title": "Third"}]})");
    QTRY_COMPARE(titleOf("a"), text("Third"));
    World::writeFile(file, "{");
    QTRY_VERIFY(!registry->getItem({text("a")}));
    World::writeFile(file, R"({"entries": [{"path": "a", "title": "Fourth"}]})");
    QTRY_COMPARE(titleOf("a"), text("Fourth"));
    QVERIFY(QFile::remove(file));
    QTRY_VERIFY(!registry->getItem({text("a")}));
}

void PreviewedFilesTest::followsDirectories()
{
    World::reset();
    const QTemporaryDir directory;
    World::writeFile(directory.filePath(text("d1.json")), R"({"entries": [{"path": "d1"}]})");
    PreviewedFiles files({directory.filePath(text("d1.json"))}, {directory.path()});
    files.follow();
    PluginRegistry *const registry = PluginRegistry::instance();
    const MessageLog log; // the file may be seen before it has its content
    World::writeFile(directory.filePath(text("d2.json")), R"({"entries": [{"path": "d2"}]})");
    QTRY_VERIFY(registry->getItem({text("d2")}));
    World::writeFile(directory.filePath(text("d2.json")), R"({"entries": [{"path": "d3"}]})");
    QTRY_VERIFY(registry->getItem({text("d3")}));
    QVERIFY(QFile::remove(directory.filePath(text("d2.json"))));
    QTRY_VERIFY(!registry->getItem({text("d3")}));
}

void PreviewedFilesTest::followsFilesThatAreStillEmpty()
{
    World::reset();
    const QTemporaryDir directory;
    const QString empty = directory.filePath(text("e.json"));
    World::writeFile(directory.filePath(text("package.json")), R"({"name": "a program"})");
    World::writeFile(directory.filePath(text("e1.json")), R"({"entries": [{"path": "e1"}]})");
    PreviewedFiles files({directory.filePath(text("e1.json"))}, {directory.path()});
    files.follow();
    PluginRegistry *const registry = PluginRegistry::instance();
    const MessageLog log; // a part of a file may be read
    World::writeFile(empty, {});
    World::writeFile(directory.filePath(text("e2.json")), R"({"entries": [{"path": "e2"}]})");
    QTRY_VERIFY(registry->getItem({text("e2")})); // so the empty file was seen, too
    World::writeFile(empty, R"({"entries": [{"path": "e3"}]})");
    QTRY_VERIFY(registry->getItem({text("e3")}));
    World::writeFile(empty, R"({"entries": [{"path": "e4"}]})");
    QTRY_VERIFY(registry->getItem({text("e4")}));
    QVERIFY(!registry->getItem({text("e3")}));
}

void PreviewedFilesTest::namesProblems()
{
    World::reset();
    const QTemporaryDir directory;
    const QString file = directory.filePath(text("p.json"));
    World::writeFile(file, "{\"entries\": [\n{\"path\": \"p\"},\n]}");
    PreviewedFiles files({file});
    QCOMPARE(files.problems(),
             QStringList(text("p.json: line 2, column 14: remove this comma: nothing follows it")));
    files.follow();
    const MessageLog log;
    QSignalSpy changed(&files, &PreviewedFiles::problemsChanged);
    World::writeFile(file, R"({"entries": [{"path": "p"}]})");
    QTRY_COMPARE(files.problems(), QStringList());
    QVERIFY(changed.count() > 0);
}

void PreviewedFilesTest::followsCatalogs()
{
    const QTemporaryDir directory;
    const QTemporaryDir copies;
    World::writeFile(directory.filePath(text("a.qm")), "first");
    World::writeFile(copies.filePath(text("a.qm")), "first");
    CatalogWatcher watcher({directory.path()}, {copies.path()});
    QSignalSpy changed(&watcher, &CatalogWatcher::changed);
    World::writeFile(directory.filePath(text("a.qm")), "compiled again");
    QTRY_COMPARE(changed.count(), 1);
    World::writeFile(directory.filePath(text("a.ts")), "not compiled");
    World::writeFile(directory.filePath(text("b.qm")), "new");
    QTRY_COMPARE(changed.count(), 2);
    QVERIFY(QFile::remove(directory.filePath(text("a.qm"))));
    QTRY_COMPARE(changed.count(), 3);
}

/// A catalog can change after it was copied, and before the watcher exists.
void PreviewedFilesTest::noticesCatalogsOfTheStart()
{
    const QTemporaryDir directory;
    const QTemporaryDir copies;
    World::writeFile(copies.filePath(text("a.qm")), "first");
    World::writeFile(directory.filePath(text("a.qm")), "again");
    const CatalogWatcher watcher({directory.path()}, {copies.path()});
    QSignalSpy changed(&watcher, &CatalogWatcher::changed);
    QVERIFY(changed.wait());
}

QTEST_GUILESS_MAIN(PreviewedFilesTest)
#include "tst_previewedfiles.moc"
