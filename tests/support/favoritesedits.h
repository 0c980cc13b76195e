// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "watchedfavorites.h"

#include <QMetaType>

#include <functional>

/// An edit of the favourites "a", "b" and "c".
using FavoritesEdit = std::function<void(WatchedFavorites *)>;
Q_DECLARE_METATYPE(FavoritesEdit)

/// Adds one row for each kind of edit, with the column "edit".
void favoritesEdits();

/// Declares the sections "a" to "d" and stores the first three as the user's favourites. Waits for the write.
void storeThreeFavorites();
bool areThreeFavoritesStored(); ///< as this process and others read the key

/// Checks what must work even if nothing can be stored: pages follow the registry.
bool pagesFollowTheRegistry();

/// Counts the warnings that GLib's libraries log during its lifetime, and does not print them.
class GLibWarnings
{
public:
    GLibWarnings();
    ~GLibWarnings();
    GLibWarnings(const GLibWarnings &) = delete;
    GLibWarnings &operator=(const GLibWarnings &) = delete;

    static int count();
};
