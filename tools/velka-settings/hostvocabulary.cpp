// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "hostvocabulary.h"

#include "printable.h"
#include "regularfile.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <initializer_list>

namespace
{
constexpr qint64 MaxSize = 16 << 20;
const QString s_opensPage = QStringLiteral("opens_page");
const QString s_params = QStringLiteral("params");
const QString s_types = QStringLiteral("types");

/// Returns the first of @p problems that is one.
QString firstOf(std::initializer_list<QString> problems)
{
    const auto *const found = std::find_if(problems.begin(), problems.end(),
                                           [](const QString &text) { return !text.isEmpty(); });
    return found == problems.end() ? QString() : *found;
}

QStringList jsonTypes()
{
    return {QStringLiteral("array"), QStringLiteral("boolean"), QStringLiteral("number"), QStringLiteral("object"),
            QStringLiteral("string")};
}

/// Returns what is wrong with the value of @p key, which may be missing, if it has not the type @p expected.
QString problemOfType(const QJsonObject &object, const QString &key, QJsonValue::Type expected, const char *name)
{
    const QJsonValue value = object.value(key);
    return value.isUndefined() || value.type() == expected
               ? QString()
               : QStringLiteral("\"%1\" must be %2").arg(key, QLatin1String(name));
}

QString problemOfParams(const QString &type, const QJsonObject &params)
{
    for (auto param = params.begin(); param != params.end(); ++param) {
        if (!jsonTypes().contains(param->toObject().value(QLatin1String("type")).toString())) {
            return QStringLiteral("\"%1\" in the \"params\" of \"%2\" needs a \"type\": %3")
                .arg(param.key(), type, jsonTypes().join(QStringLiteral(", ")));
        }
    }
    return {};
}

QString problemOfTypes(const QJsonObject &types)
{
    for (auto type = types.begin(); type != types.end(); ++type) {
        const QJsonObject object = type->toObject();
        QString problem = firstOf({
            problemOfType(types, type.key(), QJsonValue::Object, "an object"),
            problemOfType(object, QStringLiteral("description"), QJsonValue::String, "a string"),
            problemOfType(object, s_opensPage, QJsonValue::Bool, "true or false"),
            problemOfType(object, s_params, QJsonValue::Object, "an object"),
            problemOfParams(type.key(), object.value(s_params).toObject()),
        });
        if (!problem.isEmpty()) {
            return problem;
        }
    }
    return types.isEmpty() ? QStringLiteral("it has no \"types\"") : QString();
}

QString problemOfDepth(const QJsonValue &depth)
{
    return depth.isUndefined() || depth.toInt() >= 1 ? QString()
                                                     : QStringLiteral("\"depth\" must be a whole number above 0");
}

QString problemOfKeys(const QJsonArray &keys)
{
    const bool areStrings = std::all_of(keys.begin(), keys.end(),
                                        [](const QJsonValue &key) { return key.isString(); });
    return areStrings ? QString() : QStringLiteral("\"ignored_keys\" must have strings only");
}
}

QString HostVocabulary::systemPath()
{
    return QStringLiteral("/usr/share/velka-settings/vocabulary.json");
}

std::optional<HostVocabulary> HostVocabulary::read(const QString &path, QString *problem)
{
    const FileContent content = readRegularFile(path, MaxSize);
    HostVocabulary vocabulary;
    const QString reason = content.error.isEmpty() ? vocabulary.parse(content.bytes) : content.error;
    if (!reason.isEmpty()) {
        *problem = QStringLiteral("the vocabulary \"%1\" is not used: %2").arg(printable(path), printable(reason));
        return {};
    }
    return vocabulary;
}

QStringList HostVocabulary::types() const
{
    return m_object.value(s_types).toObject().keys();
}

QStringList HostVocabulary::pageTypes() const
{
    QStringList pages{QStringLiteral("page"), QStringLiteral("section")};
    const QStringList names = types();
    for (const QString &type : names) {
        if (valueOf(type).value(s_opensPage).toBool()) {
            pages.append(type);
        }
    }
    return pages;
}

QString HostVocabulary::descriptionOf(const QString &type) const
{
    return valueOf(type).value(QLatin1String("description")).toString();
}

QJsonObject HostVocabulary::paramsOf(const QString &type) const
{
    return valueOf(type).value(s_params).toObject();
}

QStringList HostVocabulary::root() const
{
    return m_object.value(QLatin1String("root")).toString().split(QLatin1Char('/'), Qt::SkipEmptyParts);
}

int HostVocabulary::depth() const
{
    return m_object.value(QLatin1String("depth")).toInt();
}

QStringList HostVocabulary::ignoredKeys() const
{
    return m_object.value(QLatin1String("ignored_keys")).toVariant().toStringList();
}

QJsonObject HostVocabulary::valueOf(const QString &type) const
{
    return m_object.value(s_types).toObject().value(type).toObject();
}

/// Returns what is wrong with @p json, if anything.
QString HostVocabulary::parse(const QByteArray &json)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (document.isNull()) {
        return error.errorString();
    }
    m_object = document.object();
    return document.isObject() ? problem() : QStringLiteral("it is not an object");
}

QString HostVocabulary::problem() const
{
    const QString keys = QStringLiteral("ignored_keys");
    return firstOf({
        problemOfType(m_object, s_types, QJsonValue::Object, "an object"),
        problemOfType(m_object, QStringLiteral("root"), QJsonValue::String, "a string"),
        problemOfDepth(m_object.value(QLatin1String("depth"))),
        problemOfType(m_object, keys, QJsonValue::Array, "an array"),
        problemOfKeys(m_object.value(keys).toArray()),
        problemOfTypes(m_object.value(s_types).toObject()),
    });
}
