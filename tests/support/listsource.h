// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QAbstractListModel>
#include <QByteArray>
#include <QHash>
#include <QVector>

/// A model of rows that a test changes one by one, or all of them in a reset.
class ListSource : public QAbstractListModel
{
    Q_OBJECT

public:
    enum Role { KeyRole = Qt::UserRole + 1, ValueRole, ObjectRole };
    struct Row {
        QString key;
        int value = 0;
        QObject *object = nullptr;
    };
    using Rows = QVector<Row>;

    /// Returns rows with the @p letters as keys.
    static Rows rows(const QByteArray &letters);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    void reset(const Rows &rows);
    void insert(int row, const Row &value);
    void remove(int row);
    void move(int from, int to);
    void change(int row, const Row &value);
    void sortByKey(); ///< as a change of the layout

    QHash<int, QByteArray> m_names{{KeyRole, "key"}, {ValueRole, "value"}, {ObjectRole, "object"}};

private:
    Rows m_rows;
};
