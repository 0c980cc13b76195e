// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "brokenjson.h"

#include "place.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>

QString BrokenJson::errorOf(const QByteArray &text, const QJsonParseError &error)
{
    const Place place = PlaceFinder(text).at(offsetOfError(text, error));
    return QStringLiteral("line %1, column %2: %3").arg(place.line).arg(place.column).arg(error.errorString());
}

QStringList BrokenJson::paths(const QByteArray &text)
{
    static const QRegularExpression pathKey(QStringLiteral(R"#("path"\s*:\s*("(?:[^"\\\n]|\\.)*"))#"));
    QStringList paths;
    auto matches = pathKey.globalMatch(QString::fromUtf8(text));
    while (matches.hasNext()) {
        const QString literal = matches.next().captured(1);
        const QJsonArray decoded = QJsonDocument::fromJson("[" + literal.toUtf8() + "]").array();
        if (!decoded.isEmpty()) {
            paths.append(decoded.first().toString());
        }
    }
    return paths;
}
