// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "modelreplica.h"

#include <algorithm>

ModelReplica::ModelReplica(const QAbstractItemModel *model, int role)
    : m_model(model)
    , m_role(role)
    , m_rows(readAll())
{
    connect(model, &QAbstractItemModel::modelReset, this, [this] { m_rows = readAll(); });
    connect(model, &QAbstractItemModel::layoutChanged, this, [this] { m_rows = readAll(); });
    connect(model, &QAbstractItemModel::rowsInserted, this,
            [this](const QModelIndex &, int first, int last) { insertRows(first, last); });
    connect(model, &QAbstractItemModel::rowsRemoved, this,
            [this](const QModelIndex &, int first, int last) { removeRows(first, last); });
    connect(model, &QAbstractItemModel::rowsMoved, this,
            [this](const QModelIndex &, int first, int last, const QModelIndex &, int destination) {
                moveRows(first, last, destination);
            });
    connect(model, &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex &first, const QModelIndex &last) { changeRows(first.row(), last.row()); });
}

bool ModelReplica::isEqual() const
{
    return m_rows == readAll();
}

QVector<QVariant> ModelReplica::read(int first, int last) const
{
    QVector<QVariant> values;
    for (int row = first; row <= last; ++row) {
        values.append(m_model->index(row, 0).data(m_role));
    }
    return values;
}

QVector<QVariant> ModelReplica::readAll() const
{
    return read(0, m_model->rowCount() - 1);
}

void ModelReplica::insertRows(int first, int last)
{
    m_rows = m_rows.mid(0, first) + read(first, last) + m_rows.mid(first);
}

void ModelReplica::removeRows(int first, int last)
{
    m_rows.remove(first, last - first + 1);
}

void ModelReplica::moveRows(int first, int last, int destination)
{
    const auto begin = m_rows.begin();
    if (destination > last) {
        std::rotate(begin + first, begin + last + 1, begin + destination);
    } else {
        std::rotate(begin + destination, begin + first, begin + last + 1);
    }
}

void ModelReplica::changeRows(int first, int last)
{
    const QVector<QVariant> values = read(first, last);
    std::copy(values.cbegin(), values.cend(), m_rows.begin() + first);
}

int FlatProxy::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : QIdentityProxyModel::rowCount(parent);
}

QVariant FlatProxy::data(const QModelIndex &index, int role) const
{
    return role < Qt::UserRole ? QVariant() : QIdentityProxyModel::data(index, role);
}
