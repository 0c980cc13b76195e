// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "search/folding.h"

#include <algorithm>

namespace
{
struct Replacement {
    ushort letter;
    const char *plain; ///< UTF-8
};

/// Letters in lower case that do not decompose, in ascending order.
const Replacement s_replacements[] = {
    {0x00DF, "ss"}, // ß
    {0x00E6, "ae"}, // æ
    {0x00F0, "d"}, // ð
    {0x00F8, "o"}, // ø
    {0x00FE, "th"}, // þ
    {0x0111, "d"}, // đ
    {0x0127, "h"}, // ħ
    {0x0131, "i"}, // ı
    {0x0138, "k"}, // ĸ
    {0x0142, "l"}, // ł
    {0x014B, "n"}, // ŋ
    {0x0153, "oe"}, // œ
    {0x0167, "t"}, // ŧ
    {0x0180, "b"}, // ƀ
    {0x0188, "c"}, // ƈ
    {0x0192, "f"}, // ƒ
    {0x0199, "k"}, // ƙ
    {0x01B4, "y"}, // ƴ
    {0x0253, "b"}, // ɓ
    {0x0254, "o"}, // ɔ
    {0x0256, "d"}, // ɖ
    {0x0257, "d"}, // ɗ
    {0x0259, "e"}, // ə
    {0x025B, "e"}, // ɛ
    {0x0268, "i"}, // ɨ
    {0x0289, "u"}, // ʉ
    {0x0491, "г"}, // ґ
    {0x0629, "ه"}, // ة
    {0x0649, "ي"}, // ى
    {0x06A9, "ك"}, // ک
    {0x06C1, "ه"}, // ہ
    {0x06CC, "ي"}, // ی
};

bool isAscii(const QString &text)
{
    return std::all_of(text.cbegin(), text.cend(), [](QChar c) { return c.unicode() < 0x80; });
}

/// A soft hyphen, a joiner, a mark of direction or the like, or the stroke that lengthens Arabic words.
bool isInvisible(QChar c)
{
    constexpr QChar Tatweel(0x0640);
    return c.category() == QChar::Other_Format || c == Tatweel;
}

bool isMark(QChar c)
{
    return c.category() == QChar::Mark_NonSpacing || c.category() == QChar::Mark_Enclosing;
}

const Replacement *replacementOf(QChar c)
{
    const auto *const found = std::lower_bound(
        std::begin(s_replacements), std::end(s_replacements), c.unicode(),
        [](const Replacement &r, ushort letter) { return r.letter < letter; });
    return found != std::end(s_replacements) && found->letter == c.unicode() ? found : nullptr;
}
}

QString lowered(const QString &text)
{
    if (isAscii(text)) {
        return text.toLower();
    }
    QString lower = text.normalized(QString::NormalizationForm_KD).toCaseFolded();
    lower.truncate(int(std::remove_if(lower.begin(), lower.end(), isInvisible) - lower.begin()));
    return lower;
}

QString folded(const QString &lowered)
{
    if (isAscii(lowered)) {
        return lowered;
    }
    QString plain;
    plain.reserve(lowered.size());
    for (const QChar c : lowered) {
        if (const Replacement *replacement = replacementOf(c)) {
            plain += QString::fromUtf8(replacement->plain);
        } else if (!isMark(c)) {
            plain += c;
        }
    }
    return plain;
}
