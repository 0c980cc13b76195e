// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications.h"
#include "modelreplica.h"
#include "signallog.h"
#include "text.h"

#include <launcherfoldermodel.h>

#include <QAbstractItemModelTester>
#include <QFile>
#include <QPointer>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <functional>
#include <memory>

using Change = std::function<void(const Applications &)>;
Q_DECLARE_METATYPE(Change)

// A model follows its files row by row, and emits signals only for what changed.
class LauncherFollowingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void followsOneFile_data();
    void followsOneFile();
    void followsDirectories_data();
    void followsDirectories();
    void keepsAChangedItem();
    void deletesTheItemOfARemovedFile();
    void followsInAFolder();
    void followsALinksTarget();
    void followsFurtherWriting();
    void emitsNothingForHiddenFiles();
    void combinesChanges();
    void keepsUpWithSteadyChanges();
    void loadsInAHandler();
    void supportsTwoModels();
    void randomOperations();
};

namespace
{
void writeBasics(const Applications &applications)
{
    applications.write("first/b.desktop", application("B"));
    applications.write("first/d.desktop", application("D"));
    applications.write("first/sub/f.desktop", application("F"));
}
}

void LauncherFollowingTest::followsOneFile_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("rows");
    QTest::addColumn<QStringList>("expected");

    const auto row = [](const char *name, const char *rows, const QStringList &expected, const Change &change) {
        QTest::newRow(name) << change << text(rows) << expected;
    };
    using A = const Applications &;
    const QStringList changed{text("dataChanged 1-1")};
    const QStringList removed{text("rowsAboutToBeRemoved 1-1"), text("rowsRemoved 1-1")};
    row("new first", "A B D F", {text("rowsInserted 0-0")},
        [](A a) { a.write("first/x.desktop", application("A")); });
    row("new between", "B C D F", {text("rowsInserted 1-1")},
        [](A a) { a.write("user/x.desktop", application("C")); });
    row("new last", "B D F G", {text("rowsInserted 3-3")},
        [](A a) { a.write("second/x.desktop", application("G")); });
    row("new in a folder", "B D E F", {text("rowsInserted 2-2")},
        [](A a) { a.write("first/sub/x.desktop", application("E")); });
    row("moved in", "A B D F", {text("rowsInserted 0-0")}, [](A a) {
        a.write("elsewhere/x.desktop", application("A"));
        a.rename("elsewhere/x.desktop", "first/x.desktop");
    });
    row("removed", "B F", removed, [](A a) { a.remove("first/d.desktop"); });
    row("moved out", "B F", removed, [](A a) { a.rename("first/d.desktop", "elsewhere/d"); });
    row("written in place", "B Da F", changed, [](A a) { a.write("first/d.desktop", application("Da")); });
    row("replaced", "B Da F", changed, [](A a) { a.replace("first/d.desktop", application("Da")); });
    row("only the icon", "B D F", changed,
        [](A a) { a.replace("first/d.desktop", application("D", "Icon=a\n")); });
    row("sorted up", "A B F",
        {
            text("rowsMoved 1-1 to 0"),
            text("dataChanged 0-0"),
        },
        [](A a) { a.replace("first/d.desktop", application("A")); });
    row("sorted down", "B F G",
        {
            text("rowsMoved 1-1 to 3"),
            text("dataChanged 2-2"),
        },
        [](A a) { a.write("first/d.desktop", application("G")); });
    row("hidden", "B F", removed, [](A a) { a.write("first/d.desktop", application("D", "NoDisplay=true\n")); });
    row("overridden", "B Da F", changed, [](A a) { a.write("user/d.desktop", application("Da")); });
    row("hidden by another", "B F", removed,
        [](A a) { a.write("user/d.desktop", "[Desktop Entry]\nHidden=true\n"); });
}

void LauncherFollowingTest::followsOneFile()
{
    QFETCH(Change, change);
    QFETCH(QString, rows);
    QFETCH(QStringList, expected);
    const Applications applications;
    writeBasics(applications);
    LauncherFolderModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    const ModelReplica replica(&model, Qt::DisplayRole);
    SignalLog log(&model);
    const QSignalSpy itemChanges(&model, &LauncherFolderItem::itemChanged);
    QCOMPARE(::rows(model), text("B D F"));

    change(applications);
    QStringList emitted;
    QTRY_COMPARE((emitted += log.take()), expected);
    QCOMPARE(::rows(model), rows);
    QVERIFY(replica.isEqual());
    QCOMPARE(itemChanges.count(), expected.filter(text("dataChanged")).size());
}

void LauncherFollowingTest::followsDirectories_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("rows");

    const auto row = [](const char *name, const char *rows, const Change &change) {
        QTest::newRow(name) << change << text(rows);
    };
    using A = const Applications &;
    row("new", "A B D F", [](A a) { a.write("first/new/a.desktop", application("A")); });
    row("new and deep", "A B D F", [](A a) { a.write("first/new/deep/deeper/a.desktop", application("A")); });
    row("new application directory", "A B D F", [](A a) { a.write("second/a.desktop", application("A")); });
    row("moved in", "A B D F", [](A a) {
        a.write("elsewhere/a.desktop", application("A"));
        a.rename("elsewhere", "first/elsewhere");
    });
    row("moved within", "B D F", [](A a) { a.rename("first/sub", "first/bus"); });
    row("moved out", "B D", [](A a) { a.rename("first/sub", "elsewhere"); });
    row("removed", "B D", [](A a) { a.remove("first/sub"); });
    row("removed and created again", "A B D", [](A a) {
        a.remove("first/sub");
        a.write("first/sub/a.desktop", application("A"));
    });
    row("application directory removed", "", [](A a) { a.remove("first"); });
    row("application directory moved away", "", [](A a) { a.rename("first", "elsewhere"); });
    row("application directory replaced", "A", [](A a) {
        a.write("elsewhere/applications/a.desktop", application("A"));
        a.rename("first", "old");
        a.rename("elsewhere", "first");
    });
    row("application directory becomes a link", "A", [](A a) {
        a.write("elsewhere/applications/a.desktop", application("A"));
        a.remove("first");
        a.link(a.path("elsewhere"), "first");
    });
    row("application directory becomes a file", "", [](A a) {
        a.remove("first");
        a.write("first", "");
    });
}

void LauncherFollowingTest::followsDirectories()
{
    QFETCH(Change, change);
    QFETCH(QString, rows);
    const Applications applications;
    writeBasics(applications);
    LauncherFolderModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    const ModelReplica replica(&model, Qt::DisplayRole);
    const QSignalSpy resets(&model, &QAbstractItemModel::modelReset);

    change(applications);
    QTRY_COMPARE(::rows(model), rows);
    QTRY_COMPARE(fileIds(model), fileIds(UnsharedLauncher().model()));
    // New directories are followed as well.
    applications.write("user/z.desktop", application("Z"));
    applications.write("second/new/y.desktop", application("Y"));
    QTRY_COMPARE(::rows(model), (rows + text(" Y Z")).trimmed());
    applications.replace("second/new/y.desktop", application("X"));
    QTRY_COMPARE(::rows(model), (rows + text(" X Z")).trimmed());
    QVERIFY(replica.isEqual());
    QCOMPARE(resets.count(), 0);
}

void LauncherFollowingTest::keepsAChangedItem()
{
    const Applications applications;
    applications.write("first/a.desktop", application("A"));
    const LauncherFolderModel model;
    LauncherItem *const item = itemAt(model, 0);
    QSignalSpy ownChanges(item, &LauncherItem::itemChanged);
    QSignalSpy changes(&model, &LauncherFolderItem::itemChanged);

    applications.replace("first/a.desktop", application("B", "[X-Tarnhold]\n"));
    QVERIFY(changes.wait());
    QCOMPARE(changes.count(), 1);
    QCOMPARE(changes.first().first().value<LauncherItem *>(), item);
    QCOMPARE(ownChanges.count(), 1);
    QCOMPARE(itemAt(model, 0), item);
    QCOMPARE(item->title(), text("B"));
    QVERIFY(item->isSandboxed());

    applications.write("user/a.desktop", application("B"));
    QVERIFY(changes.wait());
    QCOMPARE(itemAt(model, 0), item);
    QCOMPARE(item->filePath(), applications.path("user/a.desktop"));
    QVERIFY(!item->isSandboxed());
}

void LauncherFollowingTest::deletesTheItemOfARemovedFile()
{
    const Applications applications;
    applications.write("first/a.desktop", application("A"));
    const LauncherFolderModel model;
    const QPointer<LauncherItem> item = itemAt(model, 0);
    applications.remove("first/a.desktop");
    QTRY_COMPARE(model.itemCount(), 0);
    QTRY_VERIFY(!item);
    applications.write("first/a.desktop", application("A"));
    QTRY_COMPARE(model.itemCount(), 1);
}

void LauncherFollowingTest::followsInAFolder()
{
    const Applications applications;
    applications.writeMenu("<Menu><Menu><Name>Folder</Name><Filename>b.desktop</Filename>"
                           "<Filename>a.desktop</Filename></Menu></Menu>");
    applications.write("first/a.desktop", application("A"));
    applications.write("first/c.desktop", application("C"));
    LauncherFolderModel model;
    QCOMPARE(rows(model), text("Folder{A} C"));
    auto *const folder = qobject_cast<LauncherFolderItem *>(model.get(0));
    const QAbstractItemModelTester tester(folder, QAbstractItemModelTester::FailureReportingMode::QtTest);
    SignalLog rootLog(&model);
    SignalLog log(folder);

    applications.write("first/b.desktop", application("Z"));
    QTRY_COMPARE(rows(model), text("Folder{Z A} C"));
    applications.write("first/a.desktop", application("Y"));
    QTRY_COMPARE(rows(model), text("Folder{Z Y} C"));
    applications.remove("first/b.desktop");
    QTRY_COMPARE(rows(model), text("Folder{Y} C"));
    QCOMPARE(log.take(), (QStringList{text("rowsInserted 0-0"), text("dataChanged 1-1"), text("itemChanged"),
                                      text("rowsAboutToBeRemoved 0-0"), text("rowsRemoved 0-0")}));
    QCOMPARE(rootLog.take(), QStringList());
}

void LauncherFollowingTest::followsALinksTarget()
{
    const Applications applications;
    applications.write("elsewhere/a", application("A"));
    applications.link(applications.path("elsewhere/a"), "first/a.desktop");
    applications.link(applications.path("elsewhere/a"), "first/b.desktop");
    const LauncherFolderModel model;
    QCOMPARE(rows(model), text("A A"));
    applications.write("elsewhere/a", application("B"));
    QTRY_COMPARE(rows(model), text("B B"));
    applications.replace("elsewhere/a", application("C"));
    QTRY_COMPARE(rows(model), text("C C"));
    applications.write("elsewhere/a", application("D"));
    QTRY_COMPARE(rows(model), text("D D"));
}

void LauncherFollowingTest::followsFurtherWriting()
{
    const Applications applications;
    applications.write("first/a.desktop", application("0"));
    const LauncherFolderModel model;
    for (int i = 1; i < 10; ++i) {
        applications.write("first/a.desktop", application(QByteArray::number(i)));
        QTRY_COMPARE(rows(model), QString::number(i));
    }
}

void LauncherFollowingTest::emitsNothingForHiddenFiles()
{
    const Applications applications;
    applications.write("user/a.desktop", application("A"));
    applications.write("first/a.desktop", application("hidden by the user's"));
    applications.write("first/b.desktop", application("B", "NoDisplay=true\n"));
    LauncherFolderModel model;
    SignalLog log(&model);
    applications.write("first/a.desktop", application("still hidden"));
    applications.write("first/b.desktop", application("BB", "NoDisplay=true\n"));
    applications.write("first/a.desktop.tmp", application("no desktop file"));
    applications.write("first/empty/a.txt", "");
    applications.write("first/z.desktop", application("Z"));
    QTRY_COMPARE(rows(model), text("A Z"));
    QCOMPARE(log.take(), QStringList{text("rowsInserted 1-1")});
}

void LauncherFollowingTest::combinesChanges()
{
    const Applications applications;
    applications.write("first/a.desktop", application("A"));
    LauncherFolderModel model;
    SignalLog log(&model);
    for (int i = 0; i < 100; ++i) {
        applications.write("first/a.desktop", application(QByteArray::number(i)));
    }
    QTRY_COMPARE(rows(model), text("99"));
    QCOMPARE(log.take(), QStringList{text("dataChanged 0-0")});
}

void LauncherFollowingTest::keepsUpWithSteadyChanges()
{
    const Applications applications;
    applications.write("first/a.desktop", application("A"));
    const LauncherFolderModel model;
    QSignalSpy changes(&model, &LauncherFolderItem::itemChanged);
    QTimer writer;
    connect(&writer, &QTimer::timeout, &writer, [&] { applications.write("first/a.desktop", application("B")); });
    writer.start(10);
    QVERIFY(changes.wait());
    QVERIFY(changes.wait());
}

void LauncherFollowingTest::loadsInAHandler()
{
    const Applications applications;
    applications.write("first/a.desktop", application("A"));
    applications.write("first/b.desktop", application("B"));
    LauncherFolderModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    const ModelReplica replica(&model, Qt::DisplayRole);
    int turn = 0;
    const auto loadOther = [&] {
        const char *const ids[] = {"a.desktop", "b.desktop"};
        applications.writeMenu(QByteArrayLiteral("<Menu><Menu><Filename>") + ids[++turn % 2]
                               + "</Filename></Menu></Menu>");
        model.load();
    };
    connect(&model, &QAbstractItemModel::rowsInserted, &model, loadOther);
    connect(&model, &QAbstractItemModel::rowsRemoved, &model, loadOther);
    connect(&model, &LauncherFolderItem::itemChanged, &model, loadOther);

    applications.write("first/c.desktop", application("C"));
    applications.write("first/d.desktop", application("D"));
    QTRY_COMPARE(rows(model), text("{A} B C D"));
    applications.replace("first/c.desktop", application("E"));
    applications.remove("first/d.desktop");
    QTRY_COMPARE(rows(model), text("{A} B E"));
    QCOMPARE(turn, 4);
    QVERIFY(replica.isEqual());
}

void LauncherFollowingTest::supportsTwoModels()
{
    const Applications applications;
    auto first = std::make_unique<LauncherFolderModel>();
    const LauncherFolderModel second;
    applications.write("first/a.desktop", application("A"));
    QTRY_COMPARE(rows(second), text("A"));
    QTRY_COMPARE(rows(*first), text("A"));
    QVERIFY(first->get(0) != second.get(0));
    first.reset();
    applications.write("first/b.desktop", application("B"));
    QTRY_COMPARE(rows(second), text("A B"));
}

namespace
{
QByteArray pick(QRandomGenerator *random, const QByteArrayList &from)
{
    return from.at(random->bounded(from.size()));
}

QByteArray randomFile(QRandomGenerator *random)
{
    return pick(random, {"user/", "first/", "second/"}) + pick(random, {"", "", "x/", "x/y/", "z/"})
           + pick(random, {"a", "b", "c", "x-a", "x-y-b"}) + ".desktop";
}

void changeSomething(const Applications &applications, QRandomGenerator *random)
{
    const QByteArray file = randomFile(random);
    const QByteArray other = randomFile(random);
    const QByteArray directory = pick(random, {"user", "first/x", "first/x/y", "second", "second/z", "user/z"});
    const QByteArray content = application(QByteArray::number(random->bounded(10)),
                                           random->bounded(5) == 0 ? "NoDisplay=true\n" : "");
    const auto exists = [&](const QByteArray &path) { return QFile::exists(applications.path(path.constData())); };
    const bool isThere = exists(file);
    switch (random->bounded(8)) {
    case 0:
        if (isThere) {
            applications.remove(file.constData());
        }
        break;
    case 1:
        if (isThere && !exists(other)) {
            applications.rename(file.constData(), other.constData());
        }
        break;
    case 2:
        if (isThere) {
            applications.replace(file.constData(), content);
        }
        break;
    case 3:
        if (exists(directory) && random->bounded(3) == 0) {
            applications.remove(directory.constData());
        }
        break;
    case 4:
        if (exists(directory) && !exists("first/moved")) {
            applications.rename(directory.constData(), "first/moved");
        }
        break;
    default:
        applications.write(file.constData(), content);
    }
}
}

void LauncherFollowingTest::randomOperations()
{
    const Applications applications;
    applications.writeMenu("<Menu><Menu><Name>F</Name><Filename>x-a.desktop</Filename></Menu>"
                           "<Filename>c.desktop</Filename></Menu>");
    LauncherFolderModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    const ModelReplica replica(&model, Qt::DisplayRole);
    const QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
    QRandomGenerator random(7);
    for (int operation = 0; operation < 200;) {
        for (int burst = random.bounded(1, 6); burst > 0; --burst, ++operation) {
            changeSomething(applications, &random);
        }
        const UnsharedLauncher fresh;
        QTRY_COMPARE(rows(model), rows(fresh.model()));
        QTRY_COMPARE(fileIds(model), fileIds(fresh.model()));
        QVERIFY(replica.isEqual());
    }
    QCOMPARE(resets.count(), 0);
}

QTEST_GUILESS_MAIN(LauncherFollowingTest)
#include "tst_launcherfollowing.moc"
