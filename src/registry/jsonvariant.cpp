// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/jsonvariant.h"

#include <QJsonArray>
#include <QJsonObject>

namespace
{
QVariantList jsonToVariantList(const QJsonArray &array)
{
    QVariantList list;
    list.reserve(array.size());
    for (const QJsonValue &element : array) {
        list.append(jsonToVariant(element));
    }
    return list;
}
}

QVariant jsonToVariant(const QJsonValue &value)
{
    switch (value.type()) {
    case QJsonValue::Double:
        return value.toDouble();
    case QJsonValue::Object:
        return jsonToVariantMap(value.toObject());
    case QJsonValue::Array:
        return jsonToVariantList(value.toArray());
    default:
        return value.toVariant();
    }
}

QVariantMap jsonToVariantMap(const QJsonObject &object)
{
    QVariantMap map;
    for (auto it = object.constBegin(); it != object.constEnd(); ++it) {
        map.insert(it.key(), jsonToVariant(it.value()));
    }
    return map;
}
