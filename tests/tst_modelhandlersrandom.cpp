// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications.h"
#include "applications/applicationssettingsmodel.h"
#include "messagelog.h"
#include "modelreplica.h"
#include "models/favoritesmodel.h"
#include "models/settingsmodel.h"
#include "registry/pluginregistry.h"
#include "registry/treeitem.h"
#include "text.h"
#include "watchedfavorites.h"
#include "world.h"

#include <launcherfoldermodel.h>

#include <QAbstractItemModelTester>
#include <QMetaMethod>
#include <QRandomGenerator>
#include <QScopedValueRollback>
#include <QTest>

#include <functional>

// A handler of each signal of a model changes the model, or deletes entries, at random.
class ModelHandlersRandomTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void settingsModel();
    void favoritesModel();
    void applicationsSettingsModel();

private:
    using Change = std::function<void()>;
    using Rows = std::function<QStringList()>;

    Q_INVOKABLE void react();

    void changeAtRandom(QAbstractItemModel *model, int role, const QVector<Change> &changes, const Rows &wanted);
    void declareAtRandom();
    void removeAtRandom();
    template<typename Value>
    Value oneOf(const QVector<Value> &values)
    {
        return values.at(m_random.bounded(values.size()));
    }

    QRandomGenerator m_random;
    QVector<Change> m_changes;
    int m_depth = 0; ///< handlers in the middle of handlers
    int m_reactions = 0;
    bool m_isInBatch = false; ///< handlers must not change the tree
};

namespace
{
constexpr int Steps = 1000;
constexpr int MaxDepth = 3;
constexpr int MaxReactions = 20; ///< of a step, which ends therefore

/// The rows, sorted: those of favourites stay where they are.
QStringList sortedRows(const QAbstractItemModel &model, int role)
{
    QStringList rows;
    for (int row = 0; row < model.rowCount(); ++row) {
        const QVariant value = model.index(row, 0).data(role);
        const TreeItem *item = qobject_cast<TreeItem *>(value.value<QObject *>());
        rows.append(item ? item->location().join(QLatin1Char('/')) : value.toString());
    }
    rows.sort();
    return rows;
}
}

void ModelHandlersRandomTest::initTestCase()
{
    m_random.seed(20261122);
}

void ModelHandlersRandomTest::init()
{
    World::reset();
    World::rescan(PluginRegistry::instance());
    storeFavorites({});
    storeUserModified(false);
}

void ModelHandlersRandomTest::react()
{
    if (m_depth < MaxDepth && m_reactions < MaxReactions && m_random.bounded(2)) {
        const QScopedValueRollback<int> depth(m_depth, m_depth + 1);
        ++m_reactions;
        oneOf(m_changes)();
    }
}

/// Changes @p model in each step and in handlers of its signals. Then its rows have to be the @p wanted ones.
void ModelHandlersRandomTest::changeAtRandom(QAbstractItemModel *model, int role, const QVector<Change> &changes,
                                             const Rows &wanted)
{
    const MessageLog log; // of paths that do not exist, and of services
    m_changes = changes + QVector<Change>{[this] { removeAtRandom(); }};
    FlatProxy flat;
    flat.setSourceModel(model);
    const QAbstractItemModelTester tester(&flat, QAbstractItemModelTester::FailureReportingMode::QtTest);
    const ModelReplica replica(model, role);
    int resets = 0; // at the same time
    int mostResets = 0;
    connect(model, &QAbstractItemModel::modelAboutToBeReset, &flat,
            [&] { mostResets = qMax(mostResets, ++resets); });
    connect(model, &QAbstractItemModel::modelReset, &flat, [&] { --resets; });
    const QMetaMethod handler = metaObject()->method(metaObject()->indexOfMethod("react()"));
    const QMetaObject &meta = *model->metaObject();
    for (int i = QAbstractItemModel::staticMetaObject.methodOffset(); i < meta.methodCount(); ++i) {
        if (meta.method(i).methodType() == QMetaMethod::Signal) {
            connect(model, meta.method(i), this, handler);
        }
    }
    int reactions = 0;
    for (int step = 0; step < Steps; ++step) {
        m_reactions = 0;
        if (m_random.bounded(3) == 0) {
            declareAtRandom();
        } else {
            oneOf(m_changes)();
        }
        QCoreApplication::processEvents();
        reactions += m_reactions;
        QVERIFY2(replica.isEqual(), qPrintable(QString::number(step)));
        QCOMPARE(sortedRows(*model, role), wanted());
    }
    QCOMPARE(mostResets, 1);
    QVERIFY(reactions > Steps);
}

void ModelHandlersRandomTest::declareAtRandom()
{
    const QScopedValueRollback<bool> inBatch(m_isInBatch, true);
    QStringList paths;
    for (int i = m_random.bounded(8); i >= 0; --i) {
        const QString child = text("page/%1").arg(m_random.bounded(6));
        paths.append(oneOf<QString>(
            {text("page"), child, child + text("/x"), child + text("/y"), text("applications/a.desktop")}));
    }
    declareSections(paths);
}

void ModelHandlersRandomTest::removeAtRandom()
{
    if (!m_isInBatch) {
        removeNode(oneOf<QStringList>(
            {path("page"), path("page/0"), path("page/1"), path("page/2/x"), path("applications/a.desktop")}));
    }
}

void ModelHandlersRandomTest::settingsModel()
{
    SettingsModel model;
    const auto changePath = [&] {
        model.setPath(oneOf<QStringList>({{}, path("page"), path("page/1"), path("missing")}));
    };
    changeAtRandom(&model, SettingsModel::ObjectRole, {changePath, [&] { model.setDepth(m_random.bounded(4)); }},
                   [&model] {
                       SettingsModel same;
                       same.setPath(model.path());
                       same.setDepth(model.depth());
                       return sortedRows(same, SettingsModel::ObjectRole);
                   });
}

void ModelHandlersRandomTest::favoritesModel()
{
    FavoritesModel model;
    model.setFilter({text("grid_favorites")});
    model.setUserModifiedKey(WatchedFavorites::userModifiedKeyOfTests());
    model.componentComplete();
    const auto favorite = [this] { return text("page/%1").arg(m_random.bounded(6)); };
    const QVector<Change> changes{
        [&] { model.addFavorite(favorite()); },
        [&] { model.removeFavorite(favorite()); },
        [&] { model.move(m_random.bounded(4), m_random.bounded(4)); },
        [&] {
            storeFavorites(QStringList{favorite(), favorite(), favorite()});
        },
        [&] { storeUserModified(m_random.bounded(2)); },
        [&] { model.setShowPotential(m_random.bounded(2)); },
        [&] { model.setFilter(m_random.bounded(4) ? path("grid_favorites") : QStringList()); },
        [&] { model.setPath(m_random.bounded(4) ? QStringList() : path("page")); },
        [&] { model.setKey(m_random.bounded(3) ? WatchedFavorites::keyOfTests() : text("/test/other")); },
        [&] {
            model.setUserModifiedKey(m_random.bounded(2) ? WatchedFavorites::userModifiedKeyOfTests() : QString());
        },
    };
    changeAtRandom(&model, FavoritesModel::ObjectRole, changes, [&model] {
        FavoritesModel same;
        same.setFilter(model.filter());
        same.setPath(model.path());
        same.setKey(model.key());
        same.setShowPotential(model.showPotential());
        same.componentComplete();
        return sortedRows(same, FavoritesModel::ObjectRole);
    });
}

void ModelHandlersRandomTest::applicationsSettingsModel()
{
    const Applications applications;
    applications.write("first/a.desktop", application("A", "X-DBus-ServiceName=com.example.a\n"));
    applications.write("first/b.desktop", application("B"));
    LauncherFolderModel launcher;
    declareSections({text("applications")});
    ApplicationsSettingsModel model;
    model.setUid(1000);
    model.componentComplete();
    const auto changeLauncher = [&] { model.setApplications(m_random.bounded(3) ? &launcher : nullptr); };
    const QVector<Change> changes{
        changeLauncher,
        [&] { model.setFilterMode(m_random.bounded(3) - 1); },
        [&] { model.setUid(m_random.bounded(2)); },
        [&] { model.toggleSelectedApp(text("a.desktop")); },
        [&] { model.selectAllApps(); },
        [&] { model.clearSelectedApps(); },
        [&] { model.getAllowedNotificationsConfig(); },
        [&] { model.setNotificationsEnabled(text("com.example.a"), m_random.bounded(2)); },
        [&] { QMetaObject::invokeMethod(&model, "launcherModelReset"); },
    };
    changeAtRandom(&model, ApplicationsSettingsModel::NameRole, changes, [&model, &launcher] {
        ApplicationsSettingsModel same;
        if (model.applications()) {
            same.setApplications(&launcher);
            same.componentComplete();
        }
        return sortedRows(same, ApplicationsSettingsModel::NameRole);
    });
}

QTEST_GUILESS_MAIN(ModelHandlersRandomTest)
#include "tst_modelhandlersrandom.moc"
