// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "tool.h"

#include "filetrace.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QProcess>

namespace
{
const QString s_tool = QStringLiteral(VELKA_SETTINGS_TOOL);

Tool::Result runProgram(const QString &program, const QStringList &arguments,
                        const QProcessEnvironment &environment = QProcessEnvironment::systemEnvironment(),
                        const QByteArray &input = {})
{
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    process.write(input);
    process.closeWriteChannel();
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit) {
        qFatal("%s fails: %s", qUtf8Printable(program), qUtf8Printable(process.errorString()));
    }
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}
}

QJsonObject Tool::Result::json() const
{
    return QJsonDocument::fromJson(output).object();
}

Tool::Result Tool::run(const QStringList &arguments)
{
    return runProgram(s_tool, arguments);
}

Tool::Result Tool::runWithInput(const QStringList &arguments, const QByteArray &input)
{
    return runProgram(s_tool, arguments, QProcessEnvironment::systemEnvironment(), input);
}

Tool::Result Tool::runWithSlowFile(const QStringList &arguments, const QString &file, int ms)
{
    const QString delay = QStringLiteral("inject=openat:delay_enter=%1ms").arg(ms);
    return runProgram(QStringLiteral("strace"),
                      QStringList{QStringLiteral("-f"), QStringLiteral("-qq"), QStringLiteral("-o"),
                                  QStringLiteral("/dev/null"), QStringLiteral("-P"), file, QStringLiteral("-e"),
                                  QStringLiteral("trace=openat"), QStringLiteral("-e"), delay, s_tool}
                          + arguments,
                      tracedEnvironment());
}

QByteArray Tool::runOnTerminal(const QStringList &arguments)
{
    const QString command = (QStringList{s_tool} + arguments).join(QLatin1Char(' '));
    return runProgram(QStringLiteral("script"), {QStringLiteral("--quiet"), QStringLiteral("--command"), command,
                                                 QStringLiteral("/dev/null")})
        .output;
}

void Tool::writeFiles(const QString &directory, const Files &files)
{
    QDir(directory).removeRecursively();
    QDir().mkpath(directory);
    for (auto it = files.cbegin(); it != files.cend(); ++it) {
        QFile file(directory + QLatin1Char('/') + it.key());
        if (!file.open(QIODevice::WriteOnly) || file.write(it.value()) != it.value().size()) {
            qFatal("Can't write %s", qUtf8Printable(file.fileName()));
        }
    }
}
