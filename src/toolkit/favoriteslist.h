// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "models/storedfavorites.h"

#include <QObject>
#include <QSet>
#include <QSharedPointer>
#include <QStringList>

/// The favourites in one dconf key, shared by all entries that use that key. It notifies those whose path came or went.
class FavoritesList : public QObject
{
    Q_OBJECT

public:
    static QSharedPointer<FavoritesList> ofKey(const QString &key);

    bool contains(const QString &path) const;
    /**
     * Appends @p path to the stored list, or removes each one from it, after setting the flag in the dconf key
     * @p userModifiedKey, unless that is empty. Does neither, with a warning, if the list refuses the edit.
     */
    void setFavorite(const QString &path, bool isFavorite, const QString &userModifiedKey);

private:
    explicit FavoritesList(const QString &key);

    void notifyEntries();

    StoredFavorites m_stored;
    QSet<QString> m_paths; ///< as the entries know them
};
