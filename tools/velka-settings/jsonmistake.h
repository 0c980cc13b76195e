// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QString>

class QByteArray;
struct QJsonParseError;

/// What makes a text no JSON: where to correct it, and how.
struct JsonMistake {
    enum Kind { Syntax, Encoding, Nesting };
    int offset; ///< of a byte in the text
    QString text;
    Kind kind = Syntax;
};

/// Returns the first mistake in @p text, which Qt's parser rejected with @p error.
JsonMistake jsonMistakeIn(const QByteArray &text, const QJsonParseError &error);
