// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QPointer>
#include <QVariant>

#include <utility>
#include <vector>

/// Emits the change signals of an object's properties whose values differ from those that were announced last.
template<typename Object>
class PropertyAnnouncer
{
public:
    struct Property {
        void (Object::*changed)();
        QVariant (*read)(const Object &object);
    };

    /// The values that @p object has now count as announced.
    PropertyAnnouncer(const Object &object, std::vector<Property> properties)
        : m_properties(std::move(properties))
    {
        for (const Property &property : m_properties) {
            m_announced.push_back(property.read(object));
        }
    }

    /// Handlers may change the values again, or delete @p object, which owns this.
    void announce(Object *object)
    {
        const QPointer<Object> self(object);
        for (std::size_t i = 0; self && i < m_properties.size(); ++i) {
            const QVariant value = m_properties[i].read(*object);
            if (std::exchange(m_announced[i], value) != value) {
                Q_EMIT(object->*m_properties[i].changed)();
            }
        }
    }

private:
    const std::vector<Property> m_properties;
    std::vector<QVariant> m_announced;
};
