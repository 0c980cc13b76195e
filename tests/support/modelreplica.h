// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QAbstractListModel>
#include <QIdentityProxyModel>
#include <QVector>

/**
 * A copy of a list model's rows that is only updated by the model's signals. isEqual() is true as long as the signals
 * announce all changes.
 */
class ModelReplica : public QObject
{
    Q_OBJECT

public:
    ModelReplica(const QAbstractItemModel *model, int role);

    bool isEqual() const;

private:
    QVector<QVariant> read(int first, int last) const;
    QVector<QVariant> readAll() const;
    void insertRows(int first, int last);
    void removeRows(int first, int last);
    void moveRows(int first, int last, int destination);
    void changeRows(int first, int last);

    const QAbstractItemModel *const m_model;
    const int m_role;
    QVector<QVariant> m_rows;
};

/**
 * Lets QAbstractItemModelTester check the list models for QML. Their row count ignores the parent index, which the
 * tester takes for children of every row, and they may return an int for Qt's own roles.
 */
class FlatProxy : public QIdentityProxyModel
{
    Q_OBJECT

public:
    using QIdentityProxyModel::QIdentityProxyModel;
    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
};
