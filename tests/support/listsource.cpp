// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "listsource.h"

#include <algorithm>

ListSource::Rows ListSource::rows(const QByteArray &letters)
{
    Rows rows;
    for (const char letter : letters) {
        rows.append({QString(QLatin1Char(letter)), 0, nullptr});
    }
    return rows;
}

int ListSource::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_rows.size();
}

QVariant ListSource::data(const QModelIndex &index, int role) const
{
    const Row &row = m_rows.at(index.row());
    switch (role) {
    case KeyRole:
        return row.key;
    case ValueRole:
        return row.value;
    default:
        return QVariant::fromValue(row.object);
    }
}

QHash<int, QByteArray> ListSource::roleNames() const
{
    return m_names;
}

void ListSource::reset(const Rows &rows)
{
    beginResetModel();
    m_rows = rows;
    endResetModel();
}

void ListSource::insert(int row, const Row &value)
{
    beginInsertRows({}, row, row);
    m_rows.insert(row, value);
    endInsertRows();
}

void ListSource::remove(int row)
{
    beginRemoveRows({}, row, row);
    m_rows.removeAt(row);
    endRemoveRows();
}

void ListSource::move(int from, int to)
{
    beginMoveRows({}, from, from, {}, from < to ? to + 1 : to);
    m_rows.move(from, to);
    endMoveRows();
}

void ListSource::change(int row, const Row &value)
{
    m_rows[row] = value;
    Q_EMIT dataChanged(index(row), index(row));
}

void ListSource::sortByKey()
{
    Q_EMIT layoutAboutToBeChanged();
    std::sort(m_rows.begin(), m_rows.end(), [](const Row &a, const Row &b) { return a.key < b.key; });
    Q_EMIT layoutChanged();
}

#include "moc_listsource.cpp"
