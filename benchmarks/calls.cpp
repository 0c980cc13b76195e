// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

// Counts the system calls and allocations of the library, which do not depend on the machine. The cost of a registration
// file or an entry is computed from the difference between two trees.

#include "allocations.h"
#include "childprocess.h"
#include "report.h"
#include "workload.h"

#include "registry/pluginregistry.h"

#include <QCoreApplication>
#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QTemporaryDir>

namespace
{
constexpr int FewFiles = 100;
constexpr int ManyFiles = 1000;
constexpr int MoreFiles = ManyFiles - FewFiles;
constexpr double MaxAllocations = 32.4; ///< a tenth more than measured

using Counts = QHash<QString, int>;

/// Returns the number of system calls of a process that shows the first page, by name.
Counts systemCalls()
{
    const QTemporaryDir directory;
    const QString log = directory.filePath(QStringLiteral("calls"));
    linesOf(QStringLiteral("strace"),
            {QStringLiteral("-f"), QStringLiteral("-c"), QStringLiteral("-U"), QStringLiteral("calls,name"),
             QStringLiteral("-o"), log, siblingProgram(QStringLiteral("startchild")),
             QStringLiteral(VELKA_QML_DIR), QStringLiteral("com.velka.settings"), QStringLiteral("page")});
    QFile file(log);
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("Can't read %s", qPrintable(log));
    }
    Counts counts;
    const QRegularExpression line(QStringLiteral("^ *(\\d+) (\\w+)$"), QRegularExpression::MultilineOption);
    auto matches = line.globalMatch(QString::fromLatin1(file.readAll()));
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        counts.insert(match.captured(2), match.captured(1).toInt());
    }
    return counts;
}

/// Returns the result of @p count with @p workload installed.
template<typename Count>
auto with(const Workload &workload, const Count &count)
{
    workload.putInPlace();
    auto result = count();
    workload.takeAway();
    return result;
}

QVector<Measure> measureSystemCalls(const Workload &few, const Workload &many)
{
    const Counts small = with(few, systemCalls);
    const Counts large = with(many, systemCalls);
    if (large.value(QStringLiteral("openat")) < ManyFiles) {
        qFatal("The system calls have not been understood");
    }
    const auto measure = [&](const QString &call, double maximum = Unlimited) {
        const double more = large.value(call) - small.value(call);
        const QString target = maximum < Unlimited ? QStringLiteral("≤ %1").arg(maximum) : QString();
        return Measure{QStringLiteral("system calls per registration file, %1").arg(call),
                       target,
                       {more / MoreFiles},
                       maximum};
    };
    return {measure(QStringLiteral("openat")),     measure(QStringLiteral("newfstatat")),
            measure(QStringLiteral("read")),       measure(QStringLiteral("close")),
            measure(QStringLiteral("getdents64")), measure(QStringLiteral("total"), 5)};
}

qint64 allocations()
{
    const qint64 before = allocationCount();
    const PluginRegistry registry;
    return allocationCount() - before;
}

Measure measureAllocations(const Workload &few, const Workload &many)
{
    with(few, allocations); // allocates what the process needs once
    const qint64 more = with(many, allocations) - with(few, allocations);
    return {QStringLiteral("allocations per entry, construction of the registry"),
            QStringLiteral("≤ %1").arg(MaxAllocations),
            {double(more) / (MoreFiles * Workload::EntriesPerFile)},
            MaxAllocations};
}

Report measureAll(Effort)
{
    const Workload few(FewFiles);
    const Workload many(ManyFiles);
    Report report;
    report.measures = measureSystemCalls(few, many);
    report.measures.append(measureAllocations(few, many));
    return report;
}
}

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    return runBenchmark(QCoreApplication::arguments(), measureAll);
}
