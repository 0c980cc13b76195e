// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

import com.velka.settings 1.0

/// The model of favourites with the demo's user-modified key.
FavoritesModel {
    userModifiedKey: "/apps/velka-settings/favoritesUserModified"
}
