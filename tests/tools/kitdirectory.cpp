// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "kitdirectory.h"

#include "text.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTest>

QString KitDirectory::path(const QString &name) const
{
    return m_directory.filePath(name);
}

void KitDirectory::write(const QString &name, const QByteArray &content) const
{
    QVERIFY(QDir().mkpath(QFileInfo(path(name)).path()));
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), qint64(content.size()));
}

QByteArray KitDirectory::read(const QString &name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

Tool::Result KitDirectory::run(const QStringList &arguments) const
{
    return Tool::run(withPaths(arguments));
}

Tool::Result KitDirectory::runAfter(const QString &commands, const QStringList &arguments) const
{
    QProcess process;
    process.start(text("sh"),
                  QStringList{text("-c"), commands + text("; exec \"$@\""), text("sh"), text(VELKA_TOOL)}
                      + withPaths(arguments));
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit) {
        qFatal("sh fails: %s", qUtf8Printable(process.errorString()));
    }
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

QStringList KitDirectory::withPaths(const QStringList &arguments) const
{
    QStringList replaced;
    for (const QString &argument : arguments) {
        replaced.append(argument.startsWith(QLatin1Char('@')) ? path(argument.mid(1)) : argument);
    }
    return replaced;
}
