// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QString>

class QByteArray;
struct QJsonParseError;

/// A mistake because of which a text is not JSON: its place, and how to correct it.
struct JsonMistake {
    enum Kind { Syntax, Encoding, Nesting };
    int offset; ///< of a byte in the text
    QString text;
    Kind kind = Syntax;
};

/// Returns the first mistake in @p text, which Qt's parser rejected with @p error.
JsonMistake jsonMistakeIn(const QByteArray &text, const QJsonParseError &error);
