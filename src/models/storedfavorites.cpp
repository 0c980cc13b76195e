// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "models/storedfavorites.h"

StoredFavorites::StoredFavorites(const QString &key)
    : m_item(key)
{
    connect(&m_item, &MGConfItem::valueChanged, this, &StoredFavorites::valueChanged);
}

QStringList StoredFavorites::read() const
{
    return m_item.value().toStringList();
}

bool StoredFavorites::contains(const QString &path) const
{
    if (!m_paths) {
        const QStringList paths = read();
        m_paths.emplace(paths.cbegin(), paths.cend());
    }
    return m_paths->contains(path);
}

void StoredFavorites::write(const QStringList &paths)
{
    m_paths.reset();
    m_item.set(paths);
}

void StoredFavorites::valueChanged()
{
    m_paths.reset();
    Q_EMIT changed();
}
