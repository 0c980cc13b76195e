// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "excerpt.h"

#include <QByteArray>

#include <algorithm>
#include <string>

namespace Check
{
namespace
{
constexpr int MaxBefore = 60; // bytes
constexpr int MaxAfter = 40;

bool isContinuation(char c)
{
    return (uchar(c) & 0xC0U) == 0x80U;
}

char32_t visible(char32_t character)
{
    if (QChar::isSpace(character)) {
        return U' ';
    }
    return QChar::isPrint(character) ? character : char32_t(QChar::ReplacementCharacter);
}

/// Returns @p utf8 with a visible character or a blank for each of its characters.
QString withoutControls(const QByteArray &utf8)
{
    std::u32string characters = QString::fromUtf8(utf8).toStdU32String();
    std::transform(characters.begin(), characters.end(), characters.begin(), visible);
    return QString::fromStdU32String(characters);
}
}

Excerpt excerptAt(const QByteArray &text, int offset)
{
    const int place = qBound(0, offset, text.size());
    int start = place;
    while (start > 0 && text.at(start - 1) != '\n'
           && (place - start < MaxBefore || isContinuation(text.at(start)))) {
        --start;
    }
    int end = place;
    while (end < text.size() && text.at(end) != '\n' && (end - place < MaxAfter || isContinuation(text.at(end)))) {
        ++end;
    }
    const bool isCutBefore = start > 0 && text.at(start - 1) != '\n';
    const bool isCutAfter = end < text.size() && text.at(end) != '\n';
    QString before = withoutControls(text.mid(start, place - start));
    QString after = withoutControls(text.mid(place, end - place));
    while (after.endsWith(QLatin1Char(' '))) {
        after.chop(1);
    }
    int indent = 0;
    while (!isCutBefore && indent < before.size() && before.at(indent) == QLatin1Char(' ')) {
        ++indent;
    }
    before.remove(0, indent);
    before.prepend(isCutBefore ? QStringLiteral("…") : QString());
    return {before + after + (isCutAfter ? QStringLiteral("…") : QString()), before.size()};
}
}
