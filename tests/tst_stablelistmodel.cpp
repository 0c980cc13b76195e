// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "common/messages.h"
#include "models/settingsmodel.h"
#include "registry/pluginregistry.h"
#include "registry/treeitem.h"
#include "stablelist.h"
#include "text.h"
#include "world.h"

#include <QConcatenateTablesProxyModel>
#include <QIdentityProxyModel>
#include <QPointer>
#include <QSet>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>

namespace
{
using Rows = ListSource::Rows;

using Connect = std::function<void(StableListModel *, const std::function<void()> &)>;

template<typename Signal>
Connect connectTo(Signal signal)
{
    return [signal](StableListModel *model, const std::function<void()> &handler) {
        QObject::connect(model, signal, model, handler);
    };
}

using Edit = std::function<void(ListSource *)>;

QStringList steps(const char *steps)
{
    return text(steps).split(text(", "), Qt::SkipEmptyParts);
}
}

Q_DECLARE_METATYPE(Connect)
Q_DECLARE_METATYPE(Edit)

class StableListModelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void resetsAreSteps_data();
    void resetsAreSteps();
    void manyMovesAreAReset();
    void eachRowChangesOnce();
    void forwardsSingleChanges();
    void otherRolesAreAReset();
    void otherSources();
    void otherSourceWhileTheOldOneEnds();
    void ownSourceIsRefused();
    void objectsThatDie();
    void keysOfObjects();
    void nodesWithOtherData();
    void handlerMayChangeTheSource();
    void earlierHandlerMayChangeTheSource_data();
    void earlierHandlerMayChangeTheSource();
    void handlerMayDeleteTheModel_data();
    void handlerMayDeleteTheModel();
};

void StableListModelTest::init()
{
    World::reset();
    World::rescan(PluginRegistry::instance());
}

void StableListModelTest::resetsAreSteps_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<QStringList>("signals");
    QTest::newRow("nothing") << QByteArray("abc") << QByteArray("abc") << QStringList();
    QTest::newRow("one more above") << QByteArray("abc") << QByteArray("xabc")
                                    << steps("rowsInserted 0-0, countChanged");
    QTest::newRow("one less") << QByteArray("abc") << QByteArray("ac") << steps("rowsRemoved 1-1, countChanged");
    QTest::newRow("moved") << QByteArray("abcd") << QByteArray("dabc") << steps("rowsMoved 3-3 to 0");
    QTest::newRow("some of each") << QByteArray("abcde") << QByteArray("xeac")
                                  << steps(
                                         "rowsRemoved 3-3, rowsRemoved 1-1, rowsMoved 2-2 to 0, rowsInserted 0-0, "
                                         "countChanged");
    QTest::newRow("equal keys") << QByteArray("aab") << QByteArray("aaab")
                                << steps("rowsInserted 2-2, countChanged");
}

void StableListModelTest::resetsAreSteps()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    ListSource source;
    source.reset(ListSource::rows(before));
    StableList model(&source);
    source.reset(ListSource::rows(after));
    QTEST(model.takeSignals(), "signals");
    QVERIFY(model.isConsistent());
}

void StableListModelTest::manyMovesAreAReset()
{
    Rows many;
    for (int i = 0; i <= StableListModel::MaxMoves; ++i) {
        many.append({QString::number(i)});
    }
    ListSource source;
    source.reset(many);
    StableList model(&source);
    std::reverse(many.begin(), many.end());
    source.reset(many);
    QVERIFY(model.takeSignals().filter(text("modelReset")).isEmpty());
    QVERIFY(model.isConsistent());
    many.append({text("one more")});
    source.reset(many);
    std::reverse(many.begin(), many.end());
    model.takeSignals();
    source.reset(many);
    QCOMPARE(model.takeSignals().filter(text("modelReset")).size(), 1);
    QVERIFY(model.isConsistent());
}

void StableListModelTest::eachRowChangesOnce()
{
    ListSource source;
    source.reset(ListSource::rows("abcd"));
    StableList model(&source);
    const QSignalSpy changes(model.operator->(), &QAbstractItemModel::dataChanged);
    QObject object;
    Rows other = ListSource::rows("bxda");
    other[0].value = 1;
    other[2].value = 1;
    other[2].object = &object;
    source.reset(other);
    QCOMPARE(changes.count(), 2);
    QCOMPARE(changes.at(0).at(2).value<QVector<int>>(), QVector<int>{ListSource::ValueRole});
    const auto roles = changes.at(1).at(2).value<QVector<int>>();
    QCOMPARE(QSet<int>(roles.cbegin(), roles.cend()), (QSet<int>{ListSource::ValueRole, ListSource::ObjectRole}));
    QVERIFY(model.isConsistent());
}

void StableListModelTest::forwardsSingleChanges()
{
    ListSource source;
    source.reset(ListSource::rows("abc"));
    StableList model(&source);
    source.insert(1, {text("x")});
    QCOMPARE(model.takeSignals(), steps("rowsInserted 1-1, countChanged"));
    source.remove(0);
    QCOMPARE(model.takeSignals(), steps("rowsRemoved 0-0, countChanged"));
    source.move(0, 2);
    QCOMPARE(model.takeSignals(), steps("rowsMoved 0-0 to 3"));
    source.change(1, {text("c"), 5});
    QCOMPARE(model.takeSignals(), steps("dataChanged of roles 1-1"));
    source.change(1, {text("c"), 5});
    QCOMPARE(model.takeSignals(), QStringList());
    source.change(1, {text("another key"), 5});
    QVERIFY(model.isConsistent());
    source.sortByKey();
    QVERIFY(model.isConsistent());
    QVERIFY(model.takeSignals().filter(text("modelReset")).isEmpty());
}

void StableListModelTest::otherRolesAreAReset()
{
    ListSource source;
    source.reset(ListSource::rows("a"));
    StableList model(&source);
    source.m_names.insert(Qt::UserRole, "new");
    source.insert(0, {text("x")});
    QCOMPARE(model.takeSignals(), steps("modelReset, countChanged"));
    QCOMPARE(model->roleNames(), source.m_names);
    model->setKeyRole(text("value"));
    QVERIFY(model.isConsistent());
    QCOMPARE(model->property("keyRole").toString(), text("value"));
}

void StableListModelTest::otherSources()
{
    auto first = std::make_unique<ListSource>();
    ListSource second;
    first->reset(ListSource::rows("ab"));
    second.reset(ListSource::rows("bc"));
    StableList model(first.get());
    const QSignalSpy sources(model.operator->(), &StableListModel::sourceModelChanged);
    model->setSourceModel(&second);
    QVERIFY(model.isConsistent());
    first->reset(ListSource::rows("x")); // it is not followed any more
    QVERIFY(model.isConsistent());
    model->setSourceModel(nullptr);
    QCOMPARE(model->count(), 0);
    model->setSourceModel(first.get());
    QCOMPARE(model->count(), 1);
    first.reset();
    QCOMPARE(model->count(), 0);
    QCOMPARE(model->sourceModel(), nullptr);
    QCOMPARE(sources.count(), 4);
    QVERIFY(model.isConsistent());
}

void StableListModelTest::otherSourceWhileTheOldOneEnds()
{
    auto first = std::make_unique<ListSource>();
    ListSource second;
    first->reset(ListSource::rows("ab"));
    second.reset(ListSource::rows("bc"));
    StableListModel *next = nullptr;
    connect(first.get(), &QObject::destroyed, this, [&] { next->setSourceModel(&second); });
    StableList model(first.get());
    next = model.operator->();
    const QSignalSpy sources(next, &StableListModel::sourceModelChanged);
    first.reset();
    QCOMPARE(model->sourceModel(), &second);
    QCOMPARE(sources.count(), 1);
    QCOMPARE(model.takeSignals(), steps("modelReset, sourceModelChanged"));
    second.insert(0, {text("x")});
    QVERIFY(model.isConsistent());
}

void StableListModelTest::ownSourceIsRefused()
{
    ListSource source;
    source.reset(ListSource::rows("a"));
    StableList model(&source);
    QIdentityProxyModel proxy;
    proxy.setSourceModel(model.operator->());
    StableListModel other;
    other.setSourceModel(&proxy);
    QConcatenateTablesProxyModel tables;
    tables.addSourceModel(&source);
    tables.addSourceModel(&other);
    const QVector<QAbstractItemModel *> ownModels{model.operator->(), &proxy, &other, &tables};
    for (QAbstractItemModel *own : ownModels) {
        QTest::ignoreMessage(QtWarningMsg, Messages::SourceIsOwn);
        model->setSourceModel(own);
        QCOMPARE(model->sourceModel(), &source);
    }
    source.reset(ListSource::rows("ab"));
    QCOMPARE(other.count(), 2);
}

void StableListModelTest::objectsThatDie()
{
    auto object = std::make_unique<QObject>();
    ListSource source;
    source.reset({{text("a"), 0, object.get()}});
    StableList model(&source);
    QCOMPARE(model->data(model->index(0), ListSource::ObjectRole).value<QObject *>(), object.get());
    object.reset();
    QCOMPARE(model->data(model->index(0), ListSource::ObjectRole).value<QObject *>(), nullptr);
    source.reset({{text("a"), 0, nullptr}});
    QVERIFY(model.isConsistent());
}

void StableListModelTest::keysOfObjects()
{
    // Others than entries and applications are what they are, wherever they are.
    QObject a;
    QObject b;
    QObject file;
    file.setProperty("filePath", text("/a.desktop"));
    QObject sameFile;
    sameFile.setProperty("filePath", text("/a.desktop"));
    ListSource source;
    source.reset({{{}, 0, &a}, {{}, 0, &b}, {{}, 0, &file}});
    StableList model(&source, "object");
    source.reset({{{}, 0, &b}, {{}, 0, &sameFile}});
    QCOMPARE(model.takeSignals(), steps("dataChanged of roles 2-2, rowsRemoved 0-0, countChanged"));
    QVERIFY(model.isConsistent());
}

void StableListModelTest::nodesWithOtherData()
{
    PluginRegistry *registry = PluginRegistry::instance();
    TreeItem *node = registry->getItem({})->insertItem(path("page/a"), {{text("title"), text("A")}});
    registry->getItem({})->insertItem(path("page/b"), {{text("title"), text("B")}});
    SettingsModel source;
    source.setPath(path("page"));
    source.setDepth(1);
    StableList model(&source, "object");
    registry->getItem({})->insertItem(path("page/a"), {{text("title"), text("Other")}});
    QCOMPARE(registry->getItem(path("page/a")), node);
    Q_EMIT registry->contentChanged();
    QCOMPARE(model.takeSignals(), steps("dataChanged of roles 0-0"));
    registry->getItem({})->removeItems([](const TreeItem *) { return true; });
    QVERIFY(model.isConsistent());
}

void StableListModelTest::handlerMayChangeTheSource()
{
    ListSource source;
    source.reset(ListSource::rows("abc"));
    StableList model(&source);
    bool isFirst = true;
    connect(model.operator->(), &QAbstractItemModel::rowsRemoved, this, [&] {
        if (std::exchange(isFirst, false)) {
            source.reset(ListSource::rows("zc"));
            source.remove(1);
            source.insert(0, {text("y")});
        }
    });
    source.reset(ListSource::rows("cb"));
    QVERIFY(!isFirst);
    QCOMPARE(model->count(), 2);
    QVERIFY(model.isConsistent());
    // The same with a handler of the source that runs before the model's
    ListSource other;
    bool isThird = true;
    connect(&other, &QAbstractItemModel::rowsInserted, this, [&](const QModelIndex &, int first) {
        if (other.rowCount() == 3 && std::exchange(isThird, false)) {
            other.remove(0);
            other.insert(first, {text("nested")});
        }
    });
    StableList late(&other);
    other.insert(0, {text("a")});
    other.insert(1, {text("b")});
    other.insert(2, {text("c")});
    QVERIFY(late.isConsistent());
}

void StableListModelTest::earlierHandlerMayChangeTheSource_data()
{
    QTest::addColumn<Edit>("edit");
    QTest::newRow("clear") << Edit([](ListSource *source) {
        while (source->rowCount() > 0) {
            source->remove(0);
        }
    });
    QTest::newRow("reset to fewer") << Edit([](ListSource *source) { source->reset(ListSource::rows("c")); });
    QTest::newRow("insert above") << Edit([](ListSource *source) { source->insert(0, {text("x")}); });
    QTest::newRow("remove and insert") << Edit([](ListSource *source) {
        source->remove(0);
        source->insert(2, {text("x")});
    });
    QTest::newRow("insert above and change") << Edit([](ListSource *source) {
        source->insert(0, {text("x")});
        source->change(1, {text("a"), 7});
    });
    QTest::newRow("move") << Edit([](ListSource *source) { source->move(2, 0); });
}

/// The rows that dataChanged names are others when it arrives at the model.
void StableListModelTest::earlierHandlerMayChangeTheSource()
{
    QFETCH(Edit, edit);
    ListSource source;
    source.reset(ListSource::rows("abc"));
    bool isFirst = true;
    connect(&source, &QAbstractItemModel::dataChanged, this, [&] {
        if (std::exchange(isFirst, false)) {
            edit(&source);
        }
    });
    StableList model(&source);
    source.change(2, {text("c"), 5});
    QVERIFY(!isFirst);
    QVERIFY(model.isConsistent());
    source.insert(0, {text("y")});
    source.change(0, {text("y"), 6});
    QVERIFY(model.isConsistent());
}

void StableListModelTest::handlerMayDeleteTheModel_data()
{
    QTest::addColumn<Connect>("connectTo");
    QTest::newRow("rowsRemoved") << connectTo(&QAbstractItemModel::rowsRemoved);
    QTest::newRow("rowsMoved") << connectTo(&QAbstractItemModel::rowsMoved);
    QTest::newRow("rowsInserted") << connectTo(&QAbstractItemModel::rowsInserted);
    QTest::newRow("dataChanged") << connectTo(&QAbstractItemModel::dataChanged);
    QTest::newRow("countChanged") << connectTo(&StableListModel::countChanged);
}

void StableListModelTest::handlerMayDeleteTheModel()
{
    QFETCH(Connect, connectTo);
    ListSource source;
    source.reset(ListSource::rows("abcd"));
    const QPointer<StableListModel> model = new StableListModel;
    model->setKeyRole(text("key"));
    model->setSourceModel(&source);
    connectTo(model, [&model] { delete model; });
    Rows other = ListSource::rows("xyda");
    other[3].value = 1;
    other.append(ListSource::rows("z"));
    source.reset(other);
    QVERIFY(!model);
}

QTEST_GUILESS_MAIN(StableListModelTest)
#include "tst_stablelistmodel.moc"
