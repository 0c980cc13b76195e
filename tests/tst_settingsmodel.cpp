// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "models/settingsmodel.h"

#include "common/messages.h"
#include "growth.h"
#include "messagelog.h"
#include "registry/pluginregistry.h"
#include "registry/treeitem.h"
#include "settingsrows.h"
#include "text.h"
#include "world.h"

#include <QPointer>
#include <QQmlEngine>
#include <QSignalSpy>
#include <QTest>

namespace
{
QVariant column(const SettingsModel &model, int role)
{
    QVariantList values;
    for (int row = 0; row < model.rowCount(); ++row) {
        values.append(value(model, row, role));
    }
    return values;
}

bool isKeptFromQml(QObject *object)
{
    return QQmlEngine::objectOwnership(object) == QQmlEngine::CppOwnership;
}
}

class SettingsModelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void roleNames();
    void startsEmpty();
    void listsChildren();
    void listsGrandchildrenByParent();
    void emptyForDepthsWithoutRows_data();
    void emptyForDepthsWithoutRows();
    void sortsByOrderThenName();
    void sameValuesAreSilent();
    void changeIsOneReset();
    void unknownPathIsEmptyAndSilent();
    void rowCountIgnoresParent();
    void categoryIsTitleOfParent();
    void depthRole();
    void objectAt();
    void objectForPath();
    void objectForPathWithoutTree();
    void objectsSurviveTheGarbageCollector();
    void emptyPageEmitsCountChanged();
    void deepChain();

private:
    void declare(const QByteArray &entries);
    void rescan()
    {
        World::rescan(m_registry);
    }

    PluginRegistry *m_registry = nullptr;
};

void SettingsModelTest::init()
{
    World::reset();
    m_registry = PluginRegistry::instance();
    rescan();
}

void SettingsModelTest::declare(const QByteArray &entries)
{
    World::writeEntries(text("x.json"), "{\"entries\": [" + entries + "]}");
    rescan();
}

void SettingsModelTest::roleNames()
{
    const QHash<int, QByteArray> expected{{257, "object"}, {258, "depth"}, {259, "category"}};
    QCOMPARE(SettingsModel().roleNames(), expected);
}

void SettingsModelTest::startsEmpty()
{
    declare(R"({"path": "a/b"})");
    SettingsModel model;
    QCOMPARE(model.path(), QStringList());
    QCOMPARE(model.depth(), 0);
    QCOMPARE(model.count(), 0);
    model.setPath(path("a"));
    QCOMPARE(model.count(), 0);
}

void SettingsModelTest::listsChildren()
{
    declare(R"({"path": "a/b"}, {"path": "a/c/d"}, {"path": "e"})");
    SettingsModel model;
    model.setDepth(1);
    QCOMPARE(names(model), path("a/e"));
    model.setPath(path("a"));
    QCOMPARE(names(model), path("b/c"));
    QCOMPARE(model.count(), 2);
}

void SettingsModelTest::listsGrandchildrenByParent()
{
    declare(R"({"path": "late", "order": 2}, {"path": "late/x", "order": 1}, {"path": "early", "order": 1},
               {"path": "early/y", "order": 9}, {"path": "early/z", "order": 8}, {"path": "early/z/below"},
               {"path": "leaf", "order": 0})");
    SettingsModel model;
    model.setDepth(2);
    QCOMPARE(names(model), path("z/y/x"));
}

void SettingsModelTest::emptyForDepthsWithoutRows_data()
{
    QTest::addColumn<int>("depth");
    for (const int depth : {0, -1, -1000, 3, 1000000}) {
        QTest::newRow(qPrintable(QString::number(depth))) << depth;
    }
}

void SettingsModelTest::emptyForDepthsWithoutRows()
{
    QFETCH(int, depth);
    declare(R"({"path": "a/b"})");
    SettingsModel model;
    model.setDepth(1);
    model.setDepth(depth);
    QCOMPARE(names(model), QStringList());
}

void SettingsModelTest::sortsByOrderThenName()
{
    declare(
        R"({"path": "c"}, {"path": "b", "order": null}, {"path": "a", "order": 101}, {"path": "d", "order": 99},
               {"path": "e", "order": 100}, {"path": "f", "order": -5})");
    SettingsModel model;
    model.setDepth(1);
    QCOMPARE(names(model), path("f/d/b/c/e/a"));
}

void SettingsModelTest::sameValuesAreSilent()
{
    declare(R"({"path": "a/b"})");
    SettingsModel model;
    model.setPath(path("a"));
    model.setDepth(1);
    QSignalSpy changes(&model, &SettingsModel::modelChanged);
    QSignalSpy counts(&model, &SettingsModel::countChanged);
    QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
    model.setPath(path("a"));
    model.setDepth(1);
    QCOMPARE(changes.count() + counts.count() + resets.count(), 0);
}

void SettingsModelTest::changeIsOneReset()
{
    declare(R"({"path": "a"})");
    SettingsModel model;
    QStringList events;
    connect(&model, &SettingsModel::modelChanged, this, [&] { events.append(text("modelChanged")); });
    connect(&model, &QAbstractItemModel::modelAboutToBeReset, this, [&] { events.append(text("about")); });
    connect(&model, &QAbstractItemModel::modelReset, this, [&] { events.append(text("reset")); });
    connect(&model, &SettingsModel::countChanged, this, [&] { events.append(text("countChanged")); });
    model.setDepth(1);
    QCOMPARE(events, path("about/reset/countChanged/modelChanged"));
}

void SettingsModelTest::unknownPathIsEmptyAndSilent()
{
    SettingsModel model;
    const MessageLog log;
    model.setDepth(1);
    model.setPath(path("nowhere"));
    QCOMPARE(model.count(), 0);
    QCOMPARE(log.take(), QStringList());
    declare(R"({"path": "nowhere/a"})");
    QCOMPARE(names(model), path("a"));
}

void SettingsModelTest::rowCountIgnoresParent()
{
    declare(R"({"path": "a"}, {"path": "b"})");
    SettingsModel model;
    model.setDepth(1);
    QCOMPARE(model.rowCount(model.index(0)), 2);
}

void SettingsModelTest::categoryIsTitleOfParent()
{
    declare(R"({"path": "a", "title": "Alpha"}, {"path": "a/b"}, {"path": "c/d"})");
    SettingsModel model;
    model.setDepth(2);
    QCOMPARE(column(model, SettingsModel::CategoryRole), QVariant(QVariantList{text("Alpha"), text("!!c")}));
    model.setDepth(1);
    QCOMPARE(column(model, SettingsModel::CategoryRole), QVariant(QVariantList{text("!!"), text("!!")}));
}

void SettingsModelTest::depthRole()
{
    declare(R"({"path": "a/b/c"})");
    SettingsModel model;
    for (const int depth : {1, 2, 3}) {
        model.setDepth(depth);
        QCOMPARE(column(model, SettingsModel::DepthRole), QVariant(QVariantList{depth}));
    }
    model.setPath(path("a"));
    model.setDepth(2);
    QCOMPARE(column(model, SettingsModel::DepthRole), QVariant(QVariantList{2}));
}

void SettingsModelTest::objectAt()
{
    declare(R"({"path": "a"}, {"path": "b"})");
    SettingsModel model;
    QCOMPARE(model.objectAt(0), nullptr);
    model.setDepth(1);
    QCOMPARE(model.objectAt(1), m_registry->getItem(path("b")));
    QVERIFY(isKeptFromQml(model.objectAt(1)));
    for (const int index : {-1, 2, 3, INT_MAX, INT_MIN}) {
        QCOMPARE(model.objectAt(index), nullptr);
    }
}

void SettingsModelTest::objectForPath()
{
    declare(R"({"path": "a/b/c"})");
    SettingsModel model;
    model.setPath(path("a"));
    QCOMPARE(model.objectForPath(text("b/c")), m_registry->getItem(path("a/b/c")));
    QVERIFY(isKeptFromQml(model.objectForPath(text("b"))));
    // Unlike in a registration file, empty names count.
    for (const char *other : {"b//c", "/b", "b/", "", "c", "a/b", "B"}) {
        QCOMPARE(model.objectForPath(text(other)), nullptr);
    }
    m_registry->getItem(path("a"))->insertItem({text("b"), QString(), text("deep")}, {});
    QCOMPARE(model.objectForPath(text("b//deep"))->property("name").toString(), text("deep"));
}

void SettingsModelTest::objectForPathWithoutTree()
{
    SettingsModel model;
    const MessageLog log;
    QCOMPARE(model.objectForPath(text("a")), nullptr);
    model.setPath(path("nowhere"));
    QCOMPARE(model.objectForPath(text("a")), nullptr);
    const QString message = text("warning org.orvantaos.settings.framework: "
                                 "Cannot resolve object for a path without valid tree");
    QCOMPARE(log.take(), (QStringList{message, message}));
}

void SettingsModelTest::objectsSurviveTheGarbageCollector()
{
    declare(R"({"path": "a"}, {"path": "b"}, {"path": "c"})");
    SettingsModel model;
    model.setDepth(1);
    QQmlEngine engine;
    QQmlEngine::setObjectOwnership(&model, QQmlEngine::CppOwnership);
    engine.globalObject().setProperty(text("model"), engine.newQObject(&model));
    const QPointer<TreeItem> a = m_registry->getItem(path("a"));
    const QPointer<TreeItem> b = m_registry->getItem(path("b"));
    const QPointer<TreeItem> c = m_registry->getItem(path("c"));
    QCOMPARE(engine
                 .evaluate(text("model.objectAt(0).name + model.objectForPath('b').name"
                                " + model.data(model.index(2, 0), 257).name"))
                 .toString(),
             text("abc"));
    engine.collectGarbage();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(a && b && c);
}

void SettingsModelTest::emptyPageEmitsCountChanged()
{
    SettingsModel model;
    QSignalSpy counts(&model, &SettingsModel::countChanged);
    model.setPath(path("nowhere"));
    QCOMPARE(counts.count(), 1);
}

void SettingsModelTest::deepChain()
{
    const int length = 100000;
    QByteArray chain;
    for (int i = 0; i < length; ++i) {
        chain += "n/";
    }
    declare("{\"path\": \"" + chain + "\"}");
    SettingsModel model;
    CpuTimer timer;
    timer.start();
    model.setDepth(1);
    model.setDepth(length);
    QCOMPARE(model.count(), 1);
    QCOMPARE(value(model, 0, SettingsModel::DepthRole), QVariant(length));
    model.setDepth(-1);
    QCOMPARE(model.count(), 0);
    // Counting the steps to the root for each node would take half of 10^10 steps.
    QVERIFY2(timer.nsecsElapsed() < 10'000'000'000, qPrintable(QString::number(timer.nsecsElapsed())));
}

QTEST_GUILESS_MAIN(SettingsModelTest)
#include "tst_settingsmodel.moc"
