// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QHash>
#include <QString>
#include <QVector>

/// The types of the nodes of an index as numbers of 16 bits. A type has its number as long as a node has the type.
class TypeNumbers
{
public:
    /// The number of all types that do not fit.
    static constexpr quint16 None = 0xFFFF;

    /// Returns the number of @p type, for one more node.
    quint16 acquire(const QString &type);
    /// A node no longer has the type with @p number.
    void release(quint16 number);

    QString type(quint16 number) const; ///< empty for None
    int numberOf(const QString &type) const; ///< -1 for a type that no node has

private:
    struct Type {
        QString name;
        int nodes = 0;
    };

    QVector<Type> m_types;
    QVector<quint16> m_unused;
    QHash<QString, quint16> m_numbers;
};
