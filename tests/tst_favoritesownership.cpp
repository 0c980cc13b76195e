// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "actions/quickactionreader.h"
#include "models/favoritesmodel.h"
#include "registry/pluginregistry.h"
#include "text.h"
#include "world.h"

#include <mgconfitem.h>

#include <QFileSystemWatcher>
#include <QPointer>
#include <QTest>
#include <QTimer>

namespace
{
/// Returns the keys of the items that are direct children of @p owner.
QStringList keys(const QObject &owner)
{
    QStringList keys;
    for (const MGConfItem *item : owner.findChildren<MGConfItem *>(QString(), Qt::FindDirectChildrenOnly)) {
        keys.append(item->key());
    }
    keys.sort();
    return keys;
}

template<typename Child>
int countOf(const QObject &owner)
{
    return owner.findChildren<Child *>(QString(), Qt::FindDirectChildrenOnly).size();
}
}

// Owned objects are direct children of their owner, even if a helper class manages them.
class FavoritesOwnershipTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void items();
    void itemOfAnEditThatChangesTheKey();
    void actionReader();
    void registry();
};

void FavoritesOwnershipTest::init()
{
    World::reset();
    World::writeEntries(text("x.json"), R"({"entries": [{"path": "a"}, {"path": "run", "type": "action"}]})");
    World::rescan(PluginRegistry::instance());
    MGConfItem(text("/test/favorites")).set(path("a/run"));
    MGConfItem(text("/test/modified")).set(false);
}

void FavoritesOwnershipTest::items()
{
    FavoritesModel model;
    QCOMPARE(keys(model), QStringList());
    model.setKey(text("/test/favorites"));
    QCOMPARE(keys(model), QStringList());
    model.setUserModifiedKey(text("/test/modified"));
    QCOMPARE(keys(model), QStringList{text("/test/modified")});
    model.componentComplete();
    QCOMPARE(keys(model), (QStringList{text("/test/favorites"), text("/test/modified")}));
    model.setKey(text("/test/other"));
    QCOMPARE(keys(model), (QStringList{text("/test/modified"), text("/test/other")}));
    model.setUserModifiedKey({});
    QCOMPARE(keys(model), QStringList{text("/test/other")});
    model.addFavorite(text("a"));
    model.setShowPotential(true);
    QCOMPARE(keys(model), QStringList{text("/test/other")});
}

void FavoritesOwnershipTest::itemOfAnEditThatChangesTheKey()
{
    FavoritesModel model;
    model.setFilter({text("grid_favorites")});
    model.setKey(text("/test/favorites"));
    model.setUserModifiedKey(text("/test/modified"));
    model.componentComplete();
    connect(&model, &FavoritesModel::userModifiedChanged, this, [&model] { model.setKey(text("/test/other")); });
    model.removeFavorite(text("a"));
    QCOMPARE(keys(model), (QStringList{text("/test/modified"), text("/test/other")}));
}

void FavoritesOwnershipTest::actionReader()
{
    FavoritesModel model;
    model.setFilter({text("action")});
    model.setKey(text("/test/favorites"));
    model.componentComplete();
    QCOMPARE(countOf<QuickActionReader>(model), 0);
    QCOMPARE(model.count(), 1);
    QVERIFY(model.data(model.index(0), FavoritesModel::RemoteActionRole).isValid());
    QCOMPARE(countOf<QuickActionReader>(model), 1);
    model.triggerAction(0);
    QCOMPARE(countOf<QuickActionReader>(model), 1);
}

void FavoritesOwnershipTest::registry()
{
    const PluginRegistry registry;
    QCOMPARE(keys(registry), QStringList{text("/apps/velka-settings/maskedSettings")});
    QCOMPARE(countOf<QFileSystemWatcher>(registry), 1);
    const QList<QTimer *> timers = registry.findChildren<QTimer *>(QString(), Qt::FindDirectChildrenOnly);
    QCOMPARE(timers.size(), 1);
    QVERIFY(timers.constFirst()->isSingleShot());
    QCOMPARE(timers.constFirst()->interval(), 2000);
}

QTEST_GUILESS_MAIN(FavoritesOwnershipTest)
#include "tst_favoritesownership.moc"
