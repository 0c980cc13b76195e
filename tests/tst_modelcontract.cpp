// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications.h"
#include "applications/applicationssettingsmodel.h"
#include "messagelog.h"
#include "modelreplica.h"
#include "models/favoritesmodel.h"
#include "models/settingsmodel.h"
#include "models/userapplicationsfiltermodel.h"
#include "registry/pluginregistry.h"
#include "registry/treeitem.h"
#include "toolkit/stablelistmodel.h"
#include "world.h"

#include <QAbstractItemModelTester>
#include <QMetaMethod>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <memory>

using Model = std::unique_ptr<QAbstractItemModel>;
using MakeModel = std::function<Model()>;
Q_DECLARE_METATYPE(MakeModel)

// Rules for every list model of the library. A new model is added to models().
class ModelContractTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void followsTheRegistry_data();
    void followsTheRegistry();
    void readsNothingOutsideItsRows_data();
    void readsNothingOutsideItsRows();

private:
    void models();
};

namespace
{
Model makeSettingsModel(const QStringList &path, int depth)
{
    auto model = std::make_unique<SettingsModel>();
    model->setPath(path);
    model->setDepth(depth);
    return model;
}

Model makeStableListModel()
{
    auto model = std::make_unique<StableListModel>();
    QAbstractItemModel *source = makeSettingsModel({QStringLiteral("page")}, 1).release();
    source->setParent(model.get());
    model->setSourceModel(source);
    return model;
}

Model makeFavoritesModel()
{
    auto model = std::make_unique<FavoritesModel>();
    model->setFilter({QStringLiteral("grid_favorites")});
    model->setShowPotential(true);
    const MessageLog log; // the path may be declared later
    model->setPath({QStringLiteral("page")});
    model->componentComplete();
    return model;
}

Model makeApplicationsModel()
{
    auto model = std::make_unique<ApplicationsSettingsModel>();
    model->componentComplete();
    return model;
}

/// Both applications are allowed.
Model makeFilterModel()
{
    auto filter = std::make_unique<UserApplicationsFilterModel>();
    auto *source = new ApplicationsSettingsModel(filter.get());
    source->setUid(1000);
    source->componentComplete();
    source->setFilterMode(ApplicationsSettingsModel::AllowedOnly);
    source->selectAllApps();
    filter->setSourceModel(source);
    return filter;
}

void declareEntries(const QString &file, const QStringList &paths)
{
    QByteArray entries;
    for (const QString &path : paths) {
        entries += "{\"path\": \"" + path.toUtf8() + "\"},";
    }
    entries.chop(1);
    World::writeEntries(file, "{\"entries\": [" + entries + "]}");
}
}

void ModelContractTest::models()
{
    QTest::addColumn<MakeModel>("make");
    QTest::addColumn<QVariant>("unknownRole"); // the value of an unknown role
    QTest::newRow("SettingsModel, children")
        << MakeModel([] { return makeSettingsModel({QStringLiteral("page")}, 1); }) << QVariant();
    QTest::newRow("SettingsModel, grandchildren")
        << MakeModel([] { return makeSettingsModel({}, 2); }) << QVariant();
    QTest::newRow("StableListModel") << MakeModel(makeStableListModel) << QVariant();
    QTest::newRow("FavoritesModel, potential") << MakeModel(makeFavoritesModel) << QVariant(0);
}

void ModelContractTest::init()
{
    World::reset();
    World::rescan(PluginRegistry::instance());
}

void ModelContractTest::followsTheRegistry_data()
{
    models();
}

void ModelContractTest::followsTheRegistry()
{
    QFETCH(MakeModel, make);
    const Model model = make();
    FlatProxy flat;
    flat.setSourceModel(model.get());
    const QAbstractItemModelTester tester(&flat, QAbstractItemModelTester::FailureReportingMode::QtTest);
    const ModelReplica replica(model.get(), Qt::UserRole + 1);
    QCOMPARE(model->rowCount(), 0);

    declareEntries(QStringLiteral("one.json"), {QStringLiteral("page/one")});
    World::rescan(PluginRegistry::instance());
    QCOMPARE(model->rowCount(), 1);
    QVERIFY(replica.isEqual());

    QRandomGenerator random(5);
    for (int step = 0; step < 200; ++step) {
        const QString file = QString::number(random.bounded(8)) + QStringLiteral(".json");
        if (random.bounded(2)) {
            declareEntries(file, {QStringLiteral("page/%1").arg(random.bounded(12)),
                                  QStringLiteral("page/%1/below").arg(random.bounded(12)),
                                  QStringLiteral("%1/beside").arg(random.bounded(4))});
        } else {
            World::removeEntries(file);
        }
        World::rescan(PluginRegistry::instance());
        QVERIFY(replica.isEqual());
        // Only one node is deleted.
        TreeItem *item = PluginRegistry::instance()->getItem(
            {QStringLiteral("page"), QString::number(random.bounded(12))});
        if (item) {
            item->parentItem()->removeChild(item);
            QVERIFY(replica.isEqual());
        }
    }
}

void ModelContractTest::readsNothingOutsideItsRows_data()
{
    models();
    QTest::newRow("ApplicationsSettingsModel") << MakeModel(makeApplicationsModel) << QVariant();
    QTest::newRow("UserApplicationsFilterModel") << MakeModel(makeFilterModel) << QVariant();
}

void ModelContractTest::readsNothingOutsideItsRows()
{
    QFETCH(MakeModel, make);
    const Applications applications;
    applications.write("first/a.desktop", application("A"));
    applications.write("first/b.desktop", application("B"));
    declareEntries(QStringLiteral("x.json"),
                   {QStringLiteral("page/a"), QStringLiteral("page/b"), QStringLiteral("applications")});
    World::rescan(PluginRegistry::instance());
    const Model model = make();
    QCOMPARE(model->rowCount(), 2);
    FlatProxy flat;
    flat.setSourceModel(model.get());
    const QAbstractItemModelTester tester(&flat, QAbstractItemModelTester::FailureReportingMode::QtTest);
    for (const int row : {-1, 2, 3, 1000000}) {
        for (const int role : model->roleNames().keys()) {
            QVERIFY(!model->data(model->index(row, 0), role).isValid());
        }
    }
    QFETCH(QVariant, unknownRole);
    for (const int role : {0, 256, 100000, -1}) {
        QCOMPARE(model->data(model->index(0, 0), role), unknownRole);
        QCOMPARE(model->data(model->index(0, 0), role).userType(), unknownRole.userType());
    }
}

QTEST_GUILESS_MAIN(ModelContractTest)
#include "tst_modelcontract.moc"
