// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "schema.h"

#include "registry/jsonvariant.h"
#include "rules.h"
#include "valuetext.h"

#include <QFile>
#include <QIODevice>
#include <QJsonArray>
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
    bool isTop = false; ///< whether the library converts no values there
};

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

QString nameOf(const QString &type)
{
    if (type == QLatin1String("boolean")) {
        return QStringLiteral("true or false");
    }
    const bool beginsWithVowel = type == QLatin1String("array") || type == QLatin1String("object");
    return (beginsWithVowel ? QStringLiteral("an ") : QStringLiteral("a ")) + type;
}

/// The value that the library reads instead of one of another type.
struct Reading {
    Tag tag;
    QString text;
};

Reading readAsString(const QJsonValue &value, bool isTop)
{
    const QString read = isTop ? QString() : jsonToVariant(value).toString();
    return read.isEmpty() ? Reading{Tag::ValueLost, QStringLiteral("nothing")}
                          : Reading{Tag::WrongType, quoted(read)};
}

Reading readAsNumber(const QJsonValue &value)
{
    const int read = jsonToVariant(value).toInt();
    return {value.isString() ? Tag::WrongType : Tag::ValueMisread, QString::number(read)};
}

Reading readAsBoolean(const QJsonValue &value)
{
    const bool read = jsonToVariant(value).toBool();
    const QString text = read ? QStringLiteral("true") : QStringLiteral("false");
    const bool isSame = value == QJsonValue(text) || value == QJsonValue(read ? 1 : 0);
    return {isSame ? Tag::WrongType : Tag::ValueMisread, text};
}

Reading readingOf(const QJsonValue &value, const QString &type, bool isTop)
{
    if (type == QLatin1String("string")) {
        return readAsString(value, isTop);
    }
    if (type == QLatin1String("number")) {
        return readAsNumber(value);
    }
    if (type == QLatin1String("boolean")) {
        return readAsBoolean(value);
    }
    // Another rule reports the arguments of actions; for other types they are not read.
    const bool isRead = isTop || type != QLatin1String("array");
    return {isRead ? Tag::ValueLost : Tag::WrongType, QStringLiteral("nothing")};
}

void reportType(const Written &member, const QJsonValue &value, const QString &type, bool isTop,
                Findings *findings)
{
    if (member.kind == Written::Null) {
        findings->atValue(Tag::NullValue, member,
                          QStringLiteral("the library reads null as if the key was missing: remove the key"));
        return;
    }
    const bool isIgnored = isTop && member.key == QLatin1String("$schema");
    const Reading reading = isIgnored ? Reading{Tag::WrongType, QStringLiteral("nothing")}
                                      : readingOf(value, type, isTop);
    findings->atValue(reading.tag, member,
                      QStringLiteral("%1 must be %2, not %3; the library reads %4")
                          .arg(quoted(member.key), nameOf(type), describe(value), reading.text));
}

void checkMembers(const Written &object, const QJsonObject &read, const Level &level, Findings *findings)
{
    for (const Written &member : object.children) {
        const QJsonObject schema = level.properties.value(member.key).toObject();
        if (schema.isEmpty() || findings->hasAt(member)) {
            continue;
        }
        const int maxLength = schema.value(QLatin1String("maxLength")).toInt(-1);
        const QString type = typeOf(schema);
        if (typeOf(member) != type) {
            reportType(member, read.value(member.key), type, level.isTop, findings);
        } else if (maxLength >= 0 && read.value(member.key).toString().toUcs4().size() > maxLength) {
            findings->atValue(Tag::Schema, member,
                              QStringLiteral("this text has more than %1 characters").arg(maxLength));
        }
    }
}

void checkElements(const Document &document, Findings *findings)
{
    const Written *entries = document.root.member(QLatin1String("entries"));
    if (!entries || entries->kind != Written::Array) {
        return;
    }
    const QJsonArray elements = document.read.toObject().value(QLatin1String("entries")).toArray();
    for (const Written &element : entries->children) {
        if (element.kind != Written::Object && !findings->hasAt(element)) {
            findings->atValue(Tag::EntryNotObject, element,
                              QStringLiteral("an entry must be an object, not %1; the library ignores it")
                                  .arg(describe(elements.at(int(&element - entries->children.data())))));
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
            findings->atValue(
                Tag::TopLevel, document.root,
                QStringLiteral("a registration file must be an object: write {\"entries\": [{…}, {…}]}"));
        }
        return;
    }
    const Level topLevel{schemaProperties(registrationSchema()), true};
    const Level entries{schemaProperties(schemaDefinition(QStringLiteral("entry")))};
    const Level params{schemaProperties(schemaDefinition(QStringLiteral("params")))};
    checkMembers(document.root, document.read.toObject(), topLevel, findings);
    checkElements(document, findings);
    for (const Entry &entry : document.entries) {
        checkMembers(*entry.written, entry.read, entries, findings);
        if (entry.writtenParams) {
            checkMembers(*entry.writtenParams, entry.params, params, findings);
        }
    }
}
}
