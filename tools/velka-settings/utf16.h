// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QByteArray>

/// Returns whether @p text, which is meant to be JSON, is encoded in UTF-16.
inline bool isUtf16(const QByteArray &text)
{
    return text.startsWith("\xff\xfe") || text.startsWith("\xfe\xff") || text.left(2).contains('\0');
}
