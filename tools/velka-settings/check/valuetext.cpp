// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "valuetext.h"

#include "finding.h"

#include <QJsonValue>

namespace Check
{
QString describe(const QJsonValue &value)
{
    switch (value.type()) {
    case QJsonValue::String:
        return QStringLiteral("the string %1").arg(quoted(value.toString()));
    case QJsonValue::Double:
        return QStringLiteral("the number %1").arg(value.toDouble());
    case QJsonValue::Bool:
        return value.toBool() ? QStringLiteral("true") : QStringLiteral("false");
    case QJsonValue::Array:
        return QStringLiteral("an array");
    case QJsonValue::Object:
        return QStringLiteral("an object");
    default:
        return QStringLiteral("null");
    }
}
}
