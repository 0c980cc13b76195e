// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

class QString;

/// Returns whether Qt knows the locale @p name, such as "fi_FI".
bool isLocale(const QString &name);
