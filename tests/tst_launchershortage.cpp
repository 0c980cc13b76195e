// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications.h"
#include "inotifyuse.h"
#include "messagelog.h"
#include "modelreplica.h"
#include "nodescriptors.h"
#include "signallog.h"
#include "text.h"

#include <launcherfoldermodel.h>

#include <QAbstractItemModelTester>
#include <QTest>

#include <memory>
#include <optional>

// Descriptors, instances of inotify and watches run out and come back.
class LauncherShortageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void listsWhenDescriptorsAreBack();
    void keepsRowsWithoutDescriptors_data();
    void keepsRowsWithoutDescriptors();
    void arrangesWhenDescriptorsAreBack();
    void followsWithoutInotify_data();
    void followsWithoutInotify();
};

/// Lets a model look for changes as often as it can.
static void look(int times)
{
    for (int i = 0; i < times; ++i) {
        const LauncherFolderModel model;
    }
}

void LauncherShortageTest::initTestCase()
{
    // The sanitizer opens a pipe when it checks the first object of a class.
    const Applications applications;
    applications.write("first/a.desktop", application("A"));
    applications.writeMenu("<Menu><Menu><Name>F</Name></Menu></Menu>");
    LauncherFolderModel model;
    const ModelReplica replica(&model, Qt::DisplayRole);
    QVERIFY(replica.isEqual());
    QCOMPARE(rows(model), text("F{} A"));
}

void LauncherShortageTest::listsWhenDescriptorsAreBack()
{
    const MessageLog log;
    const Applications applications;
    applications.write("first/a.desktop", application("A"));
    applications.write("first/sub/b.desktop", application("B"));
    auto shortage = std::make_unique<NoDescriptors>();
    LauncherFolderModel model;
    const ModelReplica replica(&model, Qt::DisplayRole);
    look(3);
    QCOMPARE(rows(model), text(""));
    QCOMPARE(MessageLog::take().size(), 1);
    shortage.reset();
    QTRY_COMPARE(rows(model), text("A B"));
    QVERIFY(replica.isEqual());
    applications.write("first/c.desktop", application("C"));
    QTRY_COMPARE(rows(model), text("A B C"));
    QCOMPARE(MessageLog::take(), QStringList());
}

void LauncherShortageTest::keepsRowsWithoutDescriptors_data()
{
    QTest::addColumn<QString>("changed"); // a directory or a file
    QTest::addColumn<QString>("after");
    QTest::newRow("file") << text("first/b.desktop") << text("A New");
    QTest::newRow("directory") << text("first") << text("Z");
    QTest::newRow("new directory") << text("second") << text("A B Z");
}

void LauncherShortageTest::keepsRowsWithoutDescriptors()
{
    QFETCH(QString, changed);
    QFETCH(QString, after);
    const MessageLog log;
    const Applications applications;
    applications.write("first/a.desktop", application("A"));
    applications.write("first/b.desktop", application("B"));
    applications.write("elsewhere/new", application("New"));
    applications.write("elsewhere/applications/z.desktop", application("Z"));
    LauncherFolderModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    SignalLog signals(&model);
    {
        const NoDescriptors shortage;
        if (changed.endsWith(text(".desktop"))) {
            applications.remove(qPrintable(changed));
            applications.rename("elsewhere/new", qPrintable(changed));
        } else {
            if (changed == text("first")) {
                applications.rename("first", "old");
            }
            applications.rename("elsewhere", qPrintable(changed));
        }
        QStringList warnings;
        QTRY_VERIFY(!(warnings += MessageLog::take()).isEmpty());
        look(3);
        QCOMPARE(warnings.size(), 1);
        QCOMPARE(rows(model), text("A B"));
        QCOMPARE(signals.take(), QStringList());
        QCOMPARE(MessageLog::take(), QStringList());
    }
    look(1);
    QTRY_COMPARE(rows(model), after);
    QCOMPARE(MessageLog::take(), QStringList());
}

void LauncherShortageTest::arrangesWhenDescriptorsAreBack()
{
    const MessageLog log;
    const Applications applications;
    applications.write("first/a.desktop", application("A"));
    applications.write("first/b.desktop", application("B"));
    LauncherFolderModel model;
    applications.writeMenu("<Menu><Filename>b.desktop</Filename></Menu>");
    auto shortage = std::make_unique<NoDescriptors>();
    model.load();
    model.load();
    QCOMPARE(rows(model), text("A B"));
    QCOMPARE(MessageLog::take(),
             QStringList{text("warning default: LauncherFolderModel: cannot read \"%1\": Too many "
                              "open files")
                             .arg(applications.menuFile())});
    const LauncherFolderModel other;
    QCOMPARE(rows(other), text("A B"));
    shortage.reset();
    QTRY_COMPARE(rows(model), text("B A"));
    QTRY_COMPARE(rows(other), text("B A"));
}

void LauncherShortageTest::followsWithoutInotify_data()
{
    QTest::addColumn<bool>("instances");
    QTest::addColumn<QString>("warning");
    QTest::newRow("no instance") << true << text("cannot follow the applications: Too many open files");
    QTest::newRow("no watch") << false << text("cannot follow \"/\": too many watches");
}

void LauncherShortageTest::followsWithoutInotify()
{
    QFETCH(bool, instances);
    QFETCH(QString, warning);
    const MessageLog log;
    const Applications applications;
    applications.write("first/a.desktop", application("A"));
    applications.write("first/b.desktop", application("B"));
    std::optional<NoInotifyInstances> noInstances;
    std::optional<NoInotifyWatches> noWatches;
    if (instances) {
        noInstances.emplace();
    } else {
        noWatches.emplace();
    }
    LauncherFolderModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    SignalLog signals(&model);
    QCOMPARE(rows(model), text("A B"));
    applications.write("first/b.desktop", application("C"));
    applications.write("first/sub/d.desktop", application("D"));
    applications.remove("first/a.desktop");
    QTRY_COMPARE(rows(model), text("C D"));
    QCOMPARE(signals.take().filter(text("rows")).size(), 3);
    look(3);
    QCOMPARE(MessageLog::take(), QStringList{text("warning default: LauncherFolderModel: ") + warning});

    // It does not look when it can watch again.
    const int watches = inotifyWatches();
    noInstances.reset();
    noWatches.reset();
    const int without = instances ? watches : inotifyWatches();
    look(1);
    QVERIFY(inotifyWatches() > without);
    applications.write("first/a.desktop", application("A"));
    QTRY_COMPARE(rows(model), text("A C D"));
    QCOMPARE(MessageLog::take(), QStringList());
}

QTEST_GUILESS_MAIN(LauncherShortageTest)
#include "tst_launchershortage.moc"
