// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "finding.h"

namespace Check
{
namespace
{
constexpr int LongestText = 80;

bool isPair(const QString &text, int i)
{
    return text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
}
}

QString printable(const QString &text)
{
    QString result;
    for (int i = 0; i < text.size() && result.size() < LongestText; ++i) {
        const QChar c = text.at(i);
        if (isPair(text, i)) {
            result += c;
            result += text.at(++i);
        } else if (c.isPrint()) {
            result += c;
        } else {
            result += QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
        }
    }
    return text.size() > LongestText && result.size() >= LongestText ? result + QStringLiteral("…") : result;
}

QString quoted(const QString &text)
{
    return QLatin1Char('"') + printable(text) + QLatin1Char('"');
}
}
