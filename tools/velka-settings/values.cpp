// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "values.h"

#include "printable.h"

#include <QJsonArray>
#include <QJsonDocument>

QString Values::toText(const QJsonValue &value)
{
    if (value.isUndefined()) {
        return QStringLiteral("(none)");
    }
    const QByteArray list = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return printable(QString::fromUtf8(list.mid(1, list.size() - 2)));
}
