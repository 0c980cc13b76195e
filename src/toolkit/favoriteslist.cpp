// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "toolkit/favoriteslist.h"

#include "common/stringset.h"
#include "models/pathlist.h"
#include "toolkit/entrywatcher.h"
#include "toolkit/settingsentry.h"

#include <mgconfitem.h>

#include <QHash>
#include <QPointer>

#include <algorithm>
#include <iterator>
#include <utility>

QSharedPointer<FavoritesList> FavoritesList::ofKey(const QString &key)
{
    static QHash<QString, QWeakPointer<FavoritesList>> lists;
    QSharedPointer<FavoritesList> list = lists.value(key);
    if (!list) {
        // Its last entry may be deleted in the middle of a notification.
        list = QSharedPointer<FavoritesList>(new FavoritesList(key), &QObject::deleteLater);
        lists.insert(key, list);
    }
    return list;
}

FavoritesList::FavoritesList(const QString &key)
    : m_stored(key, this)
    , m_paths(toSet(m_stored.read()))
{
    connect(&m_stored, &StoredFavorites::changed, this, &FavoritesList::notifyEntries);
}

bool FavoritesList::contains(const QString &path) const
{
    return m_stored.contains(path);
}

void FavoritesList::setFavorite(const QString &path, bool isFavorite, const QString &userModifiedKey)
{
    const StoredFavorites::Edit edit = [&](const QStringList &paths) {
        return isFavorite ? PathList::appended(paths, path) : PathList::removedAll(paths, path);
    };
    if (!m_stored.accepts(edit)) {
        return;
    }
    if (!userModifiedKey.isEmpty()) {
        MGConfItem(userModifiedKey).set(true);
    }
    m_stored.apply(edit);
}

void FavoritesList::notifyEntries()
{
    const QSet<QString> paths = toSet(m_stored.read());
    const QSet<QString> before = std::exchange(m_paths, paths);
    QVector<QPointer<SettingsEntry>> entries;
    const QSet<QString> changed = (paths - before) + (before - paths);
    for (const QString &path : changed) {
        const auto watching = EntryWatcher::instance()->entriesAt(path.split(QLatin1Char('/')));
        std::copy(watching.cbegin(), watching.cend(), std::back_inserter(entries));
    }
    for (const QPointer<SettingsEntry> &entry : qAsConst(entries)) {
        if (entry) {
            entry->updateFavorite();
        }
    }
}

#include "moc_favoriteslist.cpp"
