// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "instructions.h"

#include <QCoreApplication>
#include <QProcess>
#include <QRegularExpression>

#include <valgrind/callgrind.h>

namespace
{
double instructionsOf(const QStringList &arguments)
{
    QProcess valgrind;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_HASH_SEED"),
                       QStringLiteral("0")); // otherwise the order differs in each process
    valgrind.setProcessEnvironment(environment);
    valgrind.start(QStringLiteral("valgrind"),
                   QStringList{QStringLiteral("--tool=callgrind"), QStringLiteral("--collect-atstart=no"),
                               QStringLiteral("--callgrind-out-file=/dev/null"),
                               QCoreApplication::applicationFilePath()}
                       + arguments);
    const bool hasEnded = valgrind.waitForFinished(-1) && valgrind.exitCode() == 0;
    const QString output = QString::fromUtf8(valgrind.readAllStandardError());
    const QRegularExpression collected(QStringLiteral("Collected : (\\d+)"));
    const QRegularExpressionMatch match = collected.match(output);
    if (!hasEnded || !match.hasMatch()) {
        qFatal("Instructions are not counted: %s", qPrintable(output));
    }
    return match.captured(1).toDouble();
}
}

void counted(const std::function<void()> &work)
{
    CALLGRIND_TOGGLE_COLLECT;
    work();
    CALLGRIND_TOGGLE_COLLECT;
}

QVector<Measure> growthOfInstructions(const QString &what, const QStringList &arguments, const QVector<int> &sizes)
{
    QVector<Cost> instructions;
    for (const int size : sizes) {
        instructions.append({what, size, {instructionsOf(arguments + QStringList{QString::number(size)})}});
    }
    return growths(instructions);
}
