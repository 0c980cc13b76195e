// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

class QString;

/// Returns @p text for the test of a page: readable, but longer and with accents. In a mirrored one, the letters run
/// from right to left. The places of arguments, such as %1, stay.
QString pseudoText(const QString &text, bool isMirrored);
