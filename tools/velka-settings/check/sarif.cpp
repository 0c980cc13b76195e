// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "formats.h"

#include "printable.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUrl>

namespace Check
{
namespace
{
QString levelOf(Severity severity)
{
    return severity == Severity::Ignore ? QStringLiteral("none") : QLatin1String(severityName(severity));
}

QJsonObject message(const QString &text)
{
    return {{QStringLiteral("text"), text}};
}

QJsonArray rules(const Severities &severities)
{
    QJsonArray rules;
    for (const TagInfo &tag : tags()) {
        rules.append(QJsonObject{{QStringLiteral("id"), QLatin1String(tag.name)},
                                 {QStringLiteral("shortDescription"), message(QString::fromUtf8(tag.summary))},
                                 {QStringLiteral("fullDescription"), message(QString::fromUtf8(tag.explanation))},
                                 {QStringLiteral("defaultConfiguration"),
                                  QJsonObject{{QStringLiteral("level"), levelOf(severities.of(tag.tag))}}}});
    }
    return rules;
}

QJsonObject location(const QString &path, const Place &place)
{
    const QString uri = QString::fromLatin1(QUrl::toPercentEncoding(path, "/"));
    const QJsonObject region{{QStringLiteral("startLine"), place.line},
                             {QStringLiteral("startColumn"), place.column}};
    return {{QStringLiteral("physicalLocation"),
             QJsonObject{{QStringLiteral("artifactLocation"), QJsonObject{{QStringLiteral("uri"), uri}}},
                         {QStringLiteral("region"), region}}}};
}

QJsonArray results(const Report &report, const Severities &severities)
{
    QJsonArray results;
    for (const FileFindings &file : report) {
        for (const Finding &finding : file.findings) {
            const Severity severity = severities.of(finding.tag);
            if (severity != Severity::Ignore) {
                results.append(
                    QJsonObject{{QStringLiteral("ruleId"), QLatin1String(info(finding.tag).name)},
                                {QStringLiteral("ruleIndex"), int(finding.tag)},
                                {QStringLiteral("level"), levelOf(severity)},
                                {QStringLiteral("message"), message(finding.text)},
                                {QStringLiteral("locations"), QJsonArray{location(file.path, finding.place)}}});
            }
        }
    }
    return results;
}
}

QByteArray toSarif(const Report &report, const Severities &severities)
{
    const QJsonObject driver{{QStringLiteral("name"), QStringLiteral("velka-settings check")},
                             {QStringLiteral("version"), QStringLiteral(VELKA_VERSION)},
                             {QStringLiteral("rules"), rules(severities)}};
    const QJsonObject run{{QStringLiteral("tool"), QJsonObject{{QStringLiteral("driver"), driver}}},
                          {QStringLiteral("columnKind"), QStringLiteral("utf16CodeUnits")},
                          {QStringLiteral("results"), results(report, severities)}};
    const QJsonObject sarif{{QStringLiteral("version"), QStringLiteral("2.1.0")},
                            {QStringLiteral("runs"), QJsonArray{run}}};
    return printableJson(QJsonDocument(sarif).toJson());
}
}
