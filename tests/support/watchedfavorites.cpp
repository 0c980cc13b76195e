// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "watchedfavorites.h"

#include "registry/pluginregistry.h"
#include "registry/treeitem.h"
#include "text.h"
#include "world.h"

#include <mgconfitem.h>

namespace
{
constexpr auto TesterMode = QAbstractItemModelTester::FailureReportingMode::QtTest;

FavoritesModel *completed(FavoritesModel *model, const QString &userModifiedKey)
{
    model->setFilter({text("grid_favorites")});
    model->setUserModifiedKey(userModifiedKey);
    model->classBegin();
    model->componentComplete();
    return model;
}

QAbstractItemModel *flattened(FlatProxy *proxy, QAbstractItemModel *model)
{
    proxy->setSourceModel(model);
    return proxy;
}
}

WatchedFavorites::WatchedFavorites(const QString &userModifiedKey)
    : m_tester(flattened(&m_flat, completed(&m_model, userModifiedKey)), TesterMode)
    , m_replica(&m_model, FavoritesModel::ObjectRole)
    , m_log(&m_model)
{
}

QString WatchedFavorites::keyOfTests()
{
    return text("/apps/velka-settings/favorites");
}

QString WatchedFavorites::userModifiedKeyOfTests()
{
    return text("/apps/velka-settings/favoritesModified");
}

FavoritesModel *WatchedFavorites::operator->()
{
    return &m_model;
}

FavoritesModel &WatchedFavorites::operator*()
{
    return m_model;
}

TreeItem *WatchedFavorites::item(int row) const
{
    const QVariant object = m_model.data(m_model.index(row), FavoritesModel::ObjectRole);
    return qobject_cast<TreeItem *>(object.value<QObject *>());
}

QStringList WatchedFavorites::names() const
{
    QStringList names;
    for (int row = 0; row < m_model.rowCount(); ++row) {
        names.append(item(row) ? item(row)->name() : text("(dead)"));
    }
    return names;
}

QStringList WatchedFavorites::takeSignals()
{
    return m_log.take();
}

QStringList WatchedFavorites::wantedNames()
{
    QStringList wanted;
    for (const QString &stored : storedFavorites()) {
        const QStringList path = stored.split(QLatin1Char('/'), Qt::SkipEmptyParts);
        const TreeItem *item = PluginRegistry::instance()->getItem(path);
        if (!path.isEmpty() && item && item->type() == text("section")) {
            wanted.append(item->name());
        }
    }
    return wanted;
}

bool WatchedFavorites::isConsistent() const
{
    QStringList expected = wantedNames();
    QStringList rows = names();
    std::sort(expected.begin(), expected.end());
    std::sort(rows.begin(), rows.end());
    return m_replica.isEqual() && rows == expected;
}

void declareSections(const QStringList &paths)
{
    QByteArray entries;
    for (const QString &entry : paths) {
        entries += "{\"path\": \"" + entry.toUtf8() + "\"},";
    }
    entries.chop(1);
    declareJson(entries);
}

void declareJson(const QByteArray &entries)
{
    PluginRegistry *registry = PluginRegistry::instance();
    World::removeEntries(text("x.json"));
    World::rescan(registry);
    World::writeEntries(text("x.json"), "{\"entries\": [" + entries + "]}");
    World::rescan(registry);
}

void storeFavorites(const QVariant &value)
{
    MGConfItem(WatchedFavorites::keyOfTests()).set(value);
}

QStringList storedFavorites()
{
    return MGConfItem(WatchedFavorites::keyOfTests()).value().toStringList();
}

void storeUserModified(bool modified)
{
    MGConfItem(WatchedFavorites::userModifiedKeyOfTests()).set(modified);
}

void removeNode(const QStringList &path)
{
    TreeItem *item = PluginRegistry::instance()->getItem(path);
    if (item) {
        item->parentItem()->removeChild(item);
    }
}
