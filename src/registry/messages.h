// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

/// The fixed texts of what the library logs. The file, path or error concerned follows them, or fills their places.
namespace Messages
{
constexpr char ParsingFile[] = "void PluginRegistry::addEntriesForFile(const QString&)";
constexpr char CannotReadEntries[] = "Can't read entries file";
constexpr char CannotParseJson[] = "Can't parse JSON file or file is empty:";
constexpr char WrongRegistrationFormat[] = "Registration file is in wrong format";
constexpr char PathMissing[] = "Mandatory field \"path\" missing in entry on file";
constexpr char NotInGroup[] = "does not belong to group";
constexpr char DisabledForGroup[] = "disabled for belonging to group";
constexpr char CannotReadBlacklist[] = "Can't read favorites blacklist file";
constexpr char WrongBlacklistFormat[] = "Favorites blacklist file is in wrong format";
constexpr char UnknownFilter[] = "Unknown favorites filter type:";
constexpr char PathNotFound[] = "FavoritesModel: path not found";
constexpr char CannotQueueCall[]
    = "Failed to initialize dbus call to: service=%1 path=%2 interface=%3 method=%4. Error was: %5 %6";
constexpr char CallFailed[]
    = "Failed to send dbus call to: service=%1 path=%2 interface=%3 method=%4. Error was: %5 %6";
constexpr char CannotCallStore[] = "call to com.velka.velkastore failed: ";
constexpr char NoTree[] = "Cannot resolve object for a path without valid tree";
}
