// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "common/velkasettings_export.h"

#include <QString>

/// The names that are fixed between this library and the rest of the system.
namespace Constants
{
extern const QString EntriesDirectory;
extern const QString FavoritesBlacklistFile;
extern const QString TranslationsDirectory;

extern const QString MaskedSettingsKey; ///< dconf key, list of entry paths

VELKASETTINGS_PRIVATE_EXPORT extern const QString
    FavoritesKey; ///< dconf key, list of entry paths; the default of FavoritesModel

extern const QString StoreService;
extern const QString StorePath;
extern const QString StoreInterface;

extern const QString ApplicationsSection; ///< the node of the installed applications' settings pages
extern const QString DesktopSuffix;

extern const QString SandboxingService; ///< on the system bus
extern const QString SandboxingPath;
extern const QString AutostartService; ///< on the system bus
extern const QString AutostartPath;
extern const QString NotificationsService; ///< on the session bus
extern const QString NotificationsPath;

extern VELKASETTINGS_PRIVATE_EXPORT const QString SectionType; ///< the type of an entry that names none
}
