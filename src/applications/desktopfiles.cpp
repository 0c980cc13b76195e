// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications/desktopfiles.h"

#include "common/constants.h"
#include "common/logging.h"
#include "common/messages.h"

#include <mdesktopentry.h>

#include <QFileInfo>
#include <QStandardPaths>

QString applicationId(const QString &fileId)
{
    QString id = fileId;
    return id.remove(Constants::DesktopSuffix);
}

namespace
{
constexpr int MaxFileName = 255;

/// Returns true if @p folder has a sub-directory of this name. Links do not count, so that the search ends.
bool hasFolder(const QString &folder, const QString &name)
{
    const QFileInfo info(folder + QLatin1Char('/') + name);
    return !name.isEmpty() && name != QLatin1String(".") && name != QLatin1String("..") && info.isDir()
           && !info.isSymLink();
}

QString locateBelow(const QString &folder, const QString &name)
{
    QString path = folder + QLatin1Char('/') + name;
    if (QFileInfo(path).isFile()) {
        return path;
    }
    for (int dash = name.indexOf(QLatin1Char('-')); dash >= 0 && dash <= MaxFileName;
         dash = name.indexOf(QLatin1Char('-'), dash + 1)) {
        const QString subfolder = name.left(dash);
        if (hasFolder(folder, subfolder)) {
            path = locateBelow(folder + QLatin1Char('/') + subfolder, name.mid(dash + 1));
            if (!path.isEmpty()) {
                return path;
            }
        }
    }
    return {};
}

QString locateInSubfolders(const QString &file)
{
    const QStringList folders = QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation);
    for (const QString &folder : folders) {
        QString path = locateBelow(folder, file);
        if (!path.isEmpty()) {
            return path;
        }
    }
    return {};
}

/// Returns whether @p applicationId, which is untrusted, cannot lead out of the application directories.
bool isSafe(const QString &applicationId)
{
    return !applicationId.contains(QChar(QChar::Null))
           && !applicationId.split(QLatin1Char('/')).contains(QLatin1String(".."));
}
}

QString locateDesktopFile(const QString &applicationId)
{
    if (!isSafe(applicationId)) {
        return {};
    }
    const QString file = applicationId + Constants::DesktopSuffix;
    const QString path = QStandardPaths::locate(QStandardPaths::ApplicationsLocation, file);
    const bool isFound = !path.isEmpty() || applicationId.contains(QLatin1Char('/'));
    return isFound ? path : locateInSubfolders(file);
}

std::optional<QStringList> requestedPermissions(const QString &applicationId)
{
    const MDesktopEntry entry(locateDesktopFile(applicationId));
    if (!entry.isValid()) {
        qCWarning(lcSettings) << Messages::CannotReadPermissions;
        return {};
    }
    for (const QString &key :
         {QStringLiteral("X-Application/Permissions"), QStringLiteral("X-Tarnhold/Permissions")}) {
        if (entry.contains(key)) {
            return entry.value(key).split(QLatin1Char(';'));
        }
    }
    qCWarning(lcSettings) << Messages::NoPermissionsSection;
    return QStringList();
}
