// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QString>

#include <sys/types.h>

#include <functional>
#include <optional>

/// The places that registration files and what belongs to them are read from, and the user they are read for.
struct EntrySources {
    /// The places of this system, for the user of this process.
    static EntrySources ofSystem();

    uid_t userId() const;
    bool userHasGroup(const QString &group) const;

    QString entriesDirectory;
    QString translationsDirectory;
    QString favoritesBlacklistFile;
    std::optional<uid_t> user; ///< without it the effective user at the time of each call
    std::function<bool(uid_t user, const QString &group)> isMember;
};
