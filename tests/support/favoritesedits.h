// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "watchedfavorites.h"

#include <QMetaType>

#include <functional>

/// Something that a user does to the favourites "a", "b" and "c".
using FavoritesEdit = std::function<void(WatchedFavorites *)>;
Q_DECLARE_METATYPE(FavoritesEdit)

/// One row for each kind of edit: the column "edit".
void favoritesEdits();

/// Declares the sections "a" to "d" and stores the first three as the user's favourites, for all processes to see.
void storeThreeFavorites();
bool areThreeFavoritesStored(); ///< in this process and for others

/// What still has to work when nothing can be stored: pages follow the registry.
bool pagesFollowTheRegistry();

/// Counts the warnings that GLib's libraries log while it lives, and keeps them off the terminal.
class GLibWarnings
{
public:
    GLibWarnings();
    ~GLibWarnings();
    GLibWarnings(const GLibWarnings &) = delete;
    GLibWarnings &operator=(const GLibWarnings &) = delete;

    static int count();
};
