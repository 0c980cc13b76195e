// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

/// The fixed texts of what the library logs. The file, path or error concerned follows them.
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
constexpr char NoTree[] = "Cannot resolve object for a path without valid tree";
}
