// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "launcherfolderitem.h"

#include "launcherrow.h"

#include <algorithm>

LauncherFolderItem::LauncherFolderItem(const QString &title, QObject *parent)
    : QAbstractListModel(parent)
    , m_title(title)
{
}

LauncherFolderItem::~LauncherFolderItem() = default;

QString LauncherFolderItem::title() const
{
    return m_title;
}

int LauncherFolderItem::itemCount() const
{
    return int(m_rows.size());
}

QObject *LauncherFolderItem::get(int row) const
{
    return row >= 0 && row < itemCount() ? m_rows[row].object : nullptr;
}

int LauncherFolderItem::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : itemCount();
}

QVariant LauncherFolderItem::data(const QModelIndex &index, int role) const
{
    QObject *object = get(index.row());
    if (object && role == ObjectRole) {
        return QVariant::fromValue(object);
    }
    if (role != Qt::DisplayRole) {
        return {};
    }
    if (const auto *item = qobject_cast<LauncherItem *>(object)) {
        return item->title();
    }
    const auto *folder = qobject_cast<LauncherFolderItem *>(object);
    return folder ? folder->title() : QVariant();
}

QHash<int, QByteArray> LauncherFolderItem::roleNames() const
{
    return {{Qt::DisplayRole, "display"}, {ObjectRole, "object"}};
}

int LauncherFolderItem::rowOf(const LauncherRow &row) const
{
    return int(std::distance(m_rows.cbegin(), std::lower_bound(m_rows.cbegin(), m_rows.cend(), row)));
}

void LauncherFolderItem::addRow(const LauncherRow &row)
{
    const int place = rowOf(row);
    beginInsertRows({}, place, place);
    m_rows.insert(m_rows.begin() + place, row);
    endInsertRows();
}

void LauncherFolderItem::dropRow(const LauncherRow &row)
{
    const int place = rowOf(row);
    beginRemoveRows({}, place, place);
    m_rows.erase(m_rows.begin() + place);
    endRemoveRows();
}

void LauncherFolderItem::replaceRow(const LauncherRow &old, const LauncherRow &row)
{
    const int from = rowOf(old);
    const int to = rowOf(row); // counted with the old row still there
    const bool moves = beginMoveRows({}, from, from, {}, to);
    m_rows[from] = row;
    if (moves) {
        const auto begin = m_rows.begin();
        if (to > from) {
            std::rotate(begin + from, begin + from + 1, begin + to);
        } else {
            std::rotate(begin + to, begin + from, begin + from + 1);
        }
        endMoveRows();
    }
    const QModelIndex place = index(to > from ? to - 1 : to);
    Q_EMIT dataChanged(place, place);
}
