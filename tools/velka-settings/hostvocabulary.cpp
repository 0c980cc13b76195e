// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "hostvocabulary.h"

#include "printable.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

namespace
{
const QString s_opensPage = QStringLiteral("opens_page");
const QString s_params = QStringLiteral("params");
const QString s_types = QStringLiteral("types");

QStringList jsonTypes()
{
    return {QStringLiteral("array"), QStringLiteral("boolean"), QStringLiteral("number"), QStringLiteral("object"),
            QStringLiteral("string")};
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

/// Returns what is wrong with @p value, which may be missing, if it has not the type @p expected.
QString problemOfType(const QJsonObject &object, const QString &key, QJsonValue::Type expected, const char *name)
{
    const QJsonValue value = object.value(key);
    return value.isUndefined() || value.type() == expected
               ? QString()
               : QStringLiteral("\"%1\" must be %2").arg(key, QLatin1String(name));
}
}

QString HostVocabulary::systemPath()
{
    return QStringLiteral("/usr/share/velka-settings/vocabulary.json");
}

std::optional<HostVocabulary> HostVocabulary::read(const QString &path, QString *problem)
{
    QFile file(path);
    HostVocabulary vocabulary;
    const QString reason = file.open(QIODevice::ReadOnly) ? vocabulary.parse(file.readAll()) : file.errorString();
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
    return document.isObject() ? problem() : QStringLiteral("it is no object");
}

QString HostVocabulary::problem() const
{
    const QString problems[] = {
        problemOfType(m_object, s_types, QJsonValue::Object, "an object"),
        problemOfType(m_object, QStringLiteral("root"), QJsonValue::String, "a string"),
        problemOfType(m_object, QStringLiteral("depth"), QJsonValue::Double, "a number"),
        problemOfType(m_object, QStringLiteral("ignored_keys"), QJsonValue::Array, "an array"),
    };
    for (const QString &problem : problems) {
        if (!problem.isEmpty()) {
            return problem;
        }
    }
    if (types().isEmpty()) {
        return QStringLiteral("it has no \"types\"");
    }
    QString problem;
    const QStringList names = types();
    for (const QString &type : names) {
        problem = problem.isEmpty() ? problemOfType(valueOf(type), s_opensPage, QJsonValue::Bool, "true or false")
                                    : problem;
        problem = problem.isEmpty() ? problemOfParams(type, paramsOf(type)) : problem;
    }
    return problem;
}
