// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "catalogs.h"

#include <QDir>
#include <QFile>

namespace
{
/// Returns the directory of the system's catalogs, which is the sandbox's.
QDir systemCatalogs()
{
    if (!qEnvironmentVariableIsSet("VELKA_SANDBOX")) {
        qFatal("This test writes into system directories: run it through scripts/sandbox");
    }
    return QDir(QStringLiteral("/usr/share/translations"));
}

QString fileName(const QByteArray &name)
{
    return QString::fromLatin1(name) + QLatin1String(".qm");
}
}

QString Catalogs::path(const QByteArray &name)
{
    return systemCatalogs().filePath(fileName(name));
}

void Catalogs::install(const QByteArray &source, const QByteArray &name)
{
    const QDir compiled(QStringLiteral(VELKA_TEST_CATALOGS));
    if (!QFile::copy(compiled.filePath(fileName(source)), path(name))) {
        qFatal("Can't install the catalog %s as %s", source.constData(), name.constData());
    }
}

void Catalogs::removeAll()
{
    QDir directory = systemCatalogs();
    const QStringList names = directory.entryList(QDir::Files);
    for (const QString &name : names) {
        directory.remove(name);
    }
}
