// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "unreadpaths.h"

#include "inspection.h"
#include "registry/registrationfile.h"
#include "registry/textfile.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace
{
struct Visit {
    QJsonValue value;
    QString place;
    QString above; ///< the path of the entry around it
};

QString normal(const QString &path)
{
    return splitPath(path).join(QLatin1Char('/'));
}

/// Returns the places of the strings in @p document that are @p node, or its last names in an entry for the others.
QStringList placesIn(const QJsonObject &document, const QString &node)
{
    QStringList places;
    QVector<Visit> pending{{document, {}, {}}};
    while (!pending.isEmpty()) {
        const Visit visit = pending.takeLast();
        if (visit.value.isString()) {
            const QString path = normal(visit.value.toString());
            const bool isNested = !visit.above.isEmpty() && visit.above + QLatin1Char('/') + path == node;
            if (path == node || isNested) {
                places.prepend(visit.place);
            }
            continue;
        }
        const QJsonObject object = visit.value.toObject();
        const QString path = normal(object.value(QLatin1String("path")).toString());
        for (auto it = object.constBegin(); it != object.constEnd(); ++it) {
            const QString place = visit.place.isEmpty() ? it.key() : visit.place + QLatin1Char('.') + it.key();
            const bool isPath = it.key() == QLatin1String("path");
            pending.append({it.value(), place, isPath || path.isEmpty() ? visit.above : path});
        }
        const QJsonArray array = visit.value.toArray();
        for (int i = 0; i < array.size(); ++i) {
            pending.append({array.at(i), QStringLiteral("%1[%2]").arg(visit.place).arg(i), visit.above});
        }
    }
    return places;
}
}

QStringList unreadPlacesOf(const QString &node, const Inspection &inspection)
{
    QStringList places;
    for (const FileReport &report : inspection.record().files()) {
        if (!report.file) {
            continue;
        }
        const QString path = inspection.sources().entriesDirectory + QLatin1Char('/') + report.name;
        const QByteArray content = readTextFile(path).value_or(QByteArray());
        const QStringList found = placesIn(QJsonDocument::fromJson(content).object(), node);
        for (const QString &place : found) {
            places.append(QStringLiteral("%1, %2").arg(report.name, place));
        }
    }
    return places;
}
