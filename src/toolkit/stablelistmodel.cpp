// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "toolkit/stablelistmodel.h"

#include "common/logging.h"
#include "common/messages.h"
#include "common/modelsources.h"

#include <algorithm>
#include <iterator>
#include <numeric>

namespace
{
const QByteArray s_fileRole = QByteArrayLiteral("filePath");
}

StableListModel::StableListModel(QObject *parent)
    : DifferenceListModel(parent)
    , m_keyRole(QStringLiteral("object"))
    , m_changes(this, [this] { synchronize(); })
{
}

QAbstractItemModel *StableListModel::sourceModel() const
{
    return m_source;
}

void StableListModel::setSourceModel(QAbstractItemModel *source)
{
    if (source == m_source) {
        return;
    }
    if (source && isBuiltOn(source, this)) {
        qCWarning(lcSettings) << Messages::SourceIsOwn;
        return;
    }
    if (m_source) {
        m_source->disconnect(this);
    }
    disconnect(m_sourceDestroyed); // an earlier handler of it may be running
    follow(source);
    m_isOtherList = true;
    const QPointer<StableListModel> self(this);
    synchronize();
    if (self) {
        Q_EMIT sourceModelChanged();
    }
}

QString StableListModel::keyRole() const
{
    return m_keyRole;
}

void StableListModel::setKeyRole(const QString &role)
{
    if (role == m_keyRole) {
        return;
    }
    m_keyRole = role;
    m_isOtherList = true;
    const QPointer<StableListModel> self(this);
    synchronize();
    if (self) {
        Q_EMIT keyRoleChanged();
    }
}

int StableListModel::count() const
{
    return m_rows.size();
}

QVariant StableListModel::data(const QModelIndex &index, int role) const
{
    const int position = m_roles.numbers.indexOf(role);
    const bool isRow = index.row() >= 0 && index.row() < m_rows.size();
    return isRow && position >= 0 ? m_rows.at(index.row())->value(position) : QVariant();
}

QHash<int, QByteArray> StableListModel::roleNames() const
{
    return m_roles.names;
}

void StableListModel::follow(QAbstractItemModel *source)
{
    m_source = source;
    if (!source) {
        return;
    }
    connect(source, &QAbstractItemModel::rowsInserted, this, &StableListModel::insertSourceRows);
    connect(source, &QAbstractItemModel::rowsRemoved, this, &StableListModel::removeSourceRows);
    connect(source, &QAbstractItemModel::dataChanged, this, &StableListModel::updateSourceRows);
    connect(source, &QAbstractItemModel::rowsMoved, this, &StableListModel::synchronize);
    connect(source, &QAbstractItemModel::layoutChanged, this, &StableListModel::synchronize);
    connect(source, &QAbstractItemModel::modelReset, this, &StableListModel::synchronize);
    m_sourceDestroyed = connect(source, &QObject::destroyed, this, &StableListModel::sourceDestroyed);
}

void StableListModel::sourceDestroyed()
{
    m_isOtherList = true;
    const QPointer<StableListModel> self(this);
    synchronize();
    if (self) {
        Q_EMIT sourceModelChanged();
    }
}

/// Runs @p change, and announces the number of rows.
void StableListModel::change(const RowChanges::Change &change)
{
    const int before = m_rows.size();
    m_changes.run(change, [this, before] {
        if (m_rows.size() != before) {
            Q_EMIT countChanged();
        }
    });
}

/// Makes the rows those of the source after any change of it.
void StableListModel::synchronize()
{
    change([this] {
        const bool isOtherList = m_isOtherList || (m_source && m_source->roleNames() != m_roles.names);
        if (isOtherList) {
            reset();
        } else if (m_source) {
            applyDifference();
        }
    });
}

void StableListModel::reset()
{
    m_isOtherList = false;
    m_hasOtherRowNumbers = false;
    const ListRoles roles = sourceRoles();
    const Rows rows = readRows(0, sourceCount() - 1, roles);
    beginResetModel();
    m_roles = roles;
    m_rows = rows;
    endResetModel();
}

/// Reads all from the source before anything is announced: handlers may change it.
void StableListModel::applyDifference()
{
    m_hasOtherRowNumbers = false;
    QStringList before;
    before.reserve(m_rows.size());
    for (const ListRow::Pointer &row : qAsConst(m_rows)) {
        before.append(row->key());
    }
    const ListDifference difference = differenceOf(before, sourceKeys(), MaxMoves);
    if (difference.hasTooManyMoves) {
        reset();
        return;
    }
    const QVector<Update> updates = updateRows(difference.origins);
    QVector<Rows> inserted;
    for (const ListDifference::Range &range : difference.insertions) {
        inserted.append(readRows(range.first, range.last, m_roles));
    }

    announce(difference, updates, inserted);
}

void StableListModel::insertSourceRows(const QModelIndex &parent, int first, int last)
{
    if (parent.isValid()) {
        return;
    }
    // Others may have changed the source before this signal arrived.
    const bool isNext = sourceCount() == m_rows.size() + last - first + 1;
    if (!isNext || m_isOtherList || m_source->roleNames() != m_roles.names) {
        synchronize();
        return;
    }
    m_hasOtherRowNumbers = true;
    change([this, first, last] { insertRange(first, readRows(first, last, m_roles)); });
}

void StableListModel::removeSourceRows(const QModelIndex &parent, int first, int last)
{
    if (parent.isValid()) {
        return;
    }
    if (sourceCount() != m_rows.size() - (last - first + 1)) {
        synchronize();
        return;
    }
    m_hasOtherRowNumbers = true;
    change([this, first, last] { removeRange(first, last); });
}

void StableListModel::updateSourceRows(const QModelIndex &first, const QModelIndex &last)
{
    if (first.parent().isValid()) {
        return;
    }
    if (!areCurrent(first.row(), last.row())) {
        synchronize();
        return;
    }
    change([this, begin = first.row(), end = last.row()] {
        QVector<int> rows(end - begin + 1);
        std::iota(rows.begin(), rows.end(), begin);
        announceUpdates(updateRows(rows, begin));
    });
}

/// Returns false if the rows of a change may have got other numbers since: an earlier handler has changed the source.
bool StableListModel::areCurrent(int first, int last) const
{
    return !m_hasOtherRowNumbers && sourceCount() == m_rows.size() && first >= 0 && first <= last
           && last < m_rows.size();
}

int StableListModel::sourceCount() const
{
    return m_source ? m_source->rowCount() : 0;
}

ListRoles StableListModel::sourceRoles() const
{
    ListRoles roles;
    if (m_source) {
        roles.names = m_source->roleNames();
        std::copy(roles.names.keyBegin(), roles.names.keyEnd(), std::back_inserter(roles.numbers));
        roles.key = roles.names.key(m_keyRole.toUtf8(), roles.names.key(s_fileRole, roles.key));
    }
    return roles;
}

StableListModel::Rows StableListModel::readRows(int first, int last, const ListRoles &roles) const
{
    Rows rows;
    rows.reserve(last - first + 1);
    for (int row = first; row <= last; ++row) {
        rows.append(ListRow::Pointer(new ListRow(m_source->index(row, 0), roles)));
    }
    return rows;
}

/// Copies the values of the source's rows from @p firstSourceRow on into @p rows. Skips negative ones.
QVector<StableListModel::Update> StableListModel::updateRows(const QVector<int> &rows, int firstSourceRow)
{
    QVector<Update> updates;
    for (int i = 0; i < rows.size(); ++i) {
        if (rows.at(i) < 0) {
            continue;
        }
        const QModelIndex source = m_source->index(firstSourceRow + i, 0);
        const QVector<int> roles = m_rows.at(rows.at(i))->update(source, m_roles);
        if (!roles.isEmpty()) {
            updates.append({rows.at(i), roles});
        }
    }
    return updates;
}

QStringList StableListModel::sourceKeys() const
{
    const int count = sourceCount();
    QStringList keys;
    keys.reserve(count);
    int likely = 0; // the row here that is probably the next one
    for (int row = 0; row < count; ++row) {
        const QVariant value = m_source->index(row, 0).data(m_roles.key);
        const QObject *object = objectOf(value);
        const auto isAt = [&](int here) { return here < m_rows.size() && m_rows.at(here)->hasObject(object); };
        if (isAt(likely + 1) && !isAt(likely)) {
            ++likely; // one is gone
        }
        if (isAt(likely)) { // whose key is known: to find out an object's takes longer
            keys.append(m_rows.at(likely++)->key());
        } else {
            keys.append(keyOf(value));
        }
    }
    return keys;
}

#include "moc_stablelistmodel.cpp"
