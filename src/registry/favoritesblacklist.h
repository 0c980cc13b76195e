// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "common/velkasettings_export.h"

#include <QSet>
#include <QString>

/**
 * Returns the entry paths of /usr/share/velka-settings/favorites-blacklist.json: the strings of a JSON array; elements
 * of other types are skipped. Reads the file at each call. Empty, with one warning in the default logging category,
 * when the file is missing, is not JSON or not an array.
 */
VELKASETTINGS_EXPORT QSet<QString> readFavoritesBlacklist();
