// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

// What the registry costs, as ratios. The floor is its input: reading the same files and turning them into variant
// maps, in the same process. Each construction is timed between two floors, so that a machine that gets slower or
// faster meanwhile does so for both. Wall time. Neither the death of the registry nor that of the floor's maps,
// which live until the clock has stopped, is counted; and each run starts from a trimmed heap, like a program that
// starts, because malloc would let it sort what the run before it has freed.

#include "statistics.h"
#include "workload.h"

#include "plugin/constants.h"
#include "registry/pluginregistry.h"

#include <QCoreApplication>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QVariantMap>

#include <malloc.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <memory>

namespace
{
constexpr int MemorySamples = 5;
constexpr int ReloadsPerRound = 101;

const QString s_memoryOption = QStringLiteral("--memory");
const QString s_checkOption = QStringLiteral("--check");

struct Effort {
    int rounds;
    int smallRunsPerRound;
};
constexpr Effort FullEffort{25, 8};
constexpr Effort CheckEffort{5, 5};

double seconds(const std::function<void()> &work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

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

struct Run {
    double floorBefore = 0;
    double construction = 0;
    double floorAfter = 0;
    double reload = 0; ///< unloading and loading one file

    double overFloor() const
    {
        return 2 * construction / (floorBefore + floorAfter);
    }
    double noise() const
    {
        return floorAfter / floorBefore;
    }
};

double reloadSeconds(PluginRegistry &registry, const Workload &workload)
{
    QVector<double> samples;
    for (int i = 0; i < ReloadsPerRound; ++i) {
        // Prime to the number of files: each time another one.
        const QString fileName = workload.fileName(i * 7919 % workload.fileCount());
        samples.append(seconds([&] {
            registry.removeEntriesForFile(fileName);
            registry.addEntriesForFile(fileName);
        }));
    }
    return median(samples);
}

/// One construction from @p workload, which is in place.
Run measureRun(const Workload &workload, bool withReload)
{
    const QStringList files = workload.files();
    Run run;
    run.floorBefore = floorSeconds(files);
    std::unique_ptr<PluginRegistry> registry;
    malloc_trim(0);
    run.construction = seconds([&] { registry = std::make_unique<PluginRegistry>(); });
    if (withReload) {
        run.reload = reloadSeconds(*registry, workload);
    }
    registry.reset();
    QCoreApplication::processEvents(); // what dconf sent for this registry
    run.floorAfter = floorSeconds(files);
    return run;
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

QVector<Measure> measureAll(const Workload &small, const Workload &large, Effort effort)
{
    Measure smallNoise{QStringLiteral("floor / same floor again, 1,000 files (noise)"), QStringLiteral("1")};
    Measure largeNoise{QStringLiteral("floor / same floor again, 10,000 files (noise)"), QStringLiteral("1")};
    Measure smallRatio{QStringLiteral("construct / floor, 1,000 files"), QStringLiteral("≤ 1.3"), 0, 1.6};
    Measure largeRatio{QStringLiteral("construct / floor, 10,000 files"), QStringLiteral("≤ 1.3"), 0, 1.6};
    Measure growth{QStringLiteral("construct, 10,000 files / 1,000 files"), QStringLiteral("≈ 10"), 0, 13};
    Measure reload{QStringLiteral("construct / unload and load one file, 10,000 files"), QStringLiteral("≥ 500"),
                   200};
    Measure memory{QStringLiteral("heap per entry, KiB"), QStringLiteral("≤ 1.6"), 0, 1.6};

    for (int round = 0; round < effort.rounds; ++round) {
        QVector<double> smallConstructions;
        small.putInPlace();
        for (int i = 0; i < effort.smallRunsPerRound; ++i) {
            const Run run = measureRun(small, false);
            smallNoise.samples.append(run.noise());
            smallRatio.samples.append(run.overFloor());
            smallConstructions.append(run.construction);
        }
        small.takeAway();

        large.putInPlace();
        const Run run = measureRun(large, true);
        large.takeAway();
        largeNoise.samples.append(run.noise());
        largeRatio.samples.append(run.overFloor());
        growth.samples.append(run.construction / median(smallConstructions));
        reload.samples.append(run.construction / run.reload);
    }

    small.putInPlace();
    for (int i = 0; i < MemorySamples; ++i) {
        memory.samples.append(registryBytesOfChild() / (small.fileCount() * Workload::EntriesPerFile) / 1024);
    }
    small.takeAway();
    return {smallRatio, largeRatio, growth, reload, memory, smallNoise, largeNoise};
}

bool areAcceptable(const QVector<Measure> &measures)
{
    return std::all_of(measures.cbegin(), measures.cend(), [](const Measure &m) { return m.isAcceptable(); });
}

/// Whether the ratios stay in bounds that hold on any machine, at one of three attempts: others may keep it busy.
bool check(const Workload &small, const Workload &large)
{
    for (int attempt = 0; attempt < 3; ++attempt) {
        const QVector<Measure> measures = measureAll(small, large, CheckEffort);
        std::fputs(markdownTable(measures).toUtf8().constData(), stdout);
        if (areAcceptable(measures)) {
            return true;
        }
    }
    return false;
}

void writeEmptyBlacklist()
{
    QFile file(Constants::FavoritesBlacklistFile);
    if (!file.open(QIODevice::WriteOnly) || file.write("[]") < 0) {
        qFatal("Can't write %s", qPrintable(file.fileName()));
    }
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
    writeEmptyBlacklist();
    if (arguments.contains(s_checkOption)) {
        return check(small, large) ? 0 : 1;
    }
    std::fputs(markdownTable(measureAll(small, large, FullEffort)).toUtf8().constData(), stdout);
    return 0;
}
