// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// Returns the application id for a desktop file id: the id without ".desktop".
QString applicationId(const QString &fileId);

/**
 * Returns the desktop file of an application in the standard application directories, the user's first. Only if no file
 * has the id as its name, a "-" in it may separate a sub-directory, unless the id contains a "/". Empty if there is no
 * file, and for an id with a component "..".
 */
QString locateDesktopFile(const QString &applicationId);

/**
 * The permissions that an application's desktop file asks for: "Permissions" of group "X-Application", else of group
 * "X-Tarnhold", names with ";" between them, empty ones kept: an empty value is one empty name. Nothing, with a warning,
 * when the file cannot be read; an empty list, with a message, when it asks for none.
 */
std::optional<QStringList> requestedPermissions(const QString &applicationId);
