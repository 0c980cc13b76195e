// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications/applicationssettingsmodel.h"

#include "applications.h"
#include "common/messages.h"
#include "messagelog.h"
#include "registry/pluginregistry.h"
#include "registry/treeitem.h"
#include "signallog.h"
#include "text.h"
#include "world.h"

#include <launcherfoldermodel.h>

#include <QPointer>
#include <QQmlEngine>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <functional>
#include <initializer_list>
#include <memory>

using Model = ApplicationsSettingsModel;

// The entries that packages declare for applications, in the roles of the applications model.
class ApplicationSectionsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void sections();
    void withoutSections();
    void isAddedAndRemoved();
    void staysTheSame();
    void getsOtherData();
    void isReplacedByAnEqualOne();
    void launcherEntryIsGone();
    void dueRebuildIsNotPutOff();
    void handlerMayDoAnything_data();
    void handlerMayDoAnything();
    void registryMayChangeInAReset();

private:
    std::unique_ptr<Applications> m_applications;
};

namespace
{
const QStringList s_none;

QVariant section(const Model &model, int row)
{
    return model.data(model.index(row), Model::SectionRole);
}

TreeItem *node(const Model &model, int row)
{
    return qobject_cast<TreeItem *>(section(model, row).value<QObject *>());
}

/// Writes a registration file with these entries and lets the registry load it.
void load(const char *file, const QByteArray &entries)
{
    World::writeEntries(text(file), R"({"entries": [)" + entries + "]}");
    World::rescan(PluginRegistry::instance());
}

void unload(std::initializer_list<const char *> files)
{
    for (const char *file : files) {
        World::removeEntries(text(file));
    }
    World::rescan(PluginRegistry::instance());
}

QStringList changed(std::initializer_list<int> rows)
{
    QStringList signalsOfRows;
    for (int row : rows) {
        signalsOfRows.append(text("dataChanged %1-%1").arg(row));
    }
    return signalsOfRows;
}
}

void ApplicationSectionsTest::init()
{
    World::reset();
    load("x.json", R"({"path": "applications"})");
    m_applications = std::make_unique<Applications>();
    m_applications->write("first/a.desktop", application("A"));
    m_applications->write("first/b.desktop", application("B"));
    m_applications->write("first/sub/c.desktop", application("C"));
}

void ApplicationSectionsTest::sections()
{
    load("a.json", R"({"path": "applications/a.desktop"}, {"path": "applications/c.desktop", "title": "Of C"})");
    Model model;
    model.componentComplete();
    QCOMPARE(node(model, 0)->location(), path("applications/a.desktop"));
    QVERIFY(!section(model, 1).isValid());
    QCOMPARE(node(model, 2)->title(), text("Of C")); // by the file's name, not by the id
    QQmlEngine engine;
    engine.newQObject(node(model, 2)); // QML would own it if C++ did not
    QCOMPARE(QQmlEngine::objectOwnership(node(model, 2)), QQmlEngine::CppOwnership);
}

void ApplicationSectionsTest::withoutSections()
{
    unload({"x.json"});
    const MessageLog log;
    Model model;
    QCOMPARE(
        MessageLog::take(),
        QStringList{
            text("critical org.orvantaos.settings.framework: %1").arg(text(Messages::NoApplicationsSection))});
    model.componentComplete();
    QCOMPARE(model.count(), 3);
    QVERIFY(!section(model, 0).isValid());
    QCOMPARE(MessageLog::take(), s_none);
}

void ApplicationSectionsTest::isAddedAndRemoved()
{
    Model model;
    model.componentComplete();
    SignalLog log(&model);
    const QPointer<QObject> item(model.objectForPath(model.firstObjectPath()));
    load("a.json", R"({"path": "applications/a.desktop", "title": "Page"})");
    QCOMPARE(log.take(), changed({0}));
    QCOMPARE(node(model, 0)->title(), text("Page"));
    unload({"a.json", "x.json"});
    QCOMPARE(log.take(), changed({0}));
    QVERIFY(!section(model, 0).isValid());
    load("z.json", R"({"path": "applications/a.desktop", "title": "Other"}, {"path": "applications/c.desktop"})");
    QCOMPARE(log.take(), changed({0, 2}));
    QCOMPARE(node(model, 0)->title(), text("Other"));
    QCOMPARE(model.objectForPath(model.firstObjectPath()), item);
    QCOMPARE(item->property("section"), section(model, 0));
}

void ApplicationSectionsTest::staysTheSame()
{
    load("a.json", R"({"path": "applications/a.desktop", "title": "Page", "order": 3,
                       "params": {"list": [1, null, {"x": true}]}})");
    Model model;
    model.componentComplete();
    SignalLog log(&model);
    QSignalSpy content(PluginRegistry::instance(), &PluginRegistry::contentChanged);
    load("other.json", R"({"path": "a.desktop"}, {"path": "other"}, {"path": "applications/a.desktop/below"})");
    QCOMPARE(content.count(), 1);
    QCOMPARE(log.take(), s_none);
}

void ApplicationSectionsTest::getsOtherData()
{
    load("a.json", R"({"path": "applications/a.desktop", "title": "Page"})");
    load("b.json", R"({"path": "applications/a.desktop/below"})"); // keeps the node
    Model model;
    model.componentComplete();
    SignalLog log(&model);
    const QPointer<TreeItem> before(node(model, 0));
    load("c.json", R"({"path": "applications/a.desktop", "title": "Second"})");
    QCOMPARE(log.take(), changed({0}));
    QCOMPARE(node(model, 0), before);
    QCOMPARE(before->title(), text("Second"));
    World::setMasked({text("applications/a.desktop")});
    QStringList announced;
    QTRY_COMPARE(announced += log.take(), changed({0}));
    QCOMPARE(node(model, 0), before);
    QCOMPARE(before->title(), text("!!a.desktop"));
}

void ApplicationSectionsTest::isReplacedByAnEqualOne()
{
    const QByteArray page = R"({"path": "applications/a.desktop", "title": "Page"})";
    load("a.json", page);
    Model model;
    model.componentComplete();
    SignalLog log(&model);
    const QPointer<TreeItem> before(node(model, 0));
    PluginRegistry::instance()->removeEntriesForFile(text("a.json"));
    QVERIFY(!before);
    QCOMPARE(log.take(), s_none); // before the registry announces it
    PluginRegistry::instance()->addEntriesForFile(text("a.json"));
    load("other.json", R"({"path": "other"})");
    QCOMPARE(log.take(), changed({0}));
    QCOMPARE(node(model, 0)->title(), text("Page"));
}

void ApplicationSectionsTest::launcherEntryIsGone()
{
    load("a.json", R"({"path": "applications/a.desktop"})");
    auto launcher = std::make_unique<LauncherFolderModel>();
    Model model;
    model.setApplications(launcher.get());
    model.componentComplete();
    launcher.reset();
    SignalLog log(&model);
    load("b.json", R"({"path": "applications/b.desktop"})");
    QCOMPARE(log.take(), s_none);
    QVERIFY(section(model, 0).isValid());
    unload({"a.json"});
    QCOMPARE(log.take(), changed({0}));
    QVERIFY(!section(model, 0).isValid());
}

void ApplicationSectionsTest::dueRebuildIsNotPutOff()
{
    Model model;
    model.componentComplete();
    QSignalSpy reset(&model, &Model::modelReset);
    int batches = 0;
    QTimer registry; // changes more often than the delay of a rebuild
    connect(&registry, &QTimer::timeout, this,
            [&batches] { load(qPrintable(text("%1.json").arg(++batches)), R"({"path": "other"})"); });
    registry.start(300);
    m_applications->write("first/d.desktop", application("D"));
    QTRY_COMPARE(model.count(), 4);
    const int soFar = batches;
    QTRY_VERIFY(batches >= soFar + 5);
    QCOMPARE(reset.count(), 1);
}

void ApplicationSectionsTest::handlerMayDoAnything_data()
{
    QTest::addColumn<int>("act");
    QTest::addColumn<QStringList>("rows");
    QTest::newRow("reset the model") << 0 << QStringList(text("0"));
    QTest::newRow("take the launcher away") << 1 << QStringList(text("0"));
    QTest::newRow("change the registry") << 2 << QStringList{text("0"), text("0"), text("2"), text("2")};
    QTest::newRow("delete the model") << 3 << QStringList(text("0"));
}

void ApplicationSectionsTest::handlerMayDoAnything()
{
    QFETCH(int, act);
    QPointer<Model> model(new Model);
    model->componentComplete();
    const std::function<void()> acts[] = {
        [&] { model->setFilterMode(7); },
        [&] { model->setApplications(nullptr); },
        [&] { unload({"a.json"}); },
        [&] { delete model; },
    };
    QStringList rows;
    connect(model, &Model::dataChanged, this, [&](const QModelIndex &first) {
        rows.append(QString::number(first.row()));
        if (rows.size() == 1) {
            acts[act]();
        }
    });
    load("a.json", R"({"path": "applications/a.desktop"}, {"path": "applications/c.desktop"})");
    QTEST(rows, "rows");
    delete model;
}

void ApplicationSectionsTest::registryMayChangeInAReset()
{
    Model model;
    model.componentComplete();
    SignalLog log(&model);
    connect(&model, &Model::countChanged, this, [] { load("a.json", R"({"path": "applications/a.desktop"})"); });
    model.setFilterMode(7);
    QCOMPARE(log.take(), (QStringList{text("filterModeChanged"), text("modelAboutToBeReset"), text("countChanged"),
                                      text("modelReset")}));
    QVERIFY(section(model, 0).isValid());
}

QTEST_GUILESS_MAIN(ApplicationSectionsTest)
#include "tst_applicationsections.moc"
