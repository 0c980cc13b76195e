// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QString>

/// Returns @p text in decomposed form and lower case, without invisible characters. Marks and letters stay as typed.
QString lowered(const QString &text);

/// Returns @p lowered, such a text, without marks and with plain letters in place of those that have one: "ß" is "ss".
QString folded(const QString &lowered);
