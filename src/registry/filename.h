// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

class QString;

/// Returns whether a file can have @p name. QTranslator looks for a name that is too long in ever shorter forms, which
/// takes hours, and logs several warnings about one that holds a null character.
bool isFileName(const QString &name);
