// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "common/messagesize.h"

namespace
{
// Around each text: its length, the null at its end, and what aligns the next one.
constexpr qint64 BytesBesideText = 8;
constexpr int MaxBytesOfUnit = 3; ///< of UTF-8 for a unit of UTF-16

template<typename BytesOf>
bool fits(const QStringList &texts, const BytesOf &bytesOf)
{
    qint64 bytes = 0;
    for (const QString &text : texts) {
        bytes += bytesOf(text) + BytesBesideText;
    }
    return bytes <= MaxMessageBytes;
}
}

bool fitsIntoMessage(const QStringList &texts)
{
    // Hardly any list needs the exact size, which takes longer.
    return fits(texts, [](const QString &text) { return qint64(text.size()) * MaxBytesOfUnit; })
           || fits(texts, [](const QString &text) { return text.toUtf8().size(); });
}
