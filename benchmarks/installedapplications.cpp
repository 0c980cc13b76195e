// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "installedapplications.h"

#include "common/constants.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

namespace
{
void writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        qFatal("Can't write %s", qPrintable(path));
    }
}

QDir directory()
{
    return QStandardPaths::writableLocation(QStandardPaths::ApplicationsLocation);
}
}

void InstalledApplications::install(int count)
{
    if (!qEnvironmentVariableIsSet("VELKA_SANDBOX")) {
        qFatal("This program writes into system directories: run it through scripts/sandbox");
    }
    qputenv("XDG_DATA_DIRS", "/nowhere");
    writeFile(Constants::FavoritesBlacklistFile, "[]");
    writeFile(Constants::EntriesDirectory + QStringLiteral("/applications.json"),
              R"({"entries": [{"path": "applications"}]})");
    directory().removeRecursively();
    directory().mkpath(QStringLiteral("."));
    for (int index = 0; index < count; ++index) {
        write(index, {});
    }
}

void InstalledApplications::write(int index, const QByteArray &comment)
{
    writeFile(directory().filePath(id(index) + QStringLiteral(".desktop")),
              "[Desktop Entry]\nType=Application\nExec=true\nIcon=icon\nName=X" + QByteArray::number(index)
                  + "\nComment=" + comment + "\nX-DBus-ServiceName=" + serviceName(index).toLatin1() + '\n');
}

QString InstalledApplications::id(int index)
{
    return QStringLiteral("x%1").arg(index);
}

QString InstalledApplications::serviceName(int index)
{
    return QStringLiteral("org.example.X%1").arg(index);
}
