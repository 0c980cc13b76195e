// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "models/favoritesmodel.h"

#include "actions/quickactionreader.h"
#include "common/constants.h"
#include "common/logging.h"
#include "common/messages.h"
#include "models/favoritesfilter.h"
#include "models/pathlist.h"
#include "models/rowdifference.h"
#include "models/storedfavorites.h"
#include "registry/favoritesblacklist.h"
#include "registry/pluginregistry.h"
#include "registry/toqml.h"
#include "registry/treeitem.h"

#include <mgconfitem.h>

#include <QQmlInfo>
#include <QScopeGuard>

#include <algorithm>
#include <limits>
#include <utility>

const FavoritesModel::RoleEntry FavoritesModel::s_roles[] = {
    {ObjectRole, "object", &FavoritesModel::object},
    {FavoriteRole, "favorite", &FavoritesModel::favorite},
    {RemoteActionRole, "remoteAction", &FavoritesModel::remoteAction},
};

namespace
{
const QString s_action = QStringLiteral("action");

QString fullPath(const TreeItem *item)
{
    return item->location().join(QLatin1Char('/'));
}

QVariantMap params(const TreeItem *item)
{
    return item->value(QStringLiteral("params")).toMap();
}
}

FavoritesModel::FavoritesModel(QObject *parent)
    : QAbstractListModel(parent)
    , m_registry(PluginRegistry::instance())
    , m_key(Constants::FavoritesKey)
    , m_blacklist(readFavoritesBlacklist())
{
    connect(m_registry, &PluginRegistry::contentChanged, this, &FavoritesModel::resetModel);
    m_root = m_registry->getItem({});
}

FavoritesModel::~FavoritesModel() = default;

int FavoritesModel::count() const
{
    return rowCount({});
}

QStringList FavoritesModel::filter() const
{
    return m_filter;
}

void FavoritesModel::setFilter(const QStringList &filter)
{
    if (filter == m_filter) {
        return;
    }
    const auto unknown = std::find_if_not(filter.cbegin(), filter.cend(), FavoritesFilter::isKind);
    if (unknown != filter.cend()) {
        qCWarning(lcSettings) << Messages::UnknownFilter << *unknown;
        return;
    }
    m_filter = filter;
    updatePotentialItems();
    updateItems(m_complete);
    Q_EMIT filterChanged();
}

bool FavoritesModel::showPotential() const
{
    return m_showPotential;
}

void FavoritesModel::setShowPotential(bool showPotential)
{
    if (showPotential == m_showPotential) {
        return;
    }
    m_showPotential = showPotential;
    updatePotentialItems();
    updateItems(m_complete);
    Q_EMIT showPotentialChanged();
}

QStringList FavoritesModel::path() const
{
    return m_path;
}

void FavoritesModel::setPath(const QStringList &path)
{
    if (path == m_path) {
        return;
    }
    m_path = path;
    m_root = m_registry->getItem(path);
    if (!m_root) {
        qCWarning(lcSettings) << Messages::PathNotFound << path;
    }
    updatePotentialItems();
    updateItems(m_complete);
    Q_EMIT pathChanged();
}

QString FavoritesModel::key() const
{
    return m_key;
}

void FavoritesModel::setKey(const QString &key)
{
    if (key == m_key) {
        return;
    }
    m_key = key;
    if (m_complete) {
        openFavorites();
    }
    updateItems(m_complete);
    Q_EMIT keyChanged();
}

QString FavoritesModel::userModifiedKey() const
{
    return m_userModified ? m_userModified->key() : QString();
}

void FavoritesModel::setUserModifiedKey(const QString &key)
{
    if (key == userModifiedKey()) {
        return;
    }
    delete std::exchange(m_userModified, nullptr);
    if (!key.isEmpty()) {
        m_userModified = new MGConfItem(key, this);
        connect(m_userModified, &MGConfItem::valueChanged, this, &FavoritesModel::userModifiedChanged);
    }
    Q_EMIT userModifiedKeyChanged();
    Q_EMIT userModifiedChanged();
}

bool FavoritesModel::userModified() const
{
    return m_userModified && m_userModified->value(false).toBool();
}

void FavoritesModel::classBegin() {}

void FavoritesModel::componentComplete()
{
    m_complete = true;
    openFavorites();
    resetModel();
}

int FavoritesModel::rowCount(const QModelIndex &parent) const
{
    Q_UNUSED(parent)
    return m_rows.count();
}

QVariant FavoritesModel::data(const QModelIndex &index, int role) const
{
    TreeItem *item = m_rows.at(index.row());
    if (!item) {
        return {};
    }
    for (const RoleEntry &entry : s_roles) {
        if (entry.role == role) {
            return (this->*entry.read)(item);
        }
    }
    return 0;
}

QHash<int, QByteArray> FavoritesModel::roleNames() const
{
    QHash<int, QByteArray> names;
    for (const RoleEntry &entry : s_roles) {
        names.insert(entry.role, entry.name);
    }
    return names;
}

QVariant FavoritesModel::object(TreeItem *item) const
{
    return QVariant::fromValue(toQml(item));
}

QVariant FavoritesModel::favorite(TreeItem *item) const
{
    return isFavorite(fullPath(item));
}

QVariant FavoritesModel::remoteAction(TreeItem *item) const
{
    return item->type() == s_action ? actionReader()->remoteActionString(params(item)) : QString();
}

bool FavoritesModel::isFavorite(const QString &path) const
{
    return m_favorites && m_favorites->contains(path);
}

void FavoritesModel::addFavorite(const QString &path)
{
    if (m_favorites) {
        edit([&path](const QStringList &paths) { return PathList::appended(paths, path); });
    }
}

void FavoritesModel::removeFavorite(const QString &path)
{
    const int row = m_showPotential ? -1 : indexOf(path);
    if (!m_favorites || (row < 0 && !m_showPotential)) {
        return;
    }
    const Edit remove = [&path](const QStringList &paths) { return PathList::removedAll(paths, path); };
    if (m_changing || m_showPotential) {
        edit(remove);
    } else if (const std::optional<QStringList> written = removeRow(row, remove)) {
        Q_EMIT countChanged();
        finishEdit(*written);
    }
}

int FavoritesModel::indexOf(const QString &path) const
{
    for (int row = 0; row < m_rows.count(); ++row) {
        const TreeItem *item = m_rows.at(row);
        if (item && fullPath(item) == path) {
            return row;
        }
    }
    return -1;
}

void FavoritesModel::move(int index, int newIndex)
{
    const TreeItem *item = m_rows.at(index);
    const TreeItem *target = m_rows.at(newIndex);
    if (!item || !target) {
        return;
    }
    const QString path = fullPath(item);
    const QString targetPath = fullPath(target);
    const QStringList stored = m_favorites->read();
    if (!stored.contains(path) || !stored.contains(targetPath)) {
        return;
    }
    const Edit moveStored = [&](const QStringList &paths) { return PathList::moved(paths, path, targetPath); };
    if (m_changing) {
        m_deferred = true;
        edit(moveStored);
    } else if (const std::optional<QStringList> written = moveRow(index, newIndex, moveStored)) {
        finishEdit(*written);
    }
}

void FavoritesModel::triggerAction(int index)
{
    const TreeItem *item = m_rows.at(index);
    if (!item) {
        qmlInfo(this) << "invalid index " << index;
    } else if (item->type() == s_action) {
        actionReader()->trigger(params(item));
    } else {
        qmlInfo(this) << "item at index " << index << " is not an action";
    }
}

QVariantMap FavoritesModel::get(int index) const
{
    const TreeItem *item = m_rows.at(index);
    return item ? item->data() : QVariantMap();
}

void FavoritesModel::updateItems(bool notifyChanges)
{
    if (!m_complete) {
        return;
    }
    if (m_changing) {
        m_deferred = true;
        return;
    }
    const int before = m_rows.count();
    m_changing = true;
    rebuild(notifyChanges);
    m_changing = false;
    if (m_rows.count() != before) {
        Q_EMIT countChanged();
    }
    applyDeferred();
}

void FavoritesModel::addItem(TreeItem *item, bool notifyChanges)
{
    // Connected first: whoever hears of the row may let the entry die.
    const QPointer<TreeItem> guarded(item);
    connect(item, &QObject::destroyed, this, &FavoritesModel::itemDestroyed, Qt::UniqueConnection);
    if (notifyChanges) {
        beginInsertRows({}, m_rows.count(), m_rows.count());
    }
    m_rows.append(guarded);
    if (notifyChanges) {
        endInsertRows();
    }
}

void FavoritesModel::removeItem(int index, bool notifyChanges)
{
    if (notifyChanges) {
        beginRemoveRows({}, index, index);
    }
    const TreeItem *item = m_rows.at(index);
    m_rows.removeAt(index);
    if (item && m_rows.rowOf(item) < 0) {
        disconnect(item, &QObject::destroyed, this, &FavoritesModel::itemDestroyed);
    }
    if (notifyChanges) {
        endRemoveRows();
    }
}

void FavoritesModel::removeDestroyedItem()
{
    const QObject *item = std::exchange(m_destroyedItem, nullptr);
    if (m_changing) {
        m_deferred = true;
        return;
    }
    m_changing = true;
    for (int row = m_rows.rowOf(item); row >= 0; row = m_rows.rowOf(item)) {
        removeItem(row, true);
        Q_EMIT countChanged();
    }
    m_changing = false;
    applyDeferred();
}

void FavoritesModel::favoritesUpdated()
{
    if (m_editing) {
        return;
    }
    if (m_showPotential || userModified()) {
        updateItems(true);
    } else {
        resetModel();
    }
}

void FavoritesModel::resetModel()
{
    if (m_changing) {
        m_deferred = true;
        return;
    }
    const int before = m_rows.count();
    m_root = m_registry->getItem(m_path);
    updatePotentialItems();
    m_changing = true;
    beginResetModel();
    while (m_rows.count() > 0) {
        removeItem(m_rows.count() - 1, false);
    }
    rebuild(false);
    if (m_rows.count() > 0) {
        Q_EMIT countChanged();
    }
    endResetModel();
    m_changing = false;
    if (m_rows.count() != before) {
        Q_EMIT countChanged();
    }
    applyDeferred();
}

void FavoritesModel::itemDestroyed(QObject *item)
{
    // QObject::sender() would search the connections of all rows.
    m_destroyedItem = item;
    removeDestroyedItem();
}

QuickActionReader *FavoritesModel::actionReader() const
{
    if (!m_actionReader) {
        m_actionReader = new QuickActionReader(const_cast<FavoritesModel *>(this));
    }
    return m_actionReader;
}

void FavoritesModel::openFavorites()
{
    m_favorites = QSharedPointer<StoredFavorites>::create(m_key);
    connect(m_favorites.data(), &StoredFavorites::changed, this, &FavoritesModel::favoritesUpdated);
}

void FavoritesModel::updatePotentialItems()
{
    m_potentialItems.clear();
    if (!m_complete || !m_showPotential || !m_root) {
        return;
    }
    const FavoritesFilter filter(m_filter, m_blacklist);
    const auto admits = [&filter](const TreeItem *item) { return filter.admits(item); };
    const QList<TreeItem *> items = m_root->getSubitems(TreeItem::orderLessThan, admits,
                                                        std::numeric_limits<int>::max());
    std::copy(items.cbegin(), items.cend(), std::back_inserter(m_potentialItems));
}

QList<TreeItem *> FavoritesModel::wantedItems() const
{
    QList<TreeItem *> items;
    if (m_showPotential) {
        std::copy_if(m_potentialItems.cbegin(), m_potentialItems.cend(), std::back_inserter(items),
                     [](const TreeItem *item) { return item; });
        return items;
    }
    if (!m_root) {
        return items;
    }
    const FavoritesFilter filter(m_filter, m_blacklist);
    const QStringList paths = m_favorites->read();
    for (const QString &path : paths) {
        TreeItem *item = m_root->lookup(path.split(QLatin1Char('/'), Qt::SkipEmptyParts));
        if (item && item != m_root && filter.admits(item)) {
            items.append(item);
        }
    }
    return items;
}

void FavoritesModel::rebuild(bool notifyChanges)
{
    if (!m_complete) {
        return;
    }
    const RowDifference difference(m_rows, wantedItems());
    for (const int row : difference.obsolete) {
        removeItem(row, notifyChanges);
    }
    const int kept = m_rows.count();
    for (const QPointer<TreeItem> &item : difference.missing) {
        if (item) {
            addItem(item, notifyChanges);
        }
    }
    if (notifyChanges) {
        for (int row = 0; row < kept; ++row) {
            Q_EMIT dataChanged(index(row), index(row));
        }
    }
}

void FavoritesModel::applyDeferred()
{
    if (std::exchange(m_deferred, false)) {
        resetModel();
    }
}

/// Ends the change of rows that an edit has begun, unless this object has died meanwhile.
template<typename End>
auto FavoritesModel::endOfEdit(End end)
{
    return qScopeGuard([self = QPointer<FavoritesModel>(this), end] {
        if (self) {
            self->m_editing = false;
            end();
            self->m_changing = false;
        }
    });
}

/// Writes what @p edit makes of the stored list. Nothing is returned when this object has died meanwhile.
std::optional<QStringList> FavoritesModel::edit(const Edit &edit)
{
    // Handlers of userModifiedChanged() may change the keys and delete the model. The list that the user edits stays
    // the same one.
    const QSharedPointer<StoredFavorites> favorites = m_favorites;
    const QPointer<FavoritesModel> self(this);
    if (m_userModified) {
        m_userModified->set(true);
    }
    // Read after them, so that no change of theirs is lost.
    const QStringList paths = edit(favorites->read());
    favorites->write(paths);
    return self ? std::optional(paths) : std::nullopt;
}

/// Edits as removing the row does. Nothing is returned when this object has died meanwhile.
std::optional<QStringList> FavoritesModel::removeRow(int row, const Edit &edit)
{
    m_changing = true;
    beginRemoveRows({}, row, row);
    const auto end = endOfEdit([this] { endRemoveRows(); });
    m_editing = true;
    removeItem(row, false);
    return this->edit(edit);
}

/// Edits as moving the row does. Nothing is returned when this object has died meanwhile.
std::optional<QStringList> FavoritesModel::moveRow(int from, int to, const Edit &edit)
{
    m_changing = true;
    const bool moves = beginMoveRows({}, from, from, {}, from < to ? to + 1 : to);
    const auto end = endOfEdit([this, moves] {
        if (moves) {
            endMoveRows();
        }
    });
    m_editing = true;
    m_rows.move(from, to);
    return this->edit(edit);
}

/// Lets the rows follow what has happened in the middle of an edit.
void FavoritesModel::finishEdit(const QStringList &written)
{
    if (m_deferred) {
        applyDeferred();
        return;
    }
    if (m_favorites->read() != written) {
        favoritesUpdated();
        return;
    }
    // Other rows of the same entry, or a stored path that is another spelling of it
    if (!RowDifference(m_rows, wantedItems()).isEmpty()) {
        updateItems(true);
    }
}
