// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "common/listdifference.h"

#include <QAbstractListModel>
#include <QPointer>
#include <QVector>

#include <algorithm>

/// A list model that announces how its rows become those of another list. Its functions return false when a handler has
/// deleted the model.
template<typename Row>
class DifferenceListModel : public QAbstractListModel
{
public:
    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : m_rows.size();
    }

protected:
    using Rows = QVector<Row>;

    /// What has changed in a row that stays.
    struct Update {
        int row;
        QVector<int> roles;
    };

    /// Announces @p updates, and then the steps of @p difference. The rows to insert are those of @p inserted, one list
    /// for each of its ranges.
    bool announce(const ListDifference &difference, const QVector<Update> &updates, const QVector<Rows> &inserted)
    {
        const auto remove = [this](const ListDifference::Range &range) {
            return removeRange(range.first, range.last);
        };
        const auto move = [this](const ListDifference::Move &move) { return moveRow(move.from, move.to); };
        bool isAlive = announceUpdates(updates)
                       && std::all_of(difference.removals.cbegin(), difference.removals.cend(), remove)
                       && std::all_of(difference.moves.cbegin(), difference.moves.cend(), move);
        for (int i = 0; isAlive && i < inserted.size(); ++i) {
            isAlive = insertRange(difference.insertions.at(i).first, inserted.at(i));
        }
        return isAlive;
    }

    bool announceUpdates(const QVector<Update> &updates)
    {
        const QPointer<QObject> self(this);
        return std::all_of(updates.cbegin(), updates.cend(), [&](const Update &update) {
            Q_EMIT dataChanged(index(update.row), index(update.row), update.roles);
            return !self.isNull();
        });
    }

    bool removeRange(int first, int last)
    {
        const QPointer<QObject> self(this);
        beginRemoveRows({}, first, last);
        m_rows.erase(m_rows.begin() + first, m_rows.begin() + last + 1);
        endRemoveRows();
        return self;
    }

    bool moveRow(int from, int to)
    {
        const QPointer<QObject> self(this);
        beginMoveRows({}, from, from, {}, to);
        m_rows.move(from, from < to ? to - 1 : to);
        endMoveRows();
        return self;
    }

    bool insertRange(int first, const Rows &rows)
    {
        const QPointer<QObject> self(this);
        beginInsertRows({}, first, first + rows.size() - 1);
        m_rows.insert(first, rows.size(), Row());
        std::copy(rows.cbegin(), rows.cend(), m_rows.begin() + first);
        endInsertRows();
        return self;
    }

    Rows m_rows;
};
