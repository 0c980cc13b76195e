// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications/applicationssettingsmodel.h"

#include "applications.h"
#include "growth.h"
#include "messagelog.h"
#include "modelreplica.h"
#include "registry/pluginregistry.h"
#include "signallog.h"
#include "text.h"
#include "world.h"

#include <launcherfoldermodel.h>

#include <QAbstractItemModelTester>
#include <QPointer>
#include <QQmlEngine>
#include <QSignalSpy>
#include <QTest>

#include <memory>

#include <pwd.h>
#include <unistd.h>

using Model = ApplicationsSettingsModel;

// The applications model without its services. Other tests check how its rows follow the launcher and the registry.
class ApplicationsSettingsModelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void roleNames();
    void emptyBeforeCompletion();
    void roles();
    void rolesOutside();
    void masked();
    void restrictedApplication();
    void everyRebuildMakesNewItems();
    void sandboxedChangeIsOneRow();
    void uid();
    void filterMode();
    void withoutMode();
    void lookups();
    void looksUpChangedFiles();
    void objectsSurviveTheGarbageCollector();
    void handlersMayResetAgain();
    void roleLookupsDoNotGrowWithTheLists();
    void rebuildTakesLinearTime();
    void iconsTakeLinearTime();

private:
    void complete(Model *model);
    QStringList names(const Model &model) const;

    std::unique_ptr<Applications> m_applications;
};

namespace
{
constexpr uint User = 100000; // in no group

QVariant value(const Model &model, int row, int role)
{
    return model.data(model.index(row), role);
}

QString outOf(const QString &id)
{
    return id + text(".desktop");
}
}

void ApplicationsSettingsModelTest::init()
{
    World::reset();
    World::writeEntries(text("x.json"), R"({"entries": [{"path": "applications"}]})");
    World::rescan(PluginRegistry::instance());
    m_applications = std::make_unique<Applications>();
    m_applications->write("first/a.desktop", application("A"));
    m_applications->write("first/b.desktop", application("B"));
    m_applications->write("first/sub/c.desktop", application("C"));
}

void ApplicationsSettingsModelTest::complete(Model *model)
{
    model->setUid(User);
    model->classBegin();
    model->componentComplete();
}

QStringList ApplicationsSettingsModelTest::names(const Model &model) const
{
    QStringList names;
    for (int row = 0; row < model.rowCount(); ++row) {
        names.append(value(model, row, Model::NameRole).toString());
    }
    return names;
}

void ApplicationsSettingsModelTest::roleNames()
{
    const QHash<int, QByteArray> expected{
        {257, "section"},       {258, "iconId"},      {259, "iconMode"},      {260, "name"},
        {261, "filePath"},      {262, "sandboxed"},   {263, "fileId"},        {264, "allowed"},
        {265, "alwaysAllowed"}, {266, "autostarted"}, {267, "applicationId"}, {268, "notificationsEnabled"}};
    QCOMPARE(Model().roleNames(), expected);
}

void ApplicationsSettingsModelTest::emptyBeforeCompletion()
{
    LauncherFolderModel launcher;
    Model model;
    QSignalSpy reset(&model, &Model::modelReset);
    model.setApplications(&launcher);
    QCOMPARE(model.count(), 0);
    QCOMPARE(reset.count(), 0);
    QCOMPARE(model.firstObjectPath(), QString());
    QCOMPARE(model.objectForPath({}), nullptr);
    QCOMPARE(model.iconOf({}), QString());
    QVERIFY(!model.filterModeEnabled());
    model.toggleSelectedApp(text("a.desktop"));
    model.selectAllApps();
    model.clearSelectedApps();
    model.applyPolicyRules(path("a"));
    QCOMPARE(model.selectedApps(), QStringList());
    model.componentComplete();
    QCOMPARE(model.count(), 3);
    QCOMPARE(model.applications(), &launcher);
}

void ApplicationsSettingsModelTest::roles()
{
    m_applications->write("first/a.desktop",
                          application("A", "Icon=icon-a\nX-DBus-ServiceName=org.example.A\n[X-Tarnhold]\n"
                                           "[X-Zephra-Application]\nIconMode=crop\n"));
    Model model;
    complete(&model);
    QCOMPARE(value(model, 0, 257), QVariant());
    QCOMPARE(value(model, 0, 258), QVariant(text("icon-a")));
    QCOMPARE(value(model, 0, 259), QVariant(text("crop")));
    QCOMPARE(value(model, 0, 260), QVariant(text("A")));
    QCOMPARE(value(model, 0, 261), QVariant(m_applications->path("first/a.desktop")));
    QCOMPARE(value(model, 0, 262), QVariant(true));
    QCOMPARE(value(model, 0, 263), QVariant(text("a.desktop")));
    QCOMPARE(value(model, 0, 264), QVariant(false));
    QCOMPARE(value(model, 0, 265), QVariant(false));
    QCOMPARE(value(model, 0, 266), QVariant(false));
    QCOMPARE(value(model, 0, 267), QVariant(text("org.example.A")));
    QCOMPARE(value(model, 0, 268), QVariant(true));
    QCOMPARE(value(model, 2, 263), QVariant(text("sub-c.desktop")));
    // The user's choice is shown at once.
    model.setFilterMode(Model::AllowedOnly);
    model.toggleSelectedApp(text("sub-c.desktop"));
    QCOMPARE(value(model, 2, 264), QVariant(true));
    QCOMPARE(model.selectedApps(), path("sub-c"));
    model.toggleSelectedApp(text("sub-c.desktop"));
    QCOMPARE(value(model, 2, 264), QVariant(false));
}

void ApplicationsSettingsModelTest::rolesOutside()
{
    Model model;
    complete(&model);
    for (const int row : {-1, 3, 1000000}) {
        QVERIFY(!value(model, row, Model::NameRole).isValid());
    }
    for (const int role : {-1, 0, 1, 256, 269}) {
        QVERIFY(!value(model, 0, role).isValid());
    }
}

void ApplicationsSettingsModelTest::masked()
{
    World::setMasked({m_applications->path("first/b.desktop"), m_applications->path("first/A.desktop")});
    Model model;
    complete(&model);
    QCOMPARE(names(model), path("A/C"));
    QSignalSpy reset(&model, &Model::modelReset);
    World::setMasked({m_applications->path("first/sub/c.desktop")});
    World::setMasked({m_applications->path("first/sub/c.desktop"), text("a.desktop")});
    QTRY_COMPARE(names(model), path("A/B"));
    QCOMPARE(reset.count(), 1);
    World::setMasked({});
    QTRY_COMPARE(names(model), path("A/B/C"));
}

void ApplicationsSettingsModelTest::restrictedApplication()
{
    m_applications->write("first/quillon.desktop", application("Quillon"));
    m_applications->write("first/sub/quillon.desktop", application("Not that one"));
    const QStringList others{text("A"), text("B"), text("C"), text("Not that one")};
    Model model;
    complete(&model);
    QCOMPARE(names(model), others);
    model.setUid(getpwnam("daemon")->pw_uid); // a member of the group "orvanta-system"
    QCOMPARE(names(model), others);
    model.setFilterMode(Model::AutostartedOnly);
    QCOMPARE(names(model), others + QStringList{text("Quillon")});
    model.setUid(User);
    model.setFilterMode(-1);
    QCOMPARE(names(model), others);
}

void ApplicationsSettingsModelTest::everyRebuildMakesNewItems()
{
    Model model;
    complete(&model);
    const QPointer<QObject> before(model.objectForPath(model.firstObjectPath()));
    QVERIFY(before);
    model.setFilterMode(Model::AllowedOnly);
    QVERIFY(!before);
    QVERIFY(model.objectForPath(model.firstObjectPath()));
}

void ApplicationsSettingsModelTest::sandboxedChangeIsOneRow()
{
    Model model;
    complete(&model);
    SignalLog log(&model);
    m_applications->replace("first/b.desktop", application("B", "[X-Tarnhold]\n"));
    QTRY_COMPARE(value(model, 1, Model::SandboxedRole), QVariant(true));
    QCOMPARE(log.take(), QStringList{text("dataChanged 1-1")});
}

void ApplicationsSettingsModelTest::uid()
{
    Model model;
    QCOMPARE(model.uid(), uint(geteuid()));
    SignalLog log(&model);
    model.setUid(User);
    model.setUid(User);
    QCOMPARE(log.take(), QStringList{text("uidChanged")});
    model.setUid(4294967295u);
    QCOMPARE(model.uid(), 4294967295u);
}

void ApplicationsSettingsModelTest::filterMode()
{
    Model model;
    complete(&model);
    QCOMPARE(model.filterMode(), -1);
    SignalLog log(&model);
    model.setFilterMode(Model::AutostartedOnly);
    QCOMPARE(log.take(), (QStringList{text("filterModeChanged"), text("modelAboutToBeReset"), text("countChanged"),
                                      text("modelReset")}));
    model.setFilterMode(Model::AutostartedOnly);
    QCOMPARE(log.take(), QStringList());
    model.setFilterMode(7);
    QCOMPARE(model.filterMode(), 7);
}

void ApplicationsSettingsModelTest::withoutMode()
{
    for (const int mode : {-1, 2, 100}) {
        Model model;
        complete(&model);
        model.setFilterMode(mode);
        SignalLog log(&model);
        const MessageLog messages;
        QCOMPARE(model.selectedApps(), QStringList());
        QVERIFY(!model.filterModeEnabled());
        model.setFilterModeEnabled(true);
        model.toggleSelectedApp(text("a.desktop"));
        model.selectAllApps();
        model.applyPolicyRules(path("a"));
        model.clearSelectedApps();
        QCOMPARE(model.selectedApps(), QStringList());
        QVERIFY(!value(model, 0, Model::AllowedRole).toBool());
        QCOMPARE(log.take(), QStringList());
        QCOMPARE(MessageLog::take(), QStringList());
    }
}

void ApplicationsSettingsModelTest::lookups()
{
    m_applications->write("first/b.desktop", application("B", "Icon=icon-b\n"));
    m_applications->write("first/sub/b.desktop", application("Second", "Icon=icon-second\n"));
    Model model;
    complete(&model);
    QCOMPARE(model.iconOf(text("b.desktop")), text("icon-b"));
    QCOMPARE(model.iconOf(text("B.desktop")), QString());
    QCOMPARE(model.iconOf(m_applications->path("first/b.desktop")), QString());
    QCOMPARE(model.iconOf(text("sub-b.desktop")), QString());
    QCOMPARE(model.firstObjectPath(), m_applications->path("first/a.desktop"));
    QObject *object = model.objectForPath(m_applications->path("first/sub/b.desktop"));
    QCOMPARE(object->property("name").toString(), text("Second"));
    for (const QString &other : {QString(), text("b.desktop"), outOf(m_applications->path("first/b.desktop"))}) {
        QCOMPARE(model.objectForPath(other), nullptr);
    }
}

void ApplicationsSettingsModelTest::looksUpChangedFiles()
{
    m_applications->write("first/a.desktop", application("A", "Icon=first\n"));
    m_applications->write("first/sub/a.desktop", application("Z", "Icon=second\n"));
    LauncherFolderModel launcher;
    Model model;
    model.setApplications(&launcher);
    complete(&model);
    QCOMPARE(model.iconOf(text("a.desktop")), text("first"));
    QCOMPARE(model.iconOf(text("sub-a.desktop")), QString());
    m_applications->write("first/a.desktop", application("A", "Icon=other\n"));
    QTRY_COMPARE(model.iconOf(text("a.desktop")), text("other"));
    // Replaces the file with the same id in the sub-directory.
    m_applications->write("user/sub-a.desktop", application("Z", "Icon=own\n"));
    QTRY_COMPARE(model.iconOf(text("sub-a.desktop")), text("own"));
    m_applications->remove("user/sub-a.desktop");
    QTRY_COMPARE(model.iconOf(text("sub-a.desktop")), QString());
    QCOMPARE(model.iconOf(text("a.desktop")), text("other"));
    QSignalSpy reset(&model, &Model::modelReset);
    m_applications->remove("first/a.desktop");
    QTRY_COMPARE(model.iconOf(text("a.desktop")), text("second"));
    QCOMPARE(reset.count(), 0);
}

void ApplicationsSettingsModelTest::objectsSurviveTheGarbageCollector()
{
    Model model;
    complete(&model);
    QQmlEngine engine;
    QQmlEngine::setObjectOwnership(&model, QQmlEngine::CppOwnership);
    const QJSValue value = engine.newQObject(&model);
    const QPointer<QObject> object(model.objectForPath(model.firstObjectPath()));
    engine.globalObject().setProperty(text("model"), value);
    const QString get = text("model.objectForPath(model.firstObjectPath()).name");
    QCOMPARE(engine.evaluate(get).toString(), text("A"));
    QCOMPARE(QQmlEngine::objectOwnership(object), QQmlEngine::CppOwnership);
    engine.collectGarbage();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(object);
}

void ApplicationsSettingsModelTest::handlersMayResetAgain()
{
    Model model;
    complete(&model);
    FlatProxy flat;
    flat.setSourceModel(&model);
    const QAbstractItemModelTester tester(&flat, QAbstractItemModelTester::FailureReportingMode::QtTest);
    const ModelReplica replica(&model, Model::NameRole);
    // In the middle of a reset
    connect(&model, &Model::countChanged, this, [&model] { model.setFilterMode(Model::AutostartedOnly); });
    SignalLog log(&model);
    model.setFilterMode(Model::AllowedOnly);
    QCOMPARE(model.filterMode(), int(Model::AutostartedOnly));
    QCOMPARE(log.take().count(text("modelReset")), 2);
    QVERIFY(replica.isEqual());
}

void ApplicationsSettingsModelTest::roleLookupsDoNotGrowWithTheLists()
{
    for (int i = 0; i < 1000; ++i) {
        m_applications->write(qPrintable(text("first/x%1.desktop").arg(i)), application("X"));
    }
    Model model;
    complete(&model);
    model.setFilterMode(Model::AllowedOnly);
    const auto readAll = [&model](int size) {
        QStringList ids;
        for (int i = 0; i < size; ++i) {
            ids.append(text("none%1").arg(i));
        }
        model.applyPolicyRules(ids);
        CpuTimer timer;
        timer.start();
        for (int row = 0; row < model.count(); ++row) {
            value(model, row, Model::AllowedRole);
        }
        return timer.nsecsElapsed();
    };
    QVERIFY(Growth::isBelow(10, readAll, 10, 10000));
}

void ApplicationsSettingsModelTest::rebuildTakesLinearTime()
{
    const auto rebuild = [this](int count) {
        init();
        for (int i = 0; i < count; ++i) {
            m_applications->write(qPrintable(text("first/x%1.desktop").arg(i)), application("X"));
        }
        Model model;
        complete(&model);
        CpuTimer timer;
        timer.start();
        QMetaObject::invokeMethod(&model, "launcherModelReset");
        return model.count() == count + 3 ? timer.nsecsElapsed() : -1;
    };
    QVERIFY(Growth::isLinear(rebuild, 200));
}

void ApplicationsSettingsModelTest::iconsTakeLinearTime()
{
    const auto lookUpAll = [this](int count) {
        init();
        for (int i = 0; i < count; ++i) {
            m_applications->write(qPrintable(text("first/x%1.desktop").arg(i)), application("X", "Icon=x\n"));
        }
        Model model;
        complete(&model);
        CpuTimer timer;
        timer.start();
        for (int i = 0; i < count; ++i) {
            if (model.iconOf(text("x%1.desktop").arg(i)) != text("x")) {
                return qint64(-1);
            }
            model.iconOf(text("missing%1.desktop").arg(i));
        }
        return timer.nsecsElapsed();
    };
    QVERIFY(Growth::isLinear(lookUpAll, 200));
}

QTEST_GUILESS_MAIN(ApplicationsSettingsModelTest)
#include "tst_applicationssettingsmodel.moc"
