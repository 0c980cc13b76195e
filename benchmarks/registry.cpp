// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

// Measures the registry. The baseline is to read the same files and convert them to variant maps in the same process.
// Each construction is timed between two runs of the baseline, in wall time. The time for deleting the registry and the
// maps of the baseline is not included. Each run starts with a trimmed heap, like a program that starts: otherwise it
// would pay for malloc's sorting of the memory that the previous run has freed.

#include "childprocess.h"
#include "comparison.h"
#include "heap.h"
#include "instructions.h"
#include "report.h"
#include "statistics.h"
#include "workload.h"

#include "common/constants.h"
#include "registry/pluginregistry.h"
#include "registry/treeitem.h"

#include <mgconfitem.h>

#include <QCoreApplication>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QVariantMap>

#include <benchmark/benchmark.h>

#include <malloc.h>

#include <cstdio>
#include <functional>
#include <iostream>
#include <memory>

namespace
{
constexpr int MemoryFiles = 1000;
constexpr int MemorySamples = 5;
constexpr int BatchFiles = 200;

const QString s_unreadOption = QStringLiteral("--memory-unread");
const QString s_readOption = QStringLiteral("--memory-read");
const QString s_constructOption = QStringLiteral("--count-constructing");
const QString s_listOption = QStringLiteral("--count-listing");

struct Size {
    int files;
    int constructions;
    int changes;
};
const QVector<Size> s_fullSizes{{100, 500, 300}, {1000, 200, 300}, {10000, 51, 100}};
const QVector<Size> s_checkSizes{{100, 51, 51}, {1000, 25, 25}, {10000, 3, 5}};
/// Each size has ten times the files of the previous one.
const QVector<int> s_countedFiles{100, 1000};

/// The samples of one number of files: seconds, or ratios to another time.
struct Samples {
    Runs constructions;
    QVector<double> overReading;
    QVector<double> listings;
    QVector<double> listingsOverBaseline;
    QVector<double> reloads;
    QVector<double> additions;
    QVector<double> removals;
    QVector<double> maskings;
    QVector<double> batches;
};

template<typename Use>
double secondsOfReading(const QStringList &files, const Use &use)
{
    return seconds([&] {
        for (const QString &path : files) {
            QFile file(path);
            if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
                qFatal("Can't read %s", qPrintable(path));
            }
            use(file.readAll());
        }
    });
}

double readingSeconds(const QStringList &files)
{
    QVector<QByteArray> contents;
    malloc_trim(0);
    return secondsOfReading(files, [&contents](const QByteArray &content) { contents.append(content); });
}

double baselineSeconds(const QStringList &files)
{
    QVector<QVariantMap> maps;
    malloc_trim(0);
    return secondsOfReading(files, [&maps](const QByteArray &content) {
        maps.append(QJsonDocument::fromJson(content).object().toVariantMap());
    });
}

double listingSeconds(const PluginRegistry &registry, int expectedCount)
{
    QList<TreeItem *> items;
    const double time = seconds([&] { items = registry.getItem({})->getSubitems(TreeItem::orderLessThan, -1); });
    if (items.size() < expectedCount) {
        qFatal("Entries are missing");
    }
    return time;
}

void construct(benchmark::State &state, const Workload &workload, Samples &samples)
{
    const QStringList files = workload.files();
    for (auto iteration : state) {
        Q_UNUSED(iteration)
        const double reading = readingSeconds(files);
        const double baselineBefore = baselineSeconds(files);
        std::unique_ptr<PluginRegistry> registry;
        malloc_trim(0);
        const double construction = seconds([&] { registry = std::make_unique<PluginRegistry>(); });
        const double listing = listingSeconds(*registry, workload.fileCount() * Workload::EntriesPerFile);
        registry.reset();
        QCoreApplication::processEvents(); // dconf's messages for this registry
        const double baselineAfter = baselineSeconds(files);

        state.SetIterationTime(construction);
        samples.constructions.add(baselineBefore, construction, baselineAfter);
        samples.overReading.append(construction / reading);
        samples.listings.append(listing);
        samples.listingsOverBaseline.append(2 * listing / (baselineBefore + baselineAfter));
    }
    state.counters["over_baseline"] = median(samples.constructions.overBaseline);
}

double rescanSeconds(PluginRegistry *registry)
{
    return seconds([registry] { callSlot(registry, "monitoredDirectoryChanged"); });
}

/// Changes another file in each iteration.
void change(benchmark::State &state, const Workload &workload, Samples &samples)
{
    PluginRegistry registry;
    MGConfItem masked(Constants::MaskedSettingsKey);
    const QStringList paths = workload.entryPaths();
    int file = 0;
    for (auto iteration : state) {
        Q_UNUSED(iteration)
        file = (file + 7919) % workload.fileCount(); // prime to their number
        const QString name = workload.fileName(file);
        samples.reloads.append(seconds([&] {
            registry.removeEntriesForFile(name);
            registry.addEntriesForFile(name);
        }));
        workload.hide(file, 1);
        samples.removals.append(rescanSeconds(&registry));
        workload.show(file, 1);
        samples.additions.append(rescanSeconds(&registry));
        const QString path = paths.at(file * Workload::EntriesPerFile);
        samples.maskings.append(seconds([&] { masked.set(QStringList{path}); }));
        if (registry.getItem(path.split(QLatin1Char('/')))) {
            qFatal("The masked entry is still there");
        }
        masked.set(QStringList());
        QCoreApplication::processEvents(); // dconf's messages
        state.SetIterationTime(samples.reloads.last());
    }
}

/// Removes many files in each iteration.
void removeBatches(benchmark::State &state, const Workload &workload, Samples &samples)
{
    PluginRegistry registry;
    const QStringList paths = workload.entryPaths();
    const auto firstPath = [&paths](int file) {
        return paths.at(file * Workload::EntriesPerFile).split(QLatin1Char('/'));
    };
    const int batches = workload.fileCount() / BatchFiles;
    int batch = 0;
    for (auto iteration : state) {
        Q_UNUSED(iteration)
        batch = (batch + 1) % batches;
        workload.hide(batch * BatchFiles, BatchFiles);
        samples.batches.append(rescanSeconds(&registry));
        if (registry.getItem(firstPath(batch * BatchFiles))) {
            qFatal("The files of the batch are still there");
        }
        workload.show(batch * BatchFiles, BatchFiles);
        rescanSeconds(&registry);
        state.SetIterationTime(samples.batches.last());
    }
}

/// Returns the bytes of heap that a registry of the installed files takes.
double registryBytes(bool areEntriesRead)
{
    std::unique_ptr<PluginRegistry> registry;
    return heapGrowth([&] {
        registry = std::make_unique<PluginRegistry>();
        if (areEntriesRead) {
            for (const TreeItem *item : registry->getItem({})->getSubitems(TreeItem::orderLessThan, -1)) {
                item->title();
            }
        }
    });
}

QVector<double> kibibytesPerEntry(const QString &option)
{
    QVector<double> samples;
    for (int i = 0; i < MemorySamples; ++i) {
        samples.append(numberOfChild({option}) / (MemoryFiles * Workload::EntriesPerFile) / 1024);
    }
    return samples;
}

QVector<Measure> memory()
{
    const Workload workload(MemoryFiles);
    workload.putInPlace();
    const QVector<Measure> measures{{QStringLiteral("KiB of heap for an entry"), QStringLiteral("≤ 1.2"),
                                     kibibytesPerEntry(s_unreadOption), 1.2},
                                    {QStringLiteral("KiB of heap for an entry, once its file is read"),
                                     {},
                                     kibibytesPerEntry(s_readOption),
                                     1.7}};
    workload.takeAway();
    return measures;
}

int runCounted(const QString &option, int files)
{
    const Workload workload(files);
    workload.putInPlace();
    if (option == s_constructOption) {
        counted([] { const PluginRegistry registry; });
    } else {
        const PluginRegistry registry;
        const auto list = [&registry] { registry.getItem({})->getSubitems(TreeItem::orderLessThan, -1); };
        list(); // which sorts
        counted(list);
    }
    workload.takeAway();
    return 0;
}

Samples measure(const Size &size)
{
    const Workload workload(size.files);
    workload.putInPlace();
    Samples samples;
    benchmark::ClearRegisteredBenchmarks();
    const auto add = [&](const char *what, const auto &work, int iterations) {
        const QString name = QStringLiteral("%1, %2 files").arg(QLatin1String(what), sizeText(size.files));
        benchmark::RegisterBenchmark(qPrintable(name),
                                     [&samples, &workload, work](auto &state) { work(state, workload, samples); })
            ->UseManualTime()
            ->Iterations(iterations)
            ->Unit(benchmark::kMicrosecond);
    };
    add("construct", construct, size.constructions);
    add("change", change, size.changes);
    if (size.files > BatchFiles) {
        add("remove a batch", removeBatches, size.changes);
    }
    benchmark::ConsoleReporter reporter;
    reporter.SetOutputStream(&std::cerr); // the report goes to standard output
    benchmark::RunSpecifiedBenchmarks(&reporter);
    workload.takeAway();
    return samples;
}

QVector<Measure> ratios(int files, const Samples &samples)
{
    const QString size = QStringLiteral(", %1 files").arg(sizeText(files));
    const bool isLarge = files > MemoryFiles / 2; // with few files, the cost of an empty registry is a large share
    QVector<Measure> measures{
        {QStringLiteral("construct / baseline") + size, isLarge ? QStringLiteral("≤ 1") : QString(),
         samples.constructions.overBaseline, 1.6},
        {QStringLiteral("construct / reading alone") + size, {}, samples.overReading},
        {QStringLiteral("list the whole tree / baseline") + size, QStringLiteral("≤ 0.04"),
         samples.listingsOverBaseline, 0.08},
        {QStringLiteral("unload and load one file / construct") + size,
         files == 10000 ? QStringLiteral("≤ 0.001") : QString(),
         over(samples.reloads, samples.constructions.seconds), files == 10000 ? 0.001 : Unlimited},
        {QStringLiteral("noise: baseline / the same baseline again") + size, QStringLiteral("1"),
         samples.constructions.noise}};
    if (!samples.batches.isEmpty()) {
        measures.append({QStringLiteral("200 files removed at once / one removed") + size, QStringLiteral("≤ 2"),
                         over(samples.batches, samples.removals), 4});
    }
    return measures;
}

Report measureAll(Effort effort)
{
    Report report;
    QVector<Cost> constructions;
    QVector<Cost> listings;
    QVector<Cost> reloads;
    QVector<Cost> changes;
    for (const Size &size : effort == Effort::Full ? s_fullSizes : s_checkSizes) {
        const Samples samples = measure(size);
        report.measures += ratios(size.files, samples);
        constructions.append({QStringLiteral("registry: construct"), size.files, samples.constructions.seconds});
        listings.append({QStringLiteral("registry: list the whole tree"), size.files, samples.listings});
        reloads.append({QStringLiteral("registry: unload and load one file"), size.files, samples.reloads});
        changes.append({QStringLiteral("registry: one file added"), size.files, samples.additions});
        changes.append({QStringLiteral("registry: one file removed"), size.files, samples.removals});
        changes.append({QStringLiteral("registry: one entry masked"), size.files, samples.maskings});
        if (!samples.batches.isEmpty()) {
            changes.append({QStringLiteral("registry: 200 files removed at once"), size.files, samples.batches});
        }
    }
    report.measures += growthOfInstructions(QStringLiteral("instructions of constructing"), {s_constructOption},
                                            s_countedFiles)
                       + growthOfInstructions(QStringLiteral("instructions of listing the whole tree again"),
                                              {s_listOption}, s_countedFiles)
                       + growths(reloads, 2) + memory();
    report.costs = constructions + listings + reloads + changes;
    return report;
}
}

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.contains(s_unreadOption) || arguments.contains(s_readOption)) {
        std::printf("%.0f\n", registryBytes(arguments.contains(s_readOption)));
        return 0;
    }
    if (arguments.contains(s_constructOption) || arguments.contains(s_listOption)) {
        return runCounted(arguments.at(1), arguments.at(2).toInt());
    }
    return runBenchmark(arguments, measureAll);
}
