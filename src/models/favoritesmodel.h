// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "common/roletable.h"
#include "common/rowchanges.h"
#include "models/itemrows.h"
#include "models/storedfavorites.h"

#include <QAbstractListModel>
#include <QPointer>
#include <QQmlParserStatus>
#include <QSharedPointer>
#include <QStringList>
#include <QVector>

class FavoritesFilter;
class MGConfItem;
class PluginRegistry;
class QuickActionReader;
class StoredBlacklist;
class TreeItem;

/**
 * The user's favourite settings entries: those that the string list in the dconf key "key" names, that exist below
 * "path" and that "filter" admits. With "showPotential" all entries below "path" that could be made a favourite.
 *
 * Paths in the list are full ones, their names joined by "/". Paths without a row stay in the list. While the bool
 * in the dconf key "userModifiedKey" is true, changes of the list insert and remove single rows, new ones at the end;
 * else the list counts as the system's default and each change of it resets the model. Every edit sets that bool.
 *
 * Empty until componentComplete(); until then an edit does nothing. The rows follow the registry: each batch of its
 * changes resets the model, and a row whose node is deleted in between is removed at once. A change that a
 * handler asks for while rows change is deferred until that is done.
 */
class FavoritesModel : public QAbstractListModel, public QQmlParserStatus
{
    Q_OBJECT
    Q_INTERFACES(QQmlParserStatus)
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    /// "grid_favorites", "list_favorites", "grid_favorites_simple", "grid_favorites_page" and "action". A list with
    /// any other name is refused with a warning.
    Q_PROPERTY(QStringList filter READ filter WRITE setFilter NOTIFY filterChanged)
    Q_PROPERTY(bool showPotential READ showPotential WRITE setShowPotential NOTIFY showPotentialChanged)
    /// Nothing is listed, with a warning, while there is no such node.
    Q_PROPERTY(QStringList path READ path WRITE setPath NOTIFY pathChanged)
    Q_PROPERTY(QString key READ key WRITE setKey NOTIFY keyChanged)
    Q_PROPERTY(QString userModifiedKey READ userModifiedKey WRITE setUserModifiedKey NOTIFY userModifiedKeyChanged)
    Q_PROPERTY(bool userModified READ userModified NOTIFY userModifiedChanged)

public:
    enum Role {
        ObjectRole = Qt::UserRole + 1, ///< QObject*, the row's TreeItem
        FavoriteRole, ///< bool, whether the stored list names the entry
        RemoteActionRole, ///< QString, the call of an entry of type "action" as MRemoteAction writes it
    };

    explicit FavoritesModel(QObject *parent = nullptr);
    ~FavoritesModel() override;

    int count() const;
    QStringList filter() const;
    void setFilter(const QStringList &filter);
    bool showPotential() const;
    void setShowPotential(bool showPotential);
    QStringList path() const;
    void setPath(const QStringList &path);
    QString key() const;
    void setKey(const QString &key);
    QString userModifiedKey() const; ///< empty for none
    void setUserModifiedKey(const QString &key);
    bool userModified() const;

    void classBegin() override;
    void componentComplete() override;

    int rowCount(const QModelIndex &parent = {}) const override;
    /// Returns the int 0 for an unknown role.
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void countChanged();
    void filterChanged();
    void showPotentialChanged();
    void pathChanged();
    void keyChanged();
    void userModifiedKeyChanged();
    void userModifiedChanged();

public Q_SLOTS:
    bool isFavorite(const QString &path) const; ///< compares exactly with the stored paths
    void addFavorite(const QString &path); ///< at the end, even when it is there already
    /// Removes each stored @p path. Without showPotential only if it has a row.
    void removeFavorite(const QString &path);
    int indexOf(const QString &path) const; ///< the first row of the entry, -1 when it has none
    /// Moves a row, and the stored path of its entry to the place of the other's. Nothing without two such rows.
    void move(int index, int newIndex);
    /// Performs the action of a row of type "action"; for other rows there is a message with qmlInfo().
    void triggerAction(int index);
    QVariantMap get(int index) const; ///< TreeItem::data() of the row, empty when there is no such row

private Q_SLOTS:
    void updateItems(bool notifyChanges);
    void addItem(TreeItem *item, bool notifyChanges);
    void removeItem(int index, bool notifyChanges);
    void removeDestroyedItem();
    void favoritesUpdated();
    void resetModel();

private:
    using Roles = RoleTable<FavoritesModel, TreeItem>;
    using Edit = StoredFavorites::Edit;
    using Apply = bool (StoredFavorites::*)(const Edit &);

    static const Roles &roles();

    void removeRowsOf(const QObject *item);
    void removeDeadRows(const QObject *item);
    QuickActionReader *actionReader() const;
    void openFavorites();
    void updatePotentialItems();
    QList<TreeItem *> wantedItems() const;
    QList<TreeItem *> storedItems() const;
    void reset();
    void notifyCount(int before);
    void rebuild(bool notifyChanges);
    bool edit(const Edit &edit, Apply apply = &StoredFavorites::apply);
    void removeRow(int row, const Edit &edit);
    void moveRow(int from, int to, const Edit &edit);

    QStringList m_filter;
    QPointer<TreeItem> m_root;
    PluginRegistry *const m_registry;
    QSharedPointer<StoredFavorites> m_favorites; ///< from componentComplete() on
    MGConfItem *m_userModified = nullptr;
    mutable QuickActionReader *m_actionReader = nullptr; ///< created on demand
    QVector<QPointer<TreeItem>> m_potentialItems;
    ItemRows m_rows;
    RowChanges m_changes;
    QString m_key;
    QStringList m_path;
    StoredBlacklist *const m_blacklist;
    bool m_complete = false;
    bool m_showPotential = false;
};
