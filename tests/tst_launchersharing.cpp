// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications.h"
#include "inotifyuse.h"
#include "modelreplica.h"
#include "signallog.h"
#include "text.h"

#include <launcherfoldermodel.h>

#include <QFileInfo>
#include <QSignalSpy>
#include <QTest>

#include <memory>
#include <vector>

// The models of a process share what they read and watch, and nothing else.
class LauncherSharingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sharesInotify();
    void readsFilesOnce();
    void isUpToDateWhenCreated();
    void readsForTheCurrentLanguage();
    void keepsWhatOthersHaveDropped();
    void createsAModelInAHandler();
    void deletesModelsInAHandler();
};

using Models = std::vector<std::unique_ptr<LauncherFolderModel>>;

static Models createModels(int count)
{
    Models models;
    for (int i = 0; i < count; ++i) {
        models.push_back(std::make_unique<LauncherFolderModel>());
    }
    return models;
}

void LauncherSharingTest::sharesInotify()
{
    const Applications applications;
    applications.write("first/a.desktop", application("A"));
    const int instances = inotifyInstances();
    const int watches = inotifyWatches();
    {
        const Models one = createModels(1);
        QCOMPARE(inotifyInstances(), instances + 1);
        const int watchesOfOne = inotifyWatches();
        const Models more = createModels(99);
        QCOMPARE(inotifyInstances(), instances + 1);
        QCOMPARE(inotifyWatches(), watchesOfOne);
        applications.write("first/b.desktop", application("B"));
        for (const auto &model : more) {
            QTRY_COMPARE(rows(*model), text("A B"));
        }
        QTRY_COMPARE(rows(*one.front()), text("A B"));
    }
    QCOMPARE(inotifyInstances(), instances);
    QCOMPARE(inotifyWatches(), watches);
}

void LauncherSharingTest::readsFilesOnce()
{
    constexpr int Size = 1000;
    const Applications applications;
    for (int i = 0; i < Size; ++i) {
        applications.write(qPrintable(text("first/%1.desktop").arg(i)), application(QByteArray::number(i)));
    }
    const OpenedFiles opened(QFileInfo(applications.path("first/0.desktop")).path());
    const LauncherFolderModel first;
    QCOMPARE(opened.take().size(), Size + 1);
    const LauncherFolderModel second;
    QCOMPARE(second.itemCount(), Size);
    QCOMPARE(opened.take(), QStringList());

    applications.write("first/5.desktop", application("A"));
    opened.take();
    const LauncherFolderModel third;
    QVERIFY(rows(third).contains(text("A")));
    QTRY_COMPARE(rows(first), rows(third));
    QTRY_COMPARE(rows(second), rows(third));
    QCOMPARE(opened.take(), QStringList{text("5.desktop")});
}

void LauncherSharingTest::isUpToDateWhenCreated()
{
    const Applications applications;
    applications.write("first/a.desktop", application("A"));
    applications.write("first/b.desktop", application("B"));
    LauncherFolderModel old;
    const ModelReplica replica(&old, Qt::DisplayRole);
    SignalLog log(&old);
    applications.write("first/b.desktop", application("C"));
    applications.write("first/sub/d.desktop", application("D"));
    applications.remove("first/a.desktop");
    LauncherFolderModel fresh;
    QCOMPARE(rows(fresh), text("C D"));
    QCOMPARE(rows(old), text("A B"));
    QCOMPARE(itemAt(old, 1)->filePath(), itemAt(fresh, 0)->filePath());
    QCOMPARE(log.take(), QStringList());
    SignalLog freshLog(&fresh);
    QTRY_COMPARE(rows(old), text("C D"));
    QVERIFY(replica.isEqual());
    QCOMPARE(log.take(), (QStringList{text("rowsAboutToBeRemoved 0-0"), text("rowsRemoved 0-0"),
                                      text("dataChanged 0-0"), text("rowsInserted 1-1")}));
    QCOMPARE(freshLog.take(), QStringList());
}

void LauncherSharingTest::readsForTheCurrentLanguage()
{
    const Applications applications;
    applications.write("first/a.desktop", application("Plain", "Name[de]=Deutsch\n"));
    qputenv("LANGUAGE", "C");
    const LauncherFolderModel plain;
    qputenv("LANGUAGE", "de");
    const LauncherFolderModel german;
    QCOMPARE(rows(german), text("Deutsch"));
    qputenv("LANGUAGE", "C");
    QCOMPARE(rows(plain), text("Plain"));
}

void LauncherSharingTest::keepsWhatOthersHaveDropped()
{
    const Applications applications;
    applications.write("first/a.desktop", application("A"));
    auto first = std::make_unique<LauncherFolderModel>();
    const LauncherFolderModel second;
    QVERIFY(first->get(0) != second.get(0));
    delete first->get(0);
    QCOMPARE(rows(*first), text(""));
    QCOMPARE(rows(second), text("A"));
    first.reset();
    QCOMPARE(itemAt(second, 0)->title(), text("A"));
}

void LauncherSharingTest::createsAModelInAHandler()
{
    const Applications applications;
    LauncherFolderModel first;
    LauncherFolderModel second;
    std::unique_ptr<LauncherFolderModel> third;
    connect(&first, &QAbstractItemModel::rowsInserted, this, [&] {
        if (!third) {
            applications.write("first/b.desktop", application("B"));
            third = std::make_unique<LauncherFolderModel>();
        }
    });
    applications.write("first/a.desktop", application("A"));
    QTRY_VERIFY(third);
    QTRY_COMPARE(rows(*third), text("A B"));
    QTRY_COMPARE(rows(first), text("A B"));
    QTRY_COMPARE(rows(second), text("A B"));
}

void LauncherSharingTest::deletesModelsInAHandler()
{
    const Applications applications;
    const int instances = inotifyInstances();
    Models models = createModels(3);
    connect(models.at(1).get(), &QAbstractItemModel::rowsInserted, this, [&models] { models.clear(); });
    for (const char *name : {"a", "b", "c"}) {
        applications.write(qPrintable(text("first/%1.desktop").arg(text(name))), application(name));
    }
    QTRY_VERIFY(models.empty());
    QCOMPARE(inotifyInstances(), instances);
}

QTEST_GUILESS_MAIN(LauncherSharingTest)
#include "tst_launchersharing.moc"
