// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QString>

#include <algorithm>

/// Returns whether a catalog (*.ts) can have @p id: lupdate writes ids without escapes of XML.
inline bool isWritableId(const QString &id)
{
    return std::none_of(id.cbegin(), id.cend(), [](QChar character) {
        return character < QLatin1Char(' ') || QStringLiteral("&<\"").contains(character);
    });
}
