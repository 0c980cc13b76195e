// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// The application id for a desktop file id: without any ".desktop".
QString applicationId(const QString &fileId);

/**
 * The desktop file of an application in the standard application directories, the user's first: the one that the id
 * names as it stands, and only if there is none, one in a sub-directory for which a "-" stands. An id with a "/" has no
 * such dashes. Empty when there is none, and for an id with a component "..".
 */
QString locateDesktopFile(const QString &applicationId);

/**
 * The permissions that an application's desktop file asks for: "Permissions" of group "X-Application", else of group
 * "X-Tarnhold", names with ";" between them, empty ones kept: an empty value is one empty name. Nothing, with a warning,
 * when the file cannot be read; an empty list, with a message, when it asks for none.
 */
std::optional<QStringList> requestedPermissions(const QString &applicationId);
