// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "printable.h"

#include <QString>
#include <QVector>

QString printable(const QString &text)
{
    QString result;
    result.reserve(text.size());
    const QVector<uint> characters = text.toUcs4();
    for (const char32_t character : characters) {
        if (QChar::isPrint(character)) {
            result += QString::fromUcs4(&character, 1);
        } else {
            result += QStringLiteral("\\u{%1}").arg(uint(character), 0, 16);
        }
    }
    return result;
}
