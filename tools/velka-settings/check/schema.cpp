// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "schema.h"

#include "rules.h"

#include <QFile>
#include <QIODevice>
#include <QJsonDocument>

namespace Check
{
namespace
{
QJsonObject readSchema(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("There is no %s", qPrintable(path));
    }
    return QJsonDocument::fromJson(file.readAll()).object();
}

/// The objects of a file whose members the schema describes.
struct Level {
    QJsonObject properties; ///< the schemas of the members, by key
    bool (*isLost)(const Written &); ///< whether the library reads a member of another type as if it was empty
};

bool isLostAtTop(const Written &member)
{
    return member.key != QLatin1String("$schema");
}

bool isLostInEntry(const Written &member)
{
    return member.key == QLatin1String("params") || member.kind == Written::Object
           || member.kind == Written::Array;
}

bool isLostInParams(const Written &)
{
    return false; // other rules report what is lost there
}

QLatin1String typeOf(const Written &value)
{
    constexpr const char *Types[] = {"null", "boolean", "number", "number", "string", "array", "object"};
    return QLatin1String(Types[value.kind]);
}

QString typeOf(const QJsonObject &schema)
{
    const QString definition = schema.value(QLatin1String("$ref")).toString().section(QLatin1Char('/'), -1);
    return (definition.isEmpty() ? schema : schemaDefinition(definition)).value(QLatin1String("type")).toString();
}

void reportType(const Written &member, const Level &level, Findings *findings)
{
    if (member.kind == Written::Null) {
        findings->atValue(Tag::NullValue, member,
                          QStringLiteral("the library reads null as if the key was missing"));
    } else if (level.isLost(member)) {
        findings->atValue(Tag::ValueLost, member,
                          QStringLiteral("the library reads this value as if it was empty"));
    } else {
        findings->atValue(Tag::WrongType, member,
                          QStringLiteral("this value does not have the type that the format defines"));
    }
}

void checkMembers(const Written &object, const QJsonObject &read, const Level &level, Findings *findings)
{
    for (const Written &member : object.children) {
        const QJsonObject schema = level.properties.value(member.key).toObject();
        if (schema.isEmpty() || findings->hasAt(member)) {
            continue;
        }
        const int maxLength = schema.value(QLatin1String("maxLength")).toInt(-1);
        if (typeOf(member) != typeOf(schema)) {
            reportType(member, level, findings);
        } else if (maxLength >= 0 && read.value(member.key).toString().toUcs4().size() > maxLength) {
            findings->atValue(Tag::Schema, member,
                              QStringLiteral("this text has more than %1 characters").arg(maxLength));
        }
    }
}

void checkElements(const Written &root, Findings *findings)
{
    const Written *entries = root.member(QLatin1String("entries"));
    if (!entries || entries->kind != Written::Array) {
        return;
    }
    for (const Written &element : entries->children) {
        if (element.kind != Written::Object && !findings->hasAt(element)) {
            findings->atValue(Tag::EntryNotObject, element,
                              QStringLiteral("the library ignores this: it is not an object"));
        }
    }
}
}

const QJsonObject &registrationSchema()
{
    static const QJsonObject schema = readSchema(QStringLiteral(":/schema/registration.schema.json"));
    return schema;
}

QJsonObject schemaDefinition(const QString &name)
{
    return registrationSchema().value(QLatin1String("definitions")).toObject().value(name).toObject();
}

QJsonObject schemaProperties(const QJsonObject &schema)
{
    return schema.value(QLatin1String("properties")).toObject();
}

void checkRegistrationSchema(const Document &document, Findings *findings)
{
    if (document.root.kind != Written::Object) {
        if (!findings->hasAt(document.root)) {
            findings->atValue(Tag::TopLevel, document.root,
                              QStringLiteral("the top level of a registration file must be an object"));
        }
        return;
    }
    const Level topLevel{schemaProperties(registrationSchema()), isLostAtTop};
    const Level entries{schemaProperties(schemaDefinition(QStringLiteral("entry"))), isLostInEntry};
    const Level params{schemaProperties(schemaDefinition(QStringLiteral("params"))), isLostInParams};
    checkMembers(document.root, document.read.toObject(), topLevel, findings);
    checkElements(document.root, findings);
    for (const Entry &entry : document.entries) {
        checkMembers(*entry.written, entry.read, entries, findings);
        if (entry.writtenParams) {
            checkMembers(*entry.writtenParams, entry.params, params, findings);
        }
    }
}
}
