// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "search/transliteration.h"

#ifdef VELKA_WITH_ICU
#include <QVector>

#include <unicode/utrans.h>

#include <algorithm>

namespace
{
bool isLatin(const QString &text)
{
    return std::all_of(text.cbegin(), text.cend(), [](QChar c) {
        return c.unicode() < 0x80 || !c.isLetter() || c.script() == QChar::Script_Latin;
    });
}

/// Returns null when the data of ICU is missing.
UTransliterator *openTransliterator()
{
    const QString id = QStringLiteral("Any-Latin; NFD; [:Nonspacing Mark:] Remove; Latin-ASCII; Lower");
    UErrorCode error = U_ZERO_ERROR;
    return utrans_openU(reinterpret_cast<const UChar *>(id.utf16()), id.size(), UTRANS_FORWARD, nullptr, 0,
                        nullptr, &error);
}
}

QString inLatinLetters(const QString &lowered)
{
    if (isLatin(lowered)) {
        return {};
    }
    static const UTransliterator *const s_transliterator = openTransliterator();
    if (!s_transliterator) {
        return {};
    }
    constexpr int MostLettersForOne = 8;
    QVector<UChar> buffer(lowered.size() * MostLettersForOne);
    std::copy(lowered.utf16(), lowered.utf16() + lowered.size(), buffer.begin());
    int32_t length = lowered.size();
    int32_t end = length;
    UErrorCode error = U_ZERO_ERROR;
    utrans_transUChars(s_transliterator, buffer.data(), &length, buffer.size(), 0, &end, &error);
    return U_SUCCESS(error) ? QString(reinterpret_cast<const QChar *>(buffer.constData()), length) : QString();
}
#else
QString inLatinLetters(const QString &lowered)
{
    Q_UNUSED(lowered)
    return {};
}
#endif
