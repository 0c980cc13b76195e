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
    const QJsonDocument document = QJsonDocument::fromJson(*content);
    if (document.isNull()) {
        qWarning() << Messages::CannotParseJson << quoted(path);
        return {};
    }
    if (!document.isArray()) {
        qWarning() << Messages::WrongBlacklistFormat << quoted(path);
        return {};
    }
    QSet<QString> paths;
    const QJsonArray elements = document.array();
    for (const QJsonValue &element : elements) {
        if (element.isString()) {
            paths.insert(element.toString());
        }
    }
    return paths;
}
