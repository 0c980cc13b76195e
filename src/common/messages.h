// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

/// The fixed texts of what the library logs. The file, path or error concerned follows them, or fills their places.
namespace Messages
{
constexpr char ParsingFile[] = "void PluginRegistry::addEntriesForFile(const QString&)";
constexpr char CannotReadEntries[] = "Can't read entries file";
constexpr char TryingAgain[] = "Can't read all entries files, trying again:";
constexpr char CannotParseJson[] = "Can't parse JSON file or file is empty:";
constexpr char WrongRegistrationFormat[] = "Registration file is in wrong format";
constexpr char PathMissing[] = "Mandatory field \"path\" missing in entry on file";
constexpr char MorePathsMissing[] = "more entries without \"path\" in file";
constexpr char NotInGroup[] = "does not belong to group";
constexpr char DisabledForGroup[] = "disabled for belonging to group";
constexpr char CannotUseCatalog[] = "Can't use translation catalog";
constexpr char CannotReadBlacklist[] = "Can't read favorites blacklist file";
constexpr char WrongBlacklistFormat[] = "Favorites blacklist file is in wrong format";
constexpr char UnknownFilter[] = "Unknown favorites filter type:";
constexpr char PathNotFound[] = "FavoritesModel: path not found";
constexpr char CannotReadFavorites[] = "Can't change favorites, because they can't be read:";
constexpr char TooManyFavorites[] = "Can't change favorites, because the list would be too large:";
constexpr char CannotQueueCall[]
    = "Failed to initialize dbus call to: service=%1 path=%2 interface=%3 method=%4. Error was: %5 %6";
constexpr char CallFailed[]
    = "Failed to send dbus call to: service=%1 path=%2 interface=%3 method=%4. Error was: %5 %6";
constexpr char CannotCallStore[] = "call to com.velka.velkastore failed: ";
constexpr char NoApplicationsSection[] = "ApplicationsSettingsModel could not find applications section";
constexpr char IncorrectUid[] = "Incorrect uid";
constexpr char AllowlistFailed[] = "Failed to get allowlist for uid %1. Error:";
constexpr char AutostartListFailed[] = "Failed to get autostart list for uid %1. Error:";
constexpr char AlwaysAllowedFailed[] = "Failed to get always allowlist. Error:";
constexpr char AppInfoFailed[] = "Couldn't get app info from tarnholdd: ";
constexpr char CannotReadPermissions[] = "Failed to read application desktop file with Permissions";
constexpr char NoPermissionsSection[] = "No valid section is providing Permissions";
constexpr char HidePromptFailed[] = "Failed to hide prompt";
constexpr char GrantFailed[] = "Failed to set granted permissions";
constexpr char TooLargeToSend[] = "Too large to be sent to a service:";
constexpr char NotAdding[] = "Not adding";
constexpr char PermissionsNotGranted[] = "to autostart since permissions not granted";
constexpr char NotificationsListFailed[] = "Failed to get notifications configs list. Error:";
constexpr char NotificationsSetFailed[] = "Failed to set notifications config for %1. Error:";
constexpr char NoApplication[] = "Cant find application: %1";
constexpr char UnknownConfig[] = "Unknown config changed:";
constexpr char SourceIsUser[] = "UserApplicationsFilterModel: the source model uses this model";
constexpr char SourceIsOwn[] = "StableListModel: the source model uses this model";
constexpr char AddressRefused[] = "AddressRequests: refused";
constexpr char NameNotOwned[] = "AddressRequests: can't get the name";
constexpr char CannotShowPage[] = "EntryPage: can't show the page of";
constexpr char PageIsNoFile[] = "\"source\" is not the absolute path of a file";
constexpr char PageIsNoItem[] = "the page is not an Item";
constexpr char PageIsDeleted[] = "the page was deleted";
constexpr char NoPage[] = "SettingsNavigation: there is no page for";
constexpr char WrongNavigationState[] = "SettingsNavigation: not a saved state";
constexpr char NoTree[] = "Cannot resolve object for a path without valid tree";
}
