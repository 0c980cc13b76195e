// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

class QByteArray;
class QString;

/// Returns @p text with escapes in place of invisible characters and of those that control a terminal, end a line or set
/// the direction of text: "\u{1b}".
QString printable(const QString &text);
/// Returns @p json, a whole document, with JSON's own escapes in place of these characters.
QByteArray printableJson(const QByteArray &json);
