// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

/// Returns whether @p c is white space in JSON.
inline bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}
