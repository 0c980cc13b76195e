// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/entrysources.h"

#include "common/constants.h"

#include <orvantaaccesscontrol.h>

#include <unistd.h>

EntrySources EntrySources::ofSystem()
{
    const auto isMember = [](uid_t user, const QString &group) {
        return orvanta_access_control_hasgroup(user, group.toLocal8Bit().constData()) != 0;
    };
    return {Constants::EntriesDirectory,
            Constants::TranslationsDirectory,
            Constants::FavoritesBlacklistFile,
            {},
            isMember};
}

uid_t EntrySources::userId() const
{
    return user ? *user : geteuid();
}

bool EntrySources::userHasGroup(const QString &group) const
{
    return isMember(userId(), group);
}
