// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "finding.h"

#include "printable.h"

namespace Check
{
QString abridged(const QString &text)
{
    constexpr int MaxLength = 80;
    if (text.size() <= MaxLength) {
        return printable(text);
    }
    const bool splitsPair = text.at(MaxLength - 1).isHighSurrogate();
    return printable(text.left(splitsPair ? MaxLength - 1 : MaxLength)) + QStringLiteral("…");
}

QString quoted(const QString &text)
{
    return QLatin1Char('"') + abridged(text) + QLatin1Char('"');
}
}
