// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications/applicationssettingsmodel.h"

#include "applications.h"
#include "messagelog.h"
#include "nodescriptors.h"
#include "registry/pluginregistry.h"
#include "signallog.h"
#include "text.h"
#include "world.h"

#include <launcherfoldermodel.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFileSystemWatcher>
#include <QSaveFile>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using Model = ApplicationsSettingsModel;

// The rows of the applications model follow the launcher.
class ApplicationLauncherTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void makesALauncherWhenThereIsNone();
    void listsTheLauncher();
    void foldersAreListedInPlace();
    void emptiedFolder();
    void burstIsOneRebuild();
    void launcherResetsAtOnce();
    void otherLauncher();
    void launcherDies();
    void launcherEntryDies();
    void launcherEntryIsDeletedByOthers();
    void descriptorsRunOut();
    void leftLauncherIsIgnored();
    void setsNoOtherObject();
    void configFileIsFollowedForRootOnly();
    void configFileMayBeReplaced();
    void destroyedWithAPendingUpdate();

private:
    std::unique_ptr<Applications> m_applications;
};

namespace
{
constexpr uint User = 100000; // in no group

QVariant value(const Model &model, int row, int role)
{
    return model.data(model.index(row), role);
}

QStringList names(const Model &model)
{
    QStringList names;
    for (int row = 0; row < model.rowCount(); ++row) {
        names.append(value(model, row, Model::NameRole).toString());
    }
    return names;
}

void complete(Model *model)
{
    model->setUid(User);
    model->componentComplete();
}
}

void ApplicationLauncherTest::init()
{
    World::reset();
    World::writeEntries(text("x.json"), R"({"entries": [{"path": "applications"}]})");
    World::rescan(PluginRegistry::instance());
    m_applications = std::make_unique<Applications>();
    m_applications->write("first/a.desktop", application("A"));
    m_applications->write("first/b.desktop", application("B"));
    m_applications->write("first/sub/c.desktop", application("C"));
}

void ApplicationLauncherTest::makesALauncherWhenThereIsNone()
{
    Model model;
    SignalLog log(&model);
    complete(&model);
    QVERIFY(qobject_cast<LauncherFolderModel *>(model.applications()));
    QCOMPARE(model.applications()->parent(), &model);
    QCOMPARE(model.count(), 3);
    QCOMPARE(log.take(), (QStringList{text("uidChanged"), text("modelAboutToBeReset"), text("countChanged"),
                                      text("modelReset"), text("applicationsChanged")}));
}

void ApplicationLauncherTest::listsTheLauncher()
{
    m_applications->write("user/b.desktop", application("Zed"));
    m_applications->write("first/hidden.desktop", application("Hidden", "NoDisplay=true\n"));
    Model model;
    complete(&model);
    QCOMPARE(names(model), path("A/C/Zed"));
    QCOMPARE(model.rowCount(model.index(0)), 3);
}

void ApplicationLauncherTest::foldersAreListedInPlace()
{
    m_applications->writeMenu("<Menu><Filename>b.desktop</Filename><Menu><Name>Folder</Name>"
                              "<Filename>sub-c.desktop</Filename></Menu></Menu>");
    m_applications->write("first/d.desktop", application("D"));
    Model model;
    complete(&model);
    QCOMPARE(names(model), path("B/C/A/D"));
    QCOMPARE(value(model, 1, Model::FileIdRole), QVariant(text("sub-c.desktop")));
}

void ApplicationLauncherTest::emptiedFolder()
{
    m_applications->writeMenu("<Menu><Menu><Name>Folder</Name><Filename>b.desktop</Filename>"
                              "<Filename>sub-c.desktop</Filename></Menu></Menu>");
    Model model;
    complete(&model);
    QCOMPARE(names(model), path("B/C/A"));
    m_applications->remove("first/sub/c.desktop");
    QTRY_COMPARE(names(model), path("B/A"));
    m_applications->remove("first/b.desktop");
    QTRY_COMPARE(names(model), path("A"));
    m_applications->write("first/b.desktop", application("Back"));
    QTRY_COMPARE(names(model), path("Back/A"));
    // The folder is renamed and moved.
    m_applications->writeMenu("<Menu><Filename>a.desktop</Filename><Menu><Name>Other</Name>"
                              "<Filename>b.desktop</Filename></Menu></Menu>");
    qobject_cast<LauncherFolderModel *>(model.applications())->load();
    QTRY_COMPARE(names(model), path("A/Back"));
    m_applications->write("first/b.desktop", application("Again"));
    QTRY_COMPARE(names(model), path("A/Again"));
}

void ApplicationLauncherTest::burstIsOneRebuild()
{
    Model model;
    complete(&model);
    auto *launcher = qobject_cast<LauncherFolderModel *>(model.applications());
    QSignalSpy inserted(launcher, &LauncherFolderModel::rowsInserted);
    QSignalSpy reset(&model, &Model::modelReset);
    QElapsedTimer sinceLast;
    connect(launcher, &LauncherFolderModel::rowsInserted, &model, [&sinceLast] { sinceLast.start(); });
    for (const char *file : {"first/d.desktop", "first/e.desktop", "first/f.desktop"}) {
        const int before = inserted.count();
        m_applications->write(file, application(QByteArray(file).mid(6, 1).toUpper()));
        QTRY_COMPARE(inserted.count(), before + 1);
    }
    QCOMPARE(reset.count(), 0);
    QCOMPARE(names(model), path("A/B/C"));
    QVERIFY(reset.wait());
    QVERIFY(sinceLast.elapsed() >= 940); // the timer is coarse
    QCOMPARE(names(model), path("A/B/C/D/E/F"));
    QCOMPARE(reset.count(), 1);
    m_applications->remove("first/a.desktop");
    QTRY_COMPARE(names(model), path("B/C/D/E/F"));
    QCOMPARE(reset.count(), 2);
}

void ApplicationLauncherTest::launcherResetsAtOnce()
{
    Model model;
    complete(&model);
    QSignalSpy reset(&model, &Model::modelReset);
    m_applications->writeMenu("<Menu><Filename>b.desktop</Filename></Menu>");
    auto *launcher = qobject_cast<LauncherFolderModel *>(model.applications());
    launcher->load();
    QCOMPARE(names(model), path("B/A/C"));
    QCOMPARE(reset.count(), 1);
}

void ApplicationLauncherTest::otherLauncher()
{
    Model model;
    complete(&model);
    m_applications->writeMenu("<Menu><Filename>sub-c.desktop</Filename></Menu>");
    LauncherFolderModel other;
    SignalLog log(&model);
    model.setApplications(&other);
    QCOMPARE(names(model), path("C/A/B"));
    QCOMPARE(log.take(), (QStringList{text("modelAboutToBeReset"), text("countChanged"), text("modelReset"),
                                      text("applicationsChanged")}));
    model.setApplications(&other);
    QCOMPARE(log.take(), QStringList());
    model.setApplications(nullptr);
    QCOMPARE(model.count(), 0);
    QCOMPARE(model.applications(), nullptr);
}

void ApplicationLauncherTest::launcherDies()
{
    auto launcher = std::make_unique<LauncherFolderModel>();
    Model model;
    model.setApplications(launcher.get());
    complete(&model);
    QCOMPARE(model.count(), 3);
    launcher.reset();
    QCOMPARE(model.applications(), nullptr);
    // The rows stay until the next rebuild, with empty values.
    QCOMPARE(names(model), (QStringList{QString(), QString(), QString()}));
    QCOMPARE(model.firstObjectPath(), QString());
    model.selectAllApps();
    model.setFilterMode(Model::AutostartedOnly);
    QCOMPARE(model.count(), 0);
    LauncherFolderModel other;
    model.setApplications(&other);
    QCOMPARE(names(model), path("A/B/C"));
}

void ApplicationLauncherTest::launcherEntryDies()
{
    Model model;
    complete(&model);
    QSignalSpy removed(qobject_cast<LauncherFolderModel *>(model.applications()),
                       &LauncherFolderModel::rowsRemoved);
    m_applications->remove("first/b.desktop");
    QTRY_COMPARE(removed.count(), 1);
    QTRY_COMPARE(value(model, 1, Model::NameRole), QVariant(QString()));
    QCOMPARE(model.count(), 3);
    QTRY_COMPARE(names(model), path("A/C"));
}

void ApplicationLauncherTest::launcherEntryIsDeletedByOthers()
{
    Model model;
    complete(&model);
    delete qobject_cast<LauncherFolderModel *>(model.applications())->get(1);
    QCOMPARE(value(model, 1, Model::NameRole), QVariant(QString()));
    QTRY_COMPARE(names(model), path("A/C"));
    m_applications->writeMenu("<Menu><Menu><Name>Folder</Name><Filename>sub-c.desktop</Filename></Menu></Menu>");
    auto *launcher = qobject_cast<LauncherFolderModel *>(model.applications());
    launcher->load();
    QCOMPARE(names(model), path("C/A"));
    delete launcher->get(0);
    QCOMPARE(names(model), path("C/A"));
    QVERIFY(qobject_cast<LauncherFolderItem *>(launcher->get(0)));
}

void ApplicationLauncherTest::descriptorsRunOut()
{
    const MessageLog log;
    Model model;
    complete(&model);
    {
        const NoDescriptors shortage;
        QVERIFY(QFile::remove(m_applications->path("first/b.desktop")));
        QVERIFY(QFile::rename(m_applications->path("first/a.desktop"), m_applications->path("first/b.desktop")));
        QStringList warnings;
        QTRY_VERIFY(!(warnings += MessageLog::take()).isEmpty());
        QMetaObject::invokeMethod(&model, "launcherModelReset");
        QVERIFY(names(model).contains(text("B")));
        QCOMPARE(warnings.size(), 1);
    }
    QTRY_COMPARE(names(model), path("A/C"));
    QCOMPARE(MessageLog::take(), QStringList());
}

void ApplicationLauncherTest::leftLauncherIsIgnored()
{
    LauncherFolderModel left;
    Model model;
    model.setApplications(&left);
    complete(&model);
    LauncherFolderModel other;
    model.setApplications(&other);
    QSignalSpy reset(&model, &Model::modelReset);
    QSignalSpy leftReset(&left, &LauncherFolderModel::modelReset);
    m_applications->writeMenu("<Menu><Filename>b.desktop</Filename></Menu>");
    left.load();
    QCOMPARE(leftReset.count(), 1);
    QCOMPARE(reset.count(), 0);
    other.load();
    QCOMPARE(reset.count(), 1);
}

void ApplicationLauncherTest::setsNoOtherObject()
{
    Model model;
    complete(&model);
    QObject nothing;
    model.setApplications(&nothing);
    QCOMPARE(model.applications(), nullptr);
    QCOMPARE(model.count(), 0);
}

void ApplicationLauncherTest::configFileIsFollowedForRootOnly()
{
    m_applications->writeMenu("<Menu/>");
    for (const uint uid : {User, 0u}) {
        LauncherFolderModel launcher;
        Model model;
        model.setUid(uid);
        model.setApplications(&launcher);
        model.componentComplete();
        QCOMPARE(names(model), path("A/B/C"));
        QSignalSpy loaded(&launcher, &LauncherFolderModel::modelReset);
        m_applications->writeMenu("<Menu><Filename>b.desktop</Filename></Menu>");
        if (uid == 0) {
            QTRY_COMPARE(names(model), path("B/A/C"));
        } else {
            // Another watcher of the file is notified of the change, and the launcher is not loaded.
            QFileSystemWatcher barrier({LauncherFolderModel::configFile()});
            QSignalSpy changed(&barrier, &QFileSystemWatcher::fileChanged);
            m_applications->writeMenu("<Menu><Filename>sub-c.desktop</Filename></Menu>");
            QVERIFY(changed.count() > 0 || changed.wait());
            QCOMPARE(loaded.count(), 0);
        }
        m_applications->writeMenu("<Menu/>");
    }
}

void ApplicationLauncherTest::configFileMayBeReplaced()
{
    QVERIFY(!QFile::exists(m_applications->menuFile()));
    Model model;
    model.setUid(0);
    QVERIFY(QDir().mkpath(QFileInfo(m_applications->menuFile()).path()));
    LauncherFolderModel launcher;
    Model watching;
    watching.setUid(0);
    watching.setApplications(&launcher);
    watching.componentComplete();
    for (const char *first : {"b", "a", "sub-c"}) { // created, replaced, replaced
        QSaveFile file(m_applications->menuFile());
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(QByteArray("<Menu><Filename>") + first + ".desktop</Filename></Menu>");
        QVERIFY(file.commit());
        const QString name = QString(QLatin1Char(*(first + qstrlen(first) - 1))).toUpper();
        QTRY_COMPARE(names(watching).value(0), name);
    }
}

void ApplicationLauncherTest::destroyedWithAPendingUpdate()
{
    auto model = std::make_unique<Model>();
    complete(model.get());
    Model survivor;
    complete(&survivor);
    QSignalSpy reset(&survivor, &Model::modelReset);
    World::setMasked({text("x")});
    model.reset();
    QVERIFY(reset.wait()); // scheduled after the other's
    QCOMPARE(names(survivor), path("A/B/C"));
}

QTEST_GUILESS_MAIN(ApplicationLauncherTest)
#include "tst_applicationlauncher.moc"
