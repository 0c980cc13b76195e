// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

class QString;

/// Returns the path of the object on the bus that the Desktop Entry Specification gives the application @p service.
/// Empty if that is no well-known name.
QString applicationPath(const QString &service);
