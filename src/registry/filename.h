// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

class QString;

/// Returns true if a file can have @p name. QTranslator searches for shorter and shorter forms of a name that is too
/// long, which takes hours, and logs several warnings about a name with a null character.
bool isFileName(const QString &name);
