// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "launcherfolderitem.h"

#include "launcherrows.h"

#include <QPointer>

#include <utility>

LauncherFolderItem::LauncherFolderItem(const QString &title, QObject *parent)
    : QAbstractListModel(parent)
    , m_title(title)
    , m_rows(std::make_unique<LauncherRows>())
{
}

LauncherFolderItem::~LauncherFolderItem() = default;

QString LauncherFolderItem::title() const
{
    return m_title;
}

int LauncherFolderItem::itemCount() const
{
    return m_rows->count();
}

QObject *LauncherFolderItem::get(int row) const
{
    return m_rows->at(row);
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

void LauncherFolderItem::addRow(const LauncherRow &row)
{
    const int place = m_rows->indexOf(row);
    m_isChanging = true;
    beginInsertRows({}, place, place);
    m_rows->insert(row);
    m_isChanging = false;
    endInsertRows();
}

void LauncherFolderItem::dropRow(std::optional<LauncherRow> *row)
{
    const int place = m_rows->indexOf(**row);
    m_isChanging = true;
    beginRemoveRows({}, place, place);
    m_rows->remove(**row);
    row->reset();
    m_isChanging = false;
    endRemoveRows();
}

// Takes a copy: the original may be gone after a signal.
void LauncherFolderItem::replaceRow(std::optional<LauncherRow> *row, LauncherRow replacement)
{
    const LauncherRow changed = std::move(replacement);
    const int from = m_rows->indexOf(**row);
    const int to = m_rows->indexOf(changed); // counted with the old row still there
    m_isChanging = true;
    const bool moves = beginMoveRows({}, from, from, {}, to);
    m_rows->remove(**row);
    m_rows->insert(changed);
    *row = changed;
    m_isChanging = false;
    if (moves) {
        const QPointer<LauncherFolderItem> self(this);
        endMoveRows();
        if (!self || !m_rows->contains(changed)) {
            return;
        }
    }
    const QModelIndex place = index(m_rows->indexOf(changed));
    Q_EMIT dataChanged(place, place);
}

#include "moc_launcherfolderitem.cpp"
