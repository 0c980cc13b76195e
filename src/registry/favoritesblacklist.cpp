// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/favoritesblacklist.h"

#include "common/constants.h"
#include "common/logtext.h"
#include "common/messages.h"
#include "registry/blacklistfile.h"
#include "registry/textfile.h"

#include <QDebug>
#include <QJsonArray>
#include <QJsonDocument>

namespace
{
QSet<QString> stringsIn(const QJsonArray &elements)
{
    QSet<QString> strings;
    for (const QJsonValue &element : elements) {
        if (element.isString()) {
            strings.insert(element.toString());
        }
    }
    return strings;
}

QSet<QString> parseBlacklist(const QByteArray &json, const QString &path)
{
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (document.isNull()) {
        qWarning() << Messages::CannotParseJson << quoted(path);
    } else if (!document.isArray()) {
        qWarning() << Messages::WrongBlacklistFormat << quoted(path);
    }
    return stringsIn(document.array());
}
}

QSet<QString> readFavoritesBlacklist()
{
    return readBlacklistFile(Constants::FavoritesBlacklistFile);
}

QSet<QString> readBlacklistFile(const QString &path, QString *shortage)
{
    const std::optional<QByteArray> content = readTextFile(path, shortage);
    if (!content) {
        if (!shortage || shortage->isEmpty()) {
            qWarning() << Messages::CannotReadBlacklist << quoted(path);
        }
        return {};
    }
    return parseBlacklist(*content, path);
}
