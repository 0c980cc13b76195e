// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "common/constants.h"

namespace Constants
{
const QString EntriesDirectory = QStringLiteral("/usr/share/velka-settings/entries");
const QString FavoritesBlacklistFile = QStringLiteral("/usr/share/velka-settings/favorites-blacklist.json");
const QString TranslationsDirectory = QStringLiteral("/usr/share/translations/");

const QString MaskedSettingsKey = QStringLiteral("/apps/velka-settings/maskedSettings");
const QString FavoritesKey = QStringLiteral("/apps/velka-settings/favorites");

const QString StoreService = QStringLiteral("com.velka.velkastore");
const QString StorePath = QStringLiteral("/StoreClient");
const QString StoreInterface = QStringLiteral("com.velka.velkastore");

const QString ApplicationsSection = QStringLiteral("applications");
const QString DesktopSuffix = QStringLiteral(".desktop");

const QString SandboxingService = QStringLiteral("org.orvantaos.tarnholdd1");
const QString SandboxingPath = QStringLiteral("/org/orvantaos/tarnholdd1");
const QString AutostartService = QStringLiteral("com.kelo.RuntimeManager");
const QString AutostartPath = QStringLiteral("/com/kelo/am");
const QString NotificationsService = QStringLiteral("com.kelo.NotificationsConfig1");
const QString NotificationsPath = QStringLiteral("/com/kelo/NotificationsConfig1");

const QString SectionType = QStringLiteral("section");
}
