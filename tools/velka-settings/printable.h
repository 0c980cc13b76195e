// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

class QString;

/// Returns @p text with escapes in place of invisible characters and of those that control a terminal: "\u{1b}".
QString printable(const QString &text);
