// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QString>

/// Returns @p lowered, a word in lower case, in Latin letters without marks, or an empty text when it is in Latin
/// letters already or the library was built without transliteration. There can be spaces between syllables.
QString inLatinLetters(const QString &lowered);
