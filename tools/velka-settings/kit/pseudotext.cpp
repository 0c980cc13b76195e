// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "pseudotext.h"

#include <QRegularExpression>
#include <QString>

namespace
{
const QString s_letters = QStringLiteral("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ");
const QString s_accented = QStringLiteral("áƀçđéƒĝĥíĵķłɱñóþǫŕšţúṽŵẋýžÁƁÇĐÉƑĜĤÍĴĶŁṀÑÓÞǪŔŠŢÚṼŴẊÝŽ");

QString accented(QString text)
{
    for (QChar &letter : text) {
        const int index = s_letters.indexOf(letter);
        letter = index < 0 ? letter : s_accented.at(index);
    }
    return text;
}

/// Returns @p text with accents, except in the places of arguments.
QString accentedAroundArguments(const QString &text)
{
    static const QRegularExpression argument(QStringLiteral("%L?(?:[0-9]{1,2}|n)"));
    QString result;
    int end = 0;
    for (auto matches = argument.globalMatch(text); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        result += accented(text.mid(end, match.capturedStart() - end)) + match.captured();
        end = match.capturedEnd();
    }
    return result + accented(text.mid(end));
}
}

QString pseudoText(const QString &text, bool isMirrored)
{
    constexpr QChar RightToLeftOverride(0x202e);
    constexpr QChar PopDirectionalFormatting(0x202c);
    if (text.isEmpty()) {
        return text;
    }
    const QString padding(qMax(2, text.size() * 2 / 5), QLatin1Char('~'));
    const QString pseudo = QLatin1Char('[') + accentedAroundArguments(text) + QLatin1Char(' ') + padding
                           + QLatin1Char(']');
    return isMirrored ? RightToLeftOverride + pseudo + PopDirectionalFormatting : pseudo;
}
