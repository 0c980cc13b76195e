// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "models/storedfavorites.h"

#include <mgconfitem.h>

StoredFavorites::StoredFavorites(const QString &key, QObject *owner)
    : m_key(key)
    , m_item(new MGConfItem(key, owner))
    , m_shown(read())
{
    connect(m_item, &MGConfItem::valueChanged, this, &StoredFavorites::valueChanged);
}

StoredFavorites::~StoredFavorites()
{
    delete m_item;
}

QStringList StoredFavorites::read() const
{
    return m_item ? m_item->value().toStringList() : MGConfItem(m_key).value().toStringList();
}

bool StoredFavorites::contains(const QString &path) const
{
    // As long as the value stays the same, the item hands out the same list.
    const QStringList paths = read();
    if (!paths.isSharedWith(m_indexed)) {
        m_indexed = paths;
        m_paths = QSet<QString>(paths.cbegin(), paths.cend());
    }
    return m_paths.contains(path);
}

void StoredFavorites::apply(const Edit &edit)
{
    write(edit(read()));
}

void StoredFavorites::applyShown(const Edit &edit)
{
    const QStringList before = read();
    const QStringList after = edit(before);
    if (before == m_shown) { // else a change is still to be announced
        m_shown = after;
    }
    write(after);
}

void StoredFavorites::write(const QStringList &paths)
{
    if (m_item) {
        m_item->set(paths);
    } else { // it died with its owner in the middle of an edit
        MGConfItem(m_key).set(paths);
    }
}

void StoredFavorites::valueChanged()
{
    QStringList paths = read();
    if (paths != m_shown) {
        m_shown = paths;
        Q_EMIT changed();
    }
}
