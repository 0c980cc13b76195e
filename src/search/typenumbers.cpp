// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "search/typenumbers.h"

quint16 TypeNumbers::acquire(const QString &type)
{
    const auto known = m_numbers.constFind(type);
    if (known != m_numbers.constEnd()) {
        ++m_types[*known].nodes;
        return *known;
    }
    if (m_unused.isEmpty()) {
        if (m_types.size() == None) {
            return None;
        }
        m_unused.append(quint16(m_types.size()));
        m_types.append(Type());
    }
    const quint16 number = m_unused.takeLast();
    m_types[number] = {type, 1};
    m_numbers.insert(type, number);
    return number;
}

void TypeNumbers::release(quint16 number)
{
    if (number == None || --m_types[number].nodes > 0) {
        return;
    }
    m_numbers.remove(m_types.at(number).name);
    m_types[number] = {};
    m_unused.append(number);
}

QString TypeNumbers::type(quint16 number) const
{
    return m_types.value(number).name;
}

int TypeNumbers::numberOf(const QString &type) const
{
    const auto number = m_numbers.constFind(type);
    return number == m_numbers.constEnd() ? -1 : *number;
}
