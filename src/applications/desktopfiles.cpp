// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications/desktopfiles.h"

#include "plugin/constants.h"
#include "registry/logging.h"
#include "registry/messages.h"

#include <mdesktopentry.h>

#include <QStandardPaths>

QString applicationId(const QString &fileId)
{
    QString id = fileId;
    return id.remove(Constants::DesktopSuffix);
}

QString locateDesktopFile(const QString &applicationId)
{
    // Ids come from strangers: none may lead out of the application directories.
    if (applicationId.isEmpty() || applicationId.contains(QLatin1Char('/'))
        || applicationId.contains(QChar(QChar::Null))) {
        return {};
    }
    QString name = applicationId + Constants::DesktopSuffix;
    for (;;) {
        const QString path = QStandardPaths::locate(QStandardPaths::ApplicationsLocation, name);
        const int dash = name.indexOf(QLatin1Char('-'));
        if (!path.isEmpty() || dash < 0) {
            return path;
        }
        name.replace(dash, 1, QLatin1Char('/'));
        if (name.contains(QLatin1String("./"))) {
            return {};
        }
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
