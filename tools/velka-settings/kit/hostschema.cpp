// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "hostschema.h"

#include <QJsonArray>
#include <QRegularExpression>

namespace
{
const QString s_description = QStringLiteral("description");
const QString s_properties = QStringLiteral("properties");
const QString s_type = QStringLiteral("type");

/// Sets @p name of the object at @p member of @p object.
void setIn(QJsonObject *object, const QString &member, const QString &name, const QJsonValue &value)
{
    QJsonObject changed = object->value(member).toObject();
    changed.insert(name, value);
    object->insert(member, changed);
}

QJsonObject withTypes(QJsonObject properties, const HostVocabulary &vocabulary)
{
    const QStringList types = vocabulary.types();
    QStringList lines{properties.value(s_type).toObject().value(s_description).toString()};
    for (const QString &type : types) {
        const QString description = vocabulary.descriptionOf(type);
        if (!description.isEmpty()) {
            lines.append(type + QStringLiteral(": ") + description);
        }
    }
    setIn(&properties, s_type, s_description, lines.join(QLatin1Char('\n')));
    setIn(&properties, s_type, QStringLiteral("enum"), QJsonArray::fromStringList(types));
    return properties;
}

/// Returns @p text as a pattern of ECMAScript, which admits escapes of these characters only.
QString escaped(QString text)
{
    static const QRegularExpression syntax(QStringLiteral("([\\\\^$.*+?()\\[\\]{}|/])"));
    return text.replace(syntax, QStringLiteral("\\\\1"));
}

QJsonObject withPlaces(QJsonObject properties, const HostVocabulary &vocabulary)
{
    const QString root = vocabulary.root().join(QLatin1Char('/'));
    if (!root.isEmpty()) {
        setIn(&properties, QStringLiteral("path"), QStringLiteral("pattern"),
              QStringLiteral("^(%1|applications)(/|$)").arg(escaped(root)));
    }
    return properties;
}

QJsonObject withIgnoredKeys(QJsonObject properties, const HostVocabulary &vocabulary)
{
    const QStringList keys = vocabulary.ignoredKeys();
    for (const QString &key : keys) {
        const QString description = properties.value(key).toObject().value(s_description).toString();
        setIn(&properties, key, s_description, QStringLiteral("The host ignores this key. ") + description);
    }
    return properties;
}

/// Returns schemas that describe the params of each type.
QJsonArray paramsByType(const HostVocabulary &vocabulary)
{
    QJsonArray conditions;
    const QStringList types = vocabulary.types();
    for (const QString &type : types) {
        const QJsonObject isType{
            {s_properties, QJsonObject{{s_type, QJsonObject{{QStringLiteral("const"), type}}}}},
            {QStringLiteral("required"), QJsonArray{s_type}}};
        const QJsonObject params{
            {s_properties,
             QJsonObject{{QStringLiteral("params"), QJsonObject{{s_properties, vocabulary.paramsOf(type)}}}}}};
        conditions.append(QJsonObject{{QStringLiteral("if"), isType}, {QStringLiteral("then"), params}});
    }
    return conditions;
}
}

QJsonObject hostSchema(QJsonObject schema, const HostVocabulary &vocabulary)
{
    const QString definitions = QStringLiteral("definitions");
    QJsonObject entry = schema.value(definitions).toObject().value(QLatin1String("entry")).toObject();
    const QJsonObject properties = entry.value(s_properties).toObject();
    entry.insert(s_properties,
                 withIgnoredKeys(withPlaces(withTypes(properties, vocabulary), vocabulary), vocabulary));
    entry.insert(QStringLiteral("allOf"), paramsByType(vocabulary));
    setIn(&schema, definitions, QStringLiteral("entry"), entry);
    return schema;
}
