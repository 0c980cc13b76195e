// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "models/favoritesmodel.h"

#include "actions/quickactionreader.h"
#include "common/constants.h"
#include "common/logging.h"
#include "common/logtext.h"
#include "common/messages.h"
#include "models/entryparams.h"
#include "models/favoritesfilter.h"
#include "models/pathlist.h"
#include "models/rowdifference.h"
#include "registry/pluginregistry.h"
#include "registry/storedblacklist.h"
#include "registry/toqml.h"
#include "registry/treeitem.h"

#include <mgconfitem.h>

#include <QQmlInfo>

#include <algorithm>
#include <limits>
#include <utility>

namespace
{
const QString s_action = QStringLiteral("action");

QString fullPath(const TreeItem *item)
{
    return item->location().join(QLatin1Char('/'));
}
}

const FavoritesModel::Roles &FavoritesModel::roles()
{
    static const Roles roles{
        {ObjectRole, "object", [](const auto &, TreeItem &item) { return QVariant::fromValue(toQml(&item)); }},
        {FavoriteRole, "favorite",
         [](const FavoritesModel &model, TreeItem &item) { return QVariant(model.isFavorite(fullPath(&item))); }},
        {RemoteActionRole, "remoteAction",
         [](const FavoritesModel &model, TreeItem &item) {
             const bool isAction = item.type() == s_action;
             return QVariant(isAction ? model.actionReader()->remoteActionString(paramsOf(&item)) : QString());
         }},
    };
    return roles;
}

FavoritesModel::FavoritesModel(QObject *parent)
    : QAbstractListModel(parent)
    , m_registry(PluginRegistry::instance())
    , m_changes(this, [this] { resetModel(); })
    , m_key(Constants::FavoritesKey)
    , m_blacklist(new StoredBlacklist(this))
{
    connect(m_registry, &PluginRegistry::contentChanged, this, &FavoritesModel::resetModel);
    connect(m_blacklist, &StoredBlacklist::readLate, this, &FavoritesModel::resetModel);
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
        qCWarning(lcSettings) << Messages::UnknownFilter << quoted(*unknown);
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
        qCWarning(lcSettings) << Messages::PathNotFound << quoted(path);
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
    return item ? roles().read(role, *this, *item, 0) : QVariant();
}

QHash<int, QByteArray> FavoritesModel::roleNames() const
{
    return roles().names();
}

bool FavoritesModel::isFavorite(const QString &path) const
{
    return m_favorites && m_favorites->contains(path);
}

void FavoritesModel::addFavorite(const QString &path)
{
    const Edit append = [&path](const QStringList &paths) { return PathList::appended(paths, path); };
    if (m_favorites && m_favorites->accepts(append)) {
        edit(append);
    }
}

void FavoritesModel::removeFavorite(const QString &path)
{
    const Edit remove = [&path](const QStringList &paths) { return PathList::removedAll(paths, path); };
    const int row = m_showPotential ? -1 : indexOf(path);
    if (!m_favorites || (row < 0 && !m_showPotential) || !m_favorites->accepts(remove)) {
        return;
    }
    if (m_showPotential || m_changes.isRunning()) {
        edit(remove); // the rows follow the announcement
    } else {
        removeRow(row, remove);
    }
}

int FavoritesModel::indexOf(const QString &path) const
{
    // A search of the rows would build the path of each, which is quadratic where they stand below each other.
    return m_rows.firstRowOf(m_registry->getItem(path.split(QLatin1Char('/'))));
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
    const Edit moveStored = [&](const QStringList &paths) { return PathList::moved(paths, path, targetPath); };
    const QStringList stored = m_favorites->read();
    if (!stored.contains(path) || !stored.contains(targetPath) || !m_favorites->accepts(moveStored)) {
        return;
    }
    if (m_changes.isRunning()) {
        m_changes.defer(); // the announcement alone moves no row
        edit(moveStored);
    } else {
        moveRow(index, newIndex, moveStored);
    }
}

void FavoritesModel::triggerAction(int index)
{
    const TreeItem *item = m_rows.at(index);
    if (!item) {
        qmlInfo(this) << "invalid index " << index;
    } else if (item->type() == s_action) {
        actionReader()->trigger(paramsOf(item));
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
    const int before = m_rows.count();
    m_changes.run([this, notifyChanges] { rebuild(notifyChanges); }, [this, before] { notifyCount(before); });
}

void FavoritesModel::addItem(TreeItem *item, bool notifyChanges)
{
    // Connected first: a handler of the row's insertion may delete the entry.
    const QPointer<TreeItem> guarded(item);
    connect(item, &QObject::destroyed, this, &FavoritesModel::removeRowsOf, Qt::UniqueConnection);
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
        disconnect(item, &QObject::destroyed, this, &FavoritesModel::removeRowsOf);
    }
    if (notifyChanges) {
        endRemoveRows();
    }
}

void FavoritesModel::removeDestroyedItem()
{
    removeRowsOf(sender());
}

// QObject::sender() would search the connections of all rows.
void FavoritesModel::removeRowsOf(const QObject *item)
{
    if (m_rows.rowOf(item) >= 0 || m_changes.isRunning()) {
        m_changes.run([this, item] { removeDeadRows(item); }, [this] { Q_EMIT countChanged(); });
    }
}

void FavoritesModel::removeDeadRows(const QObject *item)
{
    if (m_rows.countOf(item) == 1) {
        removeItem(m_rows.rowOf(item), true);
        return;
    }
    // If they were removed one by one, the others would have no object in handlers of the first removal.
    while (m_rows.countOf(item) > 0) {
        removeItem(m_rows.rowOf(item), false);
    }
    beginResetModel();
    endResetModel();
}

void FavoritesModel::favoritesUpdated()
{
    if (m_showPotential || userModified()) {
        updateItems(true);
    } else {
        resetModel();
    }
}

void FavoritesModel::resetModel()
{
    const int before = m_rows.count();
    m_changes.run([this] { reset(); }, [this, before] { notifyCount(before); });
}

void FavoritesModel::reset()
{
    m_root = m_registry->getItem(m_path);
    updatePotentialItems();
    beginResetModel();
    while (m_rows.count() > 0) {
        removeItem(m_rows.count() - 1, false);
    }
    rebuild(false);
    notifyCount(0); // as updateItems() does, from no row
    endResetModel();
}

void FavoritesModel::notifyCount(int before)
{
    if (m_rows.count() != before) {
        Q_EMIT countChanged();
    }
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
    m_favorites = QSharedPointer<StoredFavorites>::create(m_key, this);
    connect(m_favorites.data(), &StoredFavorites::changed, this, &FavoritesModel::favoritesUpdated);
}

void FavoritesModel::updatePotentialItems()
{
    m_potentialItems.clear();
    if (!m_complete || !m_showPotential || !m_root) {
        return;
    }
    const FavoritesFilter filter(m_filter, m_blacklist->paths());
    const auto admits = [&filter](const TreeItem *item) { return filter.admits(item); };
    const QList<TreeItem *> items = m_root->getSubitems(TreeItem::orderLessThan, admits,
                                                        std::numeric_limits<int>::max());
    std::copy(items.cbegin(), items.cend(), std::back_inserter(m_potentialItems));
}

QList<TreeItem *> FavoritesModel::wantedItems() const
{
    if (!m_showPotential) {
        return storedItems();
    }
    QList<TreeItem *> items;
    std::copy_if(m_potentialItems.cbegin(), m_potentialItems.cend(), std::back_inserter(items),
                 [](const TreeItem *item) { return item; });
    return items;
}

QList<TreeItem *> FavoritesModel::storedItems() const
{
    if (!m_root) {
        return {};
    }
    QList<TreeItem *> items;
    const FavoritesFilter filter(m_filter, m_blacklist->paths());
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

/// Applies @p edit to the stored list. Returns false if a handler has deleted this object.
bool FavoritesModel::edit(const Edit &edit, Apply apply)
{
    // Handlers of userModifiedChanged() may change the keys and delete the model. The edit still changes the list for
    // which it began.
    const QSharedPointer<StoredFavorites> favorites = m_favorites;
    const QPointer<FavoritesModel> self(this);
    if (m_userModified) {
        m_userModified->set(true);
    }
    // Read after them, so that no change of theirs is lost.
    const bool isApplied = (favorites.data()->*apply)(edit);
    if (self && !isApplied && m_changes.isRunning()) {
        m_changes.defer(); // the rows show the edit already
    }
    return self;
}

/// Removes a row and its entry's other rows, and applies @p edit to the stored list in between.
void FavoritesModel::removeRow(int row, const Edit &edit)
{
    m_changes.run(
        [&] {
            const TreeItem *item = m_rows.at(row);
            beginRemoveRows({}, row, row);
            removeItem(row, false);
            if (!this->edit(edit, &StoredFavorites::applyShown)) {
                return;
            }
            endRemoveRows();
            while (m_rows.countOf(item) > 0) {
                removeItem(m_rows.rowOf(item), true);
            }
        },
        [this] { Q_EMIT countChanged(); });
}

/// Moves a row and applies @p edit to the stored list.
void FavoritesModel::moveRow(int from, int to, const Edit &edit)
{
    m_changes.run([&] {
        const bool moves = beginMoveRows({}, from, from, {}, from < to ? to + 1 : to);
        m_rows.move(from, to);
        if (this->edit(edit, &StoredFavorites::applyShown) && moves) {
            endMoveRows();
        }
    });
}

#include "moc_favoritesmodel.cpp"
