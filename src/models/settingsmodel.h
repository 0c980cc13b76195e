// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "common/roletable.h"
#include "common/rowchanges.h"
#include "models/itemrows.h"

#include <QAbstractListModel>
#include <QPointer>
#include <QStringList>

class PluginRegistry;
class TreeItem;

/**
 * The entries of one settings page: every node exactly "depth" levels below the node at "path", siblings by "order"
 * and then by name, grouped under their parents.
 *
 * Empty until path or depth is set. The rows follow the registry: the list is rebuilt after each batch of its
 * changes, and a row whose node is deleted in between is removed at once. A change that a handler asks for while rows
 * change is deferred until that is done.
 */
class SettingsModel : public QAbstractListModel
{
    Q_OBJECT
    Q_PROPERTY(QStringList path READ path WRITE setPath NOTIFY modelChanged)
    Q_PROPERTY(int depth READ depth WRITE setDepth NOTIFY modelChanged)
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    enum Role {
        ObjectRole = Qt::UserRole + 1, ///< QObject*, the row's TreeItem
        DepthRole, ///< int, levels below "path"
        CategoryRole, ///< QString, the title of the node's parent
    };

    explicit SettingsModel(QObject *parent = nullptr);

    QStringList path() const;
    int depth() const;
    int count() const;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void modelChanged(); ///< path or depth has changed
    void countChanged();

public Q_SLOTS:
    void setPath(const QStringList &path);
    void setDepth(int depth);

private Q_SLOTS:
    void updateItems();
    void removeDestroyedItem();

public:
    /// The node of a row, null when there is no such row.
    Q_INVOKABLE QObject *objectAt(int index) const;
    /// The node at @p path below the model's own: names joined by "/". Null, with a warning when there is no tree.
    Q_INVOKABLE QObject *objectForPath(const QString &path) const;

private:
    using Roles = RoleTable<SettingsModel, TreeItem>;

    static const Roles &roles();

    void rebuild();
    void removeRowOf(const QObject *item);

    int m_depth = 0;
    QStringList m_path;
    PluginRegistry *const m_registry;
    QPointer<TreeItem> m_root;
    ItemRows m_rows;
    RowChanges m_changes;
};
