// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "filetrace.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

QProcessEnvironment tracedEnvironment()
{
    // The leak checker does not work in a traced process.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const QString options = environment.value(QStringLiteral("ASAN_OPTIONS"));
    environment.insert(QStringLiteral("ASAN_OPTIONS"), options + QStringLiteral(":detect_leaks=0"));
    return environment;
}

QStringList pathsUsedBy(const QStringList &arguments, const QString &start)
{
    const QTemporaryDir directory;
    const QString log = directory.filePath(QStringLiteral("trace"));
    QProcess strace;
    strace.setProcessChannelMode(QProcess::ForwardedChannels);
    strace.setProcessEnvironment(tracedEnvironment());
    strace.start(QStringLiteral("strace"),
                 QStringList{QStringLiteral("-f"), QStringLiteral("-qq"), QStringLiteral("-e"),
                             QStringLiteral("trace=%file"), QStringLiteral("-o"), log,
                             QCoreApplication::applicationFilePath()}
                     + arguments);
    QFile file(log);
    if (!strace.waitForFinished() || strace.exitStatus() != QProcess::NormalExit || strace.exitCode() != 0
        || !file.open(QIODevice::ReadOnly)) {
        qFatal("Can't trace %s: %s", qPrintable(arguments.join(QLatin1Char(' '))),
               qPrintable(strace.errorString()));
    }
    QStringList paths;
    const QRegularExpression quoted(QStringLiteral("\"([^\"]*)\""));
    auto matches = quoted.globalMatch(QString::fromLocal8Bit(file.readAll()));
    while (matches.hasNext()) {
        const QString path = matches.next().captured(1);
        if (path.startsWith(start) && !paths.contains(path)) {
            paths.append(path);
        }
    }
    return paths;
}
