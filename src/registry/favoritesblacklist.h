// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "common/velkasettings_export.h"

#include <QSet>
#include <QString>

/**
 * The entry paths of /usr/share/velka-settings/favorites-blacklist.json, read anew at each call: the strings of a
 * JSON array; elements of other types are skipped. Empty, with one warning in the default logging category, when
 * the file is missing, is no JSON or is no array.
 */
VELKASETTINGS_EXPORT QSet<QString> readFavoritesBlacklist();
