// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "registry/nodedata.h"

#include <QByteArray>
#include <QExplicitlySharedDataPointer>
#include <QHash>
#include <QModelIndex>
#include <QPointer>
#include <QSharedData>
#include <QVariant>
#include <QVector>

/// The roles of a list model.
struct ListRoles {
    QHash<int, QByteArray> names;
    QVector<int> numbers;
    int key = -1; ///< the role whose values identify rows
};

/// A copy of a row: what was announced last, also while its model changes or after it is deleted.
class ListRow : public QSharedData
{
public:
    using Pointer = QExplicitlySharedDataPointer<ListRow>;

    ListRow(const QModelIndex &source, const ListRoles &roles);

    QString key() const;
    /// Returns true if the row has its key from @p object. False for null.
    bool hasObject(const QObject *object) const;
    /// Returns the value of the role at @p position among the numbers, a null object for a deleted one.
    QVariant value(int position) const;
    /// Copies the values again. Returns the roles whose values were others.
    QVector<int> update(const QModelIndex &source, const ListRoles &roles);

private:
    bool setValue(int position, const QVariant &value);

    QString m_key;
    QPointer<QObject> m_object;
    QVector<QVariant> m_values; ///< objects as QPointer
    NodeData m_entry; ///< of the node among the values: it may get other data and stay
};

/// Returns the object that @p value points to, null for other values.
QObject *objectOf(const QVariant &value);
/// Returns the key of a row whose key role has @p value: the location of an entry, the file of an application, else the
/// text of the value.
QString keyOf(const QVariant &value);
