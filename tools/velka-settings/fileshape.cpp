// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "fileshape.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace
{
bool isEntry(const QJsonValue &value)
{
    const QJsonObject object = value.toObject();
    const auto has = [&object](const char *key) { return object.contains(QLatin1String(key)); };
    return has("path") && (has("title") || has("translation_id") || has("icon") || has("order") || has("params"));
}

bool hasEntries(const QJsonValue &value)
{
    const QJsonArray array = value.toArray();
    return std::any_of(array.cbegin(), array.cend(), isEntry);
}

/// Returns whether @p object is a registration file, or an entry, or holds entries under another key.
bool isRegistration(const QJsonObject &object)
{
    for (const char *key :
         {"required_group", "disabled_group", "translation_catalog", "complementary_translation_catalog"}) {
        if (object.contains(QLatin1String(key))) {
            return true;
        }
    }
    const QJsonValue entries = object.value(QLatin1String("entries"));
    return entries.isArray() || isEntry(entries) || isEntry(object)
           || std::any_of(object.constBegin(), object.constEnd(), hasEntries);
}
}

FileShape shapeOf(const QByteArray &text)
{
    const QJsonDocument document = QJsonDocument::fromJson(text);
    if (document.isNull()) {
        return text.contains("\"entries\"") ? FileShape::Registration : FileShape::Unclear;
    }
    if (document.object().isEmpty() && document.array().isEmpty()) {
        return FileShape::Unclear;
    }
    const bool isMeant = document.isObject() ? isRegistration(document.object()) : hasEntries(document.array());
    return isMeant ? FileShape::Registration : FileShape::Other;
}
