// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "models/settingsmodel.h"

#include "common/logging.h"
#include "common/messages.h"
#include "registry/pluginregistry.h"
#include "registry/toqml.h"
#include "registry/treeitem.h"

const SettingsModel::Roles &SettingsModel::roles()
{
    static const Roles roles{
        {ObjectRole, "object", [](const auto &, TreeItem &item) { return QVariant::fromValue(toQml(&item)); }},
        {DepthRole, "depth",
         [](const SettingsModel &model, TreeItem &item) { return QVariant(item.depth(model.m_root)); }},
        {CategoryRole, "category",
         [](const auto &, TreeItem &item) {
             return QVariant(item.parentItem() ? item.parentItem()->title() : QString());
         }},
    };
    return roles;
}

SettingsModel::SettingsModel(QObject *parent)
    : QAbstractListModel(parent)
    , m_registry(PluginRegistry::instance())
    , m_changes(this, [this] { updateItems(); })
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
    return item ? roles().read(role, *this, *item) : QVariant();
}

QHash<int, QByteArray> SettingsModel::roleNames() const
{
    return roles().names();
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
    m_changes.run([this] { rebuild(); }, [this] { Q_EMIT countChanged(); });
}

void SettingsModel::rebuild()
{
    m_root = m_registry->getItem(m_path);
    const QList<TreeItem *> items = m_root ? m_root->itemsAtLevel(TreeItem::orderLessThan, m_depth)
                                           : QList<TreeItem *>();
    for (TreeItem *item : items) {
        if (m_rows.rowOf(item) < 0) { // otherwise it is already connected, which Qt would take longer to find out
            connect(item, &QObject::destroyed, this, &SettingsModel::removeRowOf, Qt::UniqueConnection);
        }
    }
    ItemRows rows;
    rows.reset(items); // guarded: a handler of the reset may delete them
    beginResetModel();
    m_rows = rows;
    endResetModel();
}

void SettingsModel::removeDestroyedItem()
{
    removeRowOf(sender());
}

// QObject::sender() would search the connections of all rows.
void SettingsModel::removeRowOf(const QObject *item)
{
    const int row = m_rows.rowOf(item);
    if (row < 0 && !m_changes.isRunning()) {
        return;
    }
    const auto remove = [this, row] {
        beginRemoveRows({}, row, row);
        m_rows.removeAt(row);
        endRemoveRows();
    };
    m_changes.run(remove, [this] { Q_EMIT countChanged(); });
}

#include "moc_settingsmodel.cpp"
