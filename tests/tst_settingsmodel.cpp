// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "models/settingsmodel.h"

#include "common/messages.h"
#include "growth.h"
#include "messagelog.h"
#include "registry/pluginregistry.h"
#include "registry/treeitem.h"
#include "text.h"
#include "world.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QQmlEngine>
#include <QSignalSpy>
#include <QTest>

namespace
{
QVariant value(const SettingsModel &model, int row, int role)
{
    return model.data(model.index(row), role);
}

TreeItem *item(const SettingsModel &model, int row)
{
    return qobject_cast<TreeItem *>(value(model, row, SettingsModel::ObjectRole).value<QObject *>());
}

QStringList names(const SettingsModel &model)
{
    QStringList names;
    for (int row = 0; row < model.rowCount(); ++row) {
        names.append(item(model, row) ? item(model, row)->name() : text("(dead)"));
    }
    return names;
}

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
    void followsContent();
    void destroyedRowGoesAlone();
    void rebuildsConnectOnce();
    void forgottenRowIsNotRemoved();
    void readsAreSafeInsideABatch();
    void twoModelsNeverShowADeadNode();
    void slotFindsItsSender();
    void resetBeginsWithTheNewRoot();
    void nodesMayDieWhenTheResetBegins();
    void rootMayDie();
    void pageMayChangeInsideABatch();
    void pageMayChangeBeforeAReset();
    void emptyPageTellsItsCount();
    void manyRowsMayDieAtOnce();
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

void SettingsModelTest::followsContent()
{
    declare(R"({"path": "a"})");
    SettingsModel model;
    model.setDepth(1);
    QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
    QSignalSpy changes(&model, &SettingsModel::modelChanged);
    World::writeEntries(text("1.json"), R"({"entries": [{"path": "b"}]})");
    World::writeEntries(text("2.json"), R"({"entries": [{"path": "c"}]})");
    rescan();
    QCOMPARE(names(model), path("a/b/c"));
    QCOMPARE(resets.count(), 1);
    QCOMPARE(changes.count(), 0);
    World::removeEntries(text("x.json"));
    rescan();
    QCOMPARE(names(model), path("b/c"));
}

void SettingsModelTest::destroyedRowGoesAlone()
{
    declare(R"({"path": "a"}, {"path": "b"}, {"path": "c"})");
    SettingsModel model;
    model.setDepth(1);
    QStringList events;
    connect(&model, &QAbstractItemModel::rowsAboutToBeRemoved, this,
            [&](const QModelIndex &parent, int first, int last) {
                events.append(text("about %1-%2").arg(first).arg(last));
                QVERIFY(!parent.isValid());
            });
    connect(&model, &QAbstractItemModel::rowsRemoved, this, [&](const QModelIndex &, int first, int last) {
        events.append(text("removed %1-%2").arg(first).arg(last));
    });
    connect(&model, &SettingsModel::countChanged, this,
            [&] { events.append(text("count %1").arg(model.count())); });
    QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
    m_registry->getItem({})->removeChild(m_registry->getItem(path("b")));
    QCOMPARE(events, (QStringList{text("about 1-1"), text("removed 1-1"), text("count 2")}));
    QCOMPARE(names(model), path("a/c"));
    QCOMPARE(resets.count(), 0);
}

void SettingsModelTest::rebuildsConnectOnce()
{
    declare(R"({"path": "a"}, {"path": "b"})");
    SettingsModel model;
    for (int i = 0; i < 5; ++i) {
        model.setDepth(i % 2 + 1);
    }
    QCOMPARE(names(model), path("a/b"));
    // Opens what QObject keeps to its heirs.
    struct Access : QObject {
        using QObject::receivers;
    };
    const auto receivers = &Access::receivers;
    QCOMPARE((m_registry->getItem(path("a"))->*receivers)(SIGNAL(destroyed(QObject *))), 1);
    QSignalSpy counts(&model, &SettingsModel::countChanged);
    m_registry->getItem({})->removeChild(m_registry->getItem(path("a")));
    QCOMPARE(counts.count(), 1);
}

void SettingsModelTest::forgottenRowIsNotRemoved()
{
    declare(R"({"path": "a"}, {"path": "page/b"})");
    SettingsModel model;
    model.setDepth(1);
    model.setPath(path("page"));
    QSignalSpy counts(&model, &SettingsModel::countChanged);
    m_registry->getItem({})->removeChild(m_registry->getItem(path("a")));
    QVERIFY(QMetaObject::invokeMethod(&model, "removeDestroyedItem")); // by nobody who died
    QCOMPARE(counts.count(), 0);
    QCOMPARE(names(model), path("b"));
}

void SettingsModelTest::readsAreSafeInsideABatch()
{
    declare(R"({"path": "page/a/x"}, {"path": "page/b/y"}, {"path": "page/c/z"})");
    SettingsModel model;
    model.setPath(path("page"));
    model.setDepth(2);
    int reads = 0;
    const auto readAll = [&] {
        ++reads;
        for (int row = -1; row <= model.rowCount(); ++row) {
            for (const int role : {257, 258, 259}) {
                const QVariant read = value(model, row, role);
                QVERIFY(role != 257 || !read.isValid() || read.value<QObject *>());
            }
            model.objectAt(row);
        }
        for (const char *name : {"a", "a/x", "b", "b/y", "c", "c/z"}) {
            if (QObject *object = model.objectForPath(text(name))) {
                QVERIFY(!object->property("title").toString().isEmpty());
            }
        }
    };
    connect(&model, &QAbstractItemModel::rowsAboutToBeRemoved, this, readAll);
    connect(&model, &QAbstractItemModel::rowsRemoved, this, readAll);
    connect(&model, &SettingsModel::countChanged, this, readAll);
    const MessageLog log; // the page itself goes, too
    World::removeEntries(text("x.json"));
    rescan();
    QVERIFY(reads >= 9);
    QCOMPARE(model.count(), 0);
}

void SettingsModelTest::twoModelsNeverShowADeadNode()
{
    declare(R"({"path": "a"}, {"path": "b"})");
    SettingsModel first;
    first.setDepth(1);
    SettingsModel second;
    second.setDepth(1);
    const TreeItem *dying = m_registry->getItem(path("a"));
    int reads = 0;
    const auto check = [&] {
        for (const SettingsModel *model : {&first, &second}) {
            for (int row = 0; row < model->rowCount(); ++row) {
                ++reads;
                QVERIFY(value(*model, row, SettingsModel::ObjectRole).value<QObject *>() != dying);
                QVERIFY(model->objectAt(row) != dying);
            }
        }
    };
    for (const SettingsModel *model : {&first, &second}) {
        connect(model, &QAbstractItemModel::rowsAboutToBeRemoved, this, check);
        connect(model, &QAbstractItemModel::rowsRemoved, this, check);
    }
    m_registry->getItem({})->removeChild(m_registry->getItem(path("a")));
    QVERIFY(reads > 0);
    QCOMPARE(names(first), path("b"));
    QCOMPARE(names(second), path("b"));
}

void SettingsModelTest::slotFindsItsSender()
{
    declare(R"({"path": "a"}, {"path": "b"})");
    SettingsModel model;
    model.setDepth(1);
    QSignalSpy removals(&model, &QAbstractItemModel::rowsRemoved);
    QSignalSpy counts(&model, &SettingsModel::countChanged);
    TreeItem stranger(text("stranger"), {});
    connect(&stranger, SIGNAL(objectNameChanged(QString)), &model, SLOT(removeDestroyedItem()));
    stranger.setObjectName(text("x"));
    QCOMPARE(removals.count(), 0);
    connect(item(model, 0), SIGNAL(objectNameChanged(QString)), &model, SLOT(removeDestroyedItem()));
    item(model, 0)->setObjectName(text("x"));
    QCOMPARE(names(model), path("b"));
    QCOMPARE(removals.count(), 1);
    QCOMPARE(counts.count(), 1);
}

void SettingsModelTest::resetBeginsWithTheNewRoot()
{
    declare(R"({"path": "one/a"}, {"path": "two/b"})");
    SettingsModel model;
    model.setDepth(1);
    model.setPath(path("one"));
    QStringList seen;
    connect(&model, &QAbstractItemModel::modelAboutToBeReset, this, [&] {
        seen += names(model) + QStringList(model.objectForPath(text("b")) ? text("new root") : text("old root"));
    });
    model.setPath(path("two"));
    QCOMPARE(seen, (QStringList{text("a"), text("new root")}));
    QCOMPARE(names(model), path("b"));
}

void SettingsModelTest::nodesMayDieWhenTheResetBegins()
{
    declare(R"({"path": "one/a"}, {"path": "two/b"}, {"path": "two/c"})");
    SettingsModel model;
    model.setDepth(1);
    model.setPath(path("one"));
    auto *once = new QObject(this);
    connect(&model, &QAbstractItemModel::modelAboutToBeReset, once, [this, once] {
        delete once;
        m_registry->getItem(path("two"))->removeChild(m_registry->getItem(path("two/b")));
    });
    model.setPath(path("two"));
    QCOMPARE(names(model), path("c"));
}

void SettingsModelTest::rootMayDie()
{
    declare(R"({"path": "page/a"})");
    SettingsModel model;
    model.setPath(path("page"));
    model.setDepth(1);
    m_registry->getItem({})->removeChild(m_registry->getItem(path("page")));
    QCOMPARE(model.count(), 0);
    const MessageLog log;
    QCOMPARE(model.objectForPath(text("a")), nullptr);
    QCOMPARE(log.take().size(), 1);
}

void SettingsModelTest::pageMayChangeInsideABatch()
{
    declare(R"({"path": "one/a"}, {"path": "one/b"}, {"path": "one/c"})");
    World::writeEntries(text("other.json"), R"({"entries": [{"path": "two/d"}]})");
    rescan();
    SettingsModel model;
    model.setPath(path("one"));
    model.setDepth(1);
    connect(&model, &SettingsModel::countChanged, this, [&] { model.setPath(path("two")); });
    World::removeEntries(text("x.json"));
    rescan();
    QCOMPARE(names(model), path("d"));
}

void SettingsModelTest::pageMayChangeBeforeAReset()
{
    declare(R"({"path": "one/a"}, {"path": "two/b"})");
    SettingsModel model;
    model.setDepth(1);
    connect(&model, &QAbstractItemModel::modelAboutToBeReset, this, [&] { model.setPath(path("two")); });
    model.setPath(path("one"));
    QCOMPARE(model.path(), path("two"));
    QCOMPARE(names(model), path("b"));
}

void SettingsModelTest::emptyPageTellsItsCount()
{
    SettingsModel model;
    QSignalSpy counts(&model, &SettingsModel::countChanged);
    model.setPath(path("nowhere"));
    QCOMPARE(counts.count(), 1);
}

void SettingsModelTest::manyRowsMayDieAtOnce()
{
    // Finding each dead row from the first one on would take 100 times as long for 10 times the rows.
    const auto work = [this](int count) {
        QByteArray entries;
        for (int i = 0; i < count; ++i) {
            entries += "{\"path\": \"" + QByteArray::number(i) + "\", \"order\": " + QByteArray::number(i % 7)
                       + "},";
        }
        entries.chop(1);
        declare(entries);
        SettingsModel model;
        model.setDepth(1);
        if (model.count() != count) {
            return qint64(-1);
        }
        QSignalSpy removals(&model, &QAbstractItemModel::rowsRemoved);
        CpuTimer timer;
        timer.start();
        World::removeEntries(text("x.json"));
        rescan();
        return removals.count() == count ? timer.nsecsElapsed() : -1;
    };
    QVERIFY(Growth::isLinear(work, 10000));
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
    QElapsedTimer timer;
    timer.start();
    model.setDepth(1);
    model.setDepth(length);
    QCOMPARE(model.count(), 1);
    QCOMPARE(value(model, 0, SettingsModel::DepthRole), QVariant(length));
    model.setDepth(-1);
    QCOMPARE(model.count(), 0);
    // Counting the steps to the root for each node would take half of 10^10 steps.
    QVERIFY2(timer.elapsed() < 10000, qPrintable(QString::number(timer.elapsed())));
}

QTEST_GUILESS_MAIN(SettingsModelTest)
#include "tst_settingsmodel.moc"
