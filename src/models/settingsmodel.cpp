// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "models/settingsmodel.h"

#include "common/logging.h"
#include "common/messages.h"
#include "registry/pluginregistry.h"
#include "registry/toqml.h"
#include "registry/treeitem.h"

#include <utility>

namespace
{
struct RoleEntry {
    int role;
    const char *name;
    QVariant (*read)(TreeItem *item, const TreeItem *root);
};

const RoleEntry s_roles[] = {
    {SettingsModel::ObjectRole, "object",
     [](TreeItem *item, const TreeItem *) { return QVariant::fromValue(toQml(item)); }},
    {SettingsModel::DepthRole, "depth",
     [](TreeItem *item, const TreeItem *root) { return QVariant(item->depth(root)); }},
    {SettingsModel::CategoryRole, "category",
     [](TreeItem *item, const TreeItem *) {
         return QVariant(item->parentItem() ? item->parentItem()->title() : QString());
     }},
};
}

SettingsModel::SettingsModel(QObject *parent)
    : QAbstractListModel(parent)
    , m_registry(PluginRegistry::instance())
{
    connect(m_registry, &PluginRegistry::contentChanged, this, &SettingsModel::updateItems);
    connect(this, &SettingsModel::modelChanged, this, &SettingsModel::updateItems);
}

QStringList SettingsModel::path() const
{
    return m_path;
}

void SettingsModel::setPath(const QStringList &path)
{
    if (path == m_path) {
        return;
    }
    m_path = path;
    Q_EMIT modelChanged();
}

int SettingsModel::depth() const
{
    return m_depth;
}

void SettingsModel::setDepth(int depth)
{
    if (depth == m_depth) {
        return;
    }
    m_depth = depth;
    Q_EMIT modelChanged();
}

int SettingsModel::count() const
{
    return rowCount({});
}

int SettingsModel::rowCount(const QModelIndex &parent) const
{
    Q_UNUSED(parent)
    return m_rows.count();
}

QVariant SettingsModel::data(const QModelIndex &index, int role) const
{
    TreeItem *item = m_rows.at(index.row());
    if (!item) {
        return {};
    }
    for (const RoleEntry &entry : s_roles) {
        if (entry.role == role) {
            return entry.read(item, m_root);
        }
    }
    return {};
}

QHash<int, QByteArray> SettingsModel::roleNames() const
{
    QHash<int, QByteArray> names;
    for (const RoleEntry &entry : s_roles) {
        names.insert(entry.role, entry.name);
    }
    return names;
}

QObject *SettingsModel::objectAt(int index) const
{
    return toQml(m_rows.at(index));
}

QObject *SettingsModel::objectForPath(const QString &path) const
{
    if (!m_root) {
        qCWarning(lcSettings) << Messages::NoTree;
        return nullptr;
    }
    return toQml(m_root->lookup(path.split(QLatin1Char('/'))));
}

void SettingsModel::updateItems()
{
    // First of all: whoever hears of it may change the page.
    beginResetModel();
    m_root = m_registry->getItem(m_path);
    const QList<TreeItem *> items = m_root ? m_root->itemsAtLevel(TreeItem::orderLessThan, m_depth)
                                           : QList<TreeItem *>();
    for (TreeItem *item : items) {
        if (m_rows.rowOf(item) < 0) { // else it is connected, and to find that out takes longer
            connect(item, &QObject::destroyed, this, &SettingsModel::itemDestroyed, Qt::UniqueConnection);
        }
    }
    m_rows.reset(items);
    endResetModel();
    Q_EMIT countChanged();
}

void SettingsModel::itemDestroyed(QObject *item)
{
    // QObject::sender() would search the connections of all rows.
    m_destroyedItem = item;
    removeDestroyedItem();
}

void SettingsModel::removeDestroyedItem()
{
    const QObject *item = std::exchange(m_destroyedItem, nullptr);
    const int row = m_rows.rowOf(item);
    if (row < 0) {
        return;
    }
    beginRemoveRows({}, row, row);
    m_rows.removeAt(row);
    endRemoveRows();
    Q_EMIT countChanged();
}
