// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

// What the registry costs, as ratios. The floor is its input: reading the same files and turning them into variant
// maps, in the same process. Each construction is timed between two floors. Wall time. Neither the death of the registry
// nor that of the floor's maps, which live until the clock has stopped, is counted; and each run starts from a trimmed
// heap, like a program that starts, because malloc would let it sort what the run before it has freed.

#include "comparison.h"
#include "statistics.h"
#include "workload.h"

#include "registry/pluginregistry.h"

#include <QCoreApplication>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QVariantMap>

#include <benchmark/benchmark.h>

#include <malloc.h>

#include <cstdio>
#include <functional>
#include <iostream>
#include <limits>
#include <memory>

namespace
{
constexpr int MemorySamples = 5;
constexpr double Unlimited = std::numeric_limits<double>::infinity();

const QString s_memoryOption = QStringLiteral("--memory");
const QString s_checkOption = QStringLiteral("--check");

struct Effort {
    int smallRuns;
    int largeRuns;
    int reloads;
};
constexpr Effort FullEffort{200, 25, 1000};
constexpr Effort CheckEffort{25, 5, 200};

double floorSeconds(const QStringList &files)
{
    QVector<QVariantMap> maps;
    malloc_trim(0);
    return seconds([&] {
        for (const QString &path : files) {
            QFile file(path);
            if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
                qFatal("Can't read %s", qPrintable(path));
            }
            maps.append(QJsonDocument::fromJson(file.readAll()).object().toVariantMap());
        }
    });
}

void construct(benchmark::State &state, const Workload &workload, Runs &constructions)
{
    workload.putInPlace();
    const QStringList files = workload.files();
    for (auto iteration : state) {
        Q_UNUSED(iteration)
        const double floorBefore = floorSeconds(files);
        std::unique_ptr<PluginRegistry> registry;
        malloc_trim(0);
        const double construction = seconds([&] { registry = std::make_unique<PluginRegistry>(); });
        registry.reset();
        QCoreApplication::processEvents(); // what dconf sent for this registry
        const double floorAfter = floorSeconds(files);

        state.SetIterationTime(construction);
        constructions.add(floorBefore, construction, floorAfter);
    }
    state.counters["over_floor"] = median(constructions.overFloor);
    workload.takeAway();
}

/// Unloading and loading one file of many.
void reload(benchmark::State &state, const Workload &workload, QVector<double> &samples)
{
    workload.putInPlace();
    PluginRegistry registry;
    int file = 0;
    for (auto iteration : state) {
        Q_UNUSED(iteration)
        // Prime to the number of files: each time another one.
        file = (file + 7919) % workload.fileCount();
        const QString fileName = workload.fileName(file);
        samples.append(seconds([&] {
            registry.removeEntriesForFile(fileName);
            registry.addEntriesForFile(fileName);
        }));
        state.SetIterationTime(samples.last());
    }
    workload.takeAway();
}

double heapBytes()
{
    const auto info = mallinfo2();
    return double(info.uordblks) + double(info.hblkhd);
}

/// The heap that a registry of the files in place takes, malloc's own overhead included.
double registryBytes()
{
    const double before = heapBytes();
    const PluginRegistry registry;
    return heapBytes() - before;
}

/// registryBytes() of a fresh process.
double registryBytesOfChild()
{
    QProcess child;
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    child.start(QCoreApplication::applicationFilePath(), {s_memoryOption});
    bool isNumber = false;
    const double bytes = child.waitForFinished() ? child.readAll().trimmed().toDouble(&isNumber) : 0;
    if (!isNumber) {
        qFatal("The process that measures memory failed");
    }
    return bytes;
}

QVector<double> memorySamples(const Workload &workload)
{
    QVector<double> samples;
    workload.putInPlace();
    for (int i = 0; i < MemorySamples; ++i) {
        samples.append(registryBytesOfChild() / (workload.fileCount() * Workload::EntriesPerFile) / 1024);
    }
    workload.takeAway();
    return samples;
}

QVector<Measure> measureAll(const Workload &small, const Workload &large, Effort effort)
{
    Runs smallRuns;
    Runs largeRuns;
    QVector<double> reloads;
    benchmark::ClearRegisteredBenchmarks();
    const auto add = [](const char *name, const auto &work, int iterations) {
        benchmark::RegisterBenchmark(name, work)
            ->UseManualTime()
            ->Iterations(iterations)
            ->Unit(benchmark::kMicrosecond);
    };
    add(
        "construct, 1,000 files", [&](auto &state) { construct(state, small, smallRuns); }, effort.smallRuns);
    add(
        "construct, 10,000 files", [&](auto &state) { construct(state, large, largeRuns); }, effort.largeRuns);
    add(
        "reload one of 10,000 files", [&](auto &state) { reload(state, large, reloads); }, effort.reloads);
    benchmark::ConsoleReporter reporter;
    reporter.SetOutputStream(&std::cerr); // the table goes to standard output
    benchmark::RunSpecifiedBenchmarks(&reporter);

    const double largeSeconds = median(largeRuns.seconds);
    const auto perReload = scaled(reloads, [=](double run) { return largeSeconds / run; });
    const auto text = [](const char *utf8) { return QString::fromUtf8(utf8); };
    return {
        {text("construct / floor, 1,000 files"), text("≤ 1.3"), 0, 1.6, smallRuns.overFloor},
        {text("construct / floor, 10,000 files"), text("≤ 1.3"), 0, 1.6, largeRuns.overFloor},
        {text("construct 10,000 files / construct 1,000 files"), text("≈ 10"), 0, 20, largeRuns.over(smallRuns)},
        {text("construct / unload and load one file, 10,000 files"), text("≥ 500"), 200, Unlimited, perReload},
        {text("heap per entry, KiB"), text("≤ 1.6"), 0, 1.6, memorySamples(small)},
        {text("floor / same floor again, 1,000 files (noise)"), text("1"), 0, Unlimited, smallRuns.noise},
        {text("floor / same floor again, 10,000 files (noise)"), text("1"), 0, Unlimited, largeRuns.noise},
    };
}
}

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.contains(s_memoryOption)) {
        std::printf("%.0f\n", registryBytes());
        return 0;
    }
    const Workload small(1000);
    const Workload large(10000);
    if (arguments.contains(s_checkOption)) {
        return passesOnce([&] { return measureAll(small, large, CheckEffort); }) ? 0 : 1;
    }
    print(measureAll(small, large, FullEffort));
    return 0;
}
