// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/favoritesblacklist.h"

#include "plugin/constants.h"
#include "registry/blacklistfile.h"
#include "registry/messages.h"

#include <QDebug>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

QSet<QString> readFavoritesBlacklist()
{
    return readBlacklistFile(Constants::FavoritesBlacklistFile);
}

QSet<QString> readBlacklistFile(const QString &path)
{
    QFile file(path);
    // To open a pipe would wait for its writer.
    if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        qWarning() << Messages::CannotReadBlacklist << file.fileName();
        return {};
    }
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll());
    if (document.isNull()) {
        qWarning() << Messages::CannotParseJson << file.fileName();
        return {};
    }
    if (!document.isArray()) {
        qWarning() << Messages::WrongBlacklistFormat << file.fileName();
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
