// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications/desktopfiles.h"

#include "plugin/constants.h"
#include "registry/logging.h"
#include "registry/messages.h"

#include <mdesktopentry.h>

#include <QStandardPaths>

#include <algorithm>

QString applicationId(const QString &fileId)
{
    QString id = fileId;
    return id.remove(Constants::DesktopSuffix);
}

namespace
{
/// Whether @p name leads from a directory to a file in it or below it.
bool isFileName(const QString &name)
{
    const QStringList parts = name.split(QLatin1Char('/'));
    const auto isPart = [](const QString &part) {
        return !part.isEmpty() && part != QLatin1String(".") && part != QLatin1String("..");
    };
    return !name.contains(QChar(QChar::Null)) && std::all_of(parts.cbegin(), parts.cend(), isPart);
}
}

QString locateDesktopFile(const QString &applicationId)
{
    if (applicationId.isEmpty() || applicationId.contains(QLatin1Char('/'))) {
        return {};
    }
    QString name = applicationId + Constants::DesktopSuffix;
    for (;;) {
        // Ids come from strangers: none may lead out of the application directories.
        if (!isFileName(name)) {
            return {};
        }
        QString path = QStandardPaths::locate(QStandardPaths::ApplicationsLocation, name);
        const int dash = name.indexOf(QLatin1Char('-'));
        if (!path.isEmpty() || dash < 0) {
            return path;
        }
        name.replace(dash, 1, QLatin1Char('/'));
    }
}

std::optional<QStringList> requestedPermissions(const QString &applicationId)
{
    const MDesktopEntry entry(locateDesktopFile(applicationId));
    if (!entry.isValid()) {
        qCWarning(lcSettings) << Messages::CannotReadPermissions;
        return {};
    }
    const QString key = QStringLiteral("Permissions");
    for (const QString &group : {QStringLiteral("X-Application"), QStringLiteral("X-Tarnhold")}) {
        if (entry.contains(group, key)) {
            return entry.value(group + QLatin1Char('/') + key).split(QLatin1Char(';'));
        }
    }
    qCWarning(lcSettings) << Messages::NoPermissionsSection;
    return QStringList();
}
