// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "childprocess.h"

#include <QCoreApplication>
#include <QProcess>

QString siblingProgram(const QString &name)
{
    return QCoreApplication::applicationDirPath() + QLatin1Char('/') + name;
}

QStringList linesOf(const QString &program, const QStringList &arguments)
{
    QProcess child;
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    child.start(program, arguments);
    if (!child.waitForFinished(-1) || child.exitStatus() != QProcess::NormalExit || child.exitCode() != 0) {
        qFatal("%s failed: %s", qPrintable(program), qPrintable(child.errorString()));
    }
    return QString::fromLocal8Bit(child.readAllStandardOutput()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

double numberOfChild(const QStringList &arguments)
{
    bool isNumber = false;
    const double number = linesOf(QCoreApplication::applicationFilePath(), arguments).value(0).toDouble(&isNumber);
    if (!isNumber) {
        qFatal("The process prints no number");
    }
    return number;
}
