// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QByteArray>
#include <QHash>
#include <QVariant>

#include <initializer_list>
#include <vector>

/// The roles of a model's rows: number, name and reader of each, in one place. A reader gets the model and the row's item.
template<typename Model, typename Item>
class RoleTable
{
public:
    struct Role {
        int number;
        const char *name;
        QVariant (*read)(const Model &model, Item &item);
    };

    RoleTable(std::initializer_list<Role> roles)
        : m_roles(roles)
    {
    }

    /// The value of @p role, @p unknown when the table does not have it.
    QVariant read(int role, const Model &model, Item &item, const QVariant &unknown = {}) const
    {
        for (const Role &entry : m_roles) {
            if (entry.number == role) {
                return entry.read(model, item);
            }
        }
        return unknown;
    }

    QHash<int, QByteArray> names() const
    {
        QHash<int, QByteArray> names;
        for (const Role &entry : m_roles) {
            names.insert(entry.number, entry.name);
        }
        return names;
    }

private:
    const std::vector<Role> m_roles;
};
