// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

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

QTEST_GUILESS_MAIN(PreviewedFilesTest)
#include "tst_previewedfiles.moc"
