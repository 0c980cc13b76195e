// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "brokenjson.h"

#include "jsonmistake.h"
#include "place.h"
#include "utf16.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>

namespace
{
QString decoded(const QByteArray &text)
{
    if (!isUtf16(text)) {
        return QString::fromUtf8(text);
    }
    const bool isBigEndian = text.startsWith("\xfe\xff") || text.startsWith('\0');
    QString result;
    for (int i = 0; i + 1 < text.size(); i += 2) {
        const auto first = uchar(text.at(i));
        const auto second = uchar(text.at(i + 1));
        result += isBigEndian ? QChar(second, first) : QChar(first, second);
    }
    return result;
}
}

QString BrokenJson::errorOf(const QByteArray &text, const QJsonParseError &error)
{
    const JsonMistake mistake = jsonMistakeIn(text, error);
    const Place place = PlaceFinder(text).at(mistake.offset);
    return QStringLiteral("line %1, column %2: %3").arg(place.line).arg(place.column).arg(mistake.text);
}

QStringList BrokenJson::paths(const QByteArray &text)
{
    static const QRegularExpression pathKey(QStringLiteral(R"#("path"\s*:\s*("(?:[^"\\\n]|\\.)*"))#"));
    QStringList paths;
    auto matches = pathKey.globalMatch(decoded(text));
    while (matches.hasNext()) {
        const QString literal = matches.next().captured(1);
        const QJsonArray decoded = QJsonDocument::fromJson("[" + literal.toUtf8() + "]").array();
        if (!decoded.isEmpty()) {
            paths.append(decoded.first().toString());
        }
    }
    return paths;
}
