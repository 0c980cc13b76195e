// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/registrationfile.h"

#include "registry/logging.h"
#include "registry/messages.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace
{
// Real entries use a few dozen keys. A file with a million different ones must not fill the memory for good.
constexpr int MaximumSharedKeys = 1000;
}

std::optional<RegistrationFile> parseRegistrationFile(const QByteArray &json, const QString &fileName)
{
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (document.isNull()) {
        qCWarning(lcSettings) << Messages::CannotParseJson << fileName;
        return {};
    }
    if (!document.isObject()) {
        qCWarning(lcSettings) << Messages::WrongRegistrationFormat << fileName;
        return {};
    }
    const QJsonObject object = document.object();
    return RegistrationFile{object.value(QLatin1String("required_group")).toString(),
                            object.value(QLatin1String("disabled_group")).toString(),
                            object.value(QLatin1String("translation_catalog")).toString(),
                            object.value(QLatin1String("complementary_translation_catalog")).toString(),
                            object.value(QLatin1String("entries")).toArray()};
}

QVariantMap EntryConverter::toMap(const QJsonObject &object)
{
    QVariantMap map;
    for (auto it = object.constBegin(); it != object.constEnd(); ++it) {
        // JSON objects are sorted by key, as the map is.
        map.insert(map.constEnd(), sharedKey(it.key()), toVariant(it.value()));
    }
    return map;
}

QVariant EntryConverter::toVariant(const QJsonValue &value)
{
    switch (value.type()) {
    case QJsonValue::Double:
        return value.toDouble(); // toVariant() would make whole numbers integers
    case QJsonValue::Object:
        return toMap(value.toObject());
    case QJsonValue::Array: {
        QVariantList list;
        const QJsonArray array = value.toArray();
        list.reserve(array.size());
        for (const QJsonValue &element : array) {
            list.append(toVariant(element));
        }
        return list;
    }
    default:
        return value.toVariant();
    }
}

QString EntryConverter::sharedKey(const QString &key)
{
    const auto known = m_keys.constFind(key);
    if (known != m_keys.constEnd()) {
        return *known;
    }
    if (m_keys.size() < MaximumSharedKeys) {
        m_keys.insert(key);
    }
    return key;
}
