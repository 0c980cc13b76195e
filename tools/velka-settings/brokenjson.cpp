// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "brokenjson.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>

namespace
{
/// Where the parser came upon what it objects to. In most cases it has taken that character already.
int offsetOf(const QJsonParseError &error)
{
    const bool isUntaken = error.error == QJsonParseError::GarbageAtEnd
                           || error.error == QJsonParseError::IllegalNumber;
    return isUntaken ? error.offset : qMax(0, error.offset - 1);
}
}

QString BrokenJson::errorOf(const QByteArray &text, const QJsonParseError &error)
{
    const QByteArray before = text.left(offsetOf(error));
    const int line = before.count('\n') + 1;
    const QByteArray lineStart = before.mid(before.lastIndexOf('\n') + 1);
    const int column = QString::fromUtf8(lineStart).toUcs4().size() + 1;
    return QStringLiteral("line %1, column %2: %3").arg(line).arg(column).arg(error.errorString());
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
