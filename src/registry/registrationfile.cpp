// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/registrationfile.h"

#include "common/logging.h"
#include "common/logtext.h"
#include "common/messages.h"
#include "registry/jsonvariant.h"

#include <QJsonDocument>
#include <QJsonObject>

bool isRegistrationFile(const QString &fileName)
{
    return fileName.endsWith(QLatin1String(".json")) && !fileName.startsWith(QLatin1String("fake"));
}

std::optional<RegistrationFile> parseRegistrationFile(const QByteArray &json, const QString &fileName,
                                                      QJsonParseError *error)
{
    const QJsonDocument document = QJsonDocument::fromJson(json, error);
    if (document.isNull()) {
        qCWarning(lcSettings) << Messages::CannotParseJson << quoted(fileName);
        return {};
    }
    if (!document.isObject()) {
        qCWarning(lcSettings) << Messages::WrongRegistrationFormat << quoted(fileName);
        return {};
    }
    const QJsonObject object = document.object();
    return RegistrationFile{object.value(QLatin1String("required_group")).toString(),
                            object.value(QLatin1String("disabled_group")).toString(),
                            object.value(QLatin1String("translation_catalog")).toString(),
                            object.value(QLatin1String("complementary_translation_catalog")).toString(),
                            object.value(QLatin1String("entries")).toArray()};
}

std::optional<QString> pathOfEntry(const QJsonObject &entry)
{
    const auto path = entry.constFind(QLatin1String("path"));
    if (path == entry.constEnd()) {
        return {};
    }
    return jsonToVariant(*path).toString();
}

QStringList splitPath(const QString &path)
{
    return path.split(QLatin1Char('/'), Qt::SkipEmptyParts);
}
