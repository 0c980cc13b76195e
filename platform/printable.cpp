// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "printable.h"

#include <QByteArray>
#include <QString>
#include <QVector>

namespace
{
bool isPrintable(char32_t character)
{
    const QChar::Category category = QChar::category(character);
    return QChar::isPrint(character) && category != QChar::Separator_Line
           && category != QChar::Separator_Paragraph;
}

template<typename Escape>
QString escaped(const QString &text, const Escape &escape)
{
    QString result;
    result.reserve(text.size());
    const QVector<uint> characters = text.toUcs4();
    for (const char32_t character : characters) {
        result += isPrintable(character) ? QString::fromUcs4(&character, 1) : escape(character);
    }
    return result;
}

QString jsonEscape(ushort unit)
{
    return QStringLiteral("\\u%1").arg(uint(unit), 4, 16, QLatin1Char('0'));
}

QString escapedForJson(char32_t character)
{
    if (character == U'\n') {
        return QStringLiteral("\n"); // of the layout: in strings it is escaped already
    }
    if (QChar::requiresSurrogates(character)) {
        return jsonEscape(QChar::highSurrogate(character)) + jsonEscape(QChar::lowSurrogate(character));
    }
    return jsonEscape(ushort(character));
}
}

QString printable(const QString &text)
{
    return escaped(text, [](char32_t character) { return QStringLiteral("\\u{%1}").arg(uint(character), 0, 16); });
}

QByteArray printableJson(const QByteArray &json)
{
    return escaped(QString::fromUtf8(json), escapedForJson).toUtf8();
}
