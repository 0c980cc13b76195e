// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

// What a search costs: the index of many entries, queries of it, and a file that changes.

#include "childprocess.h"
#include "comparison.h"
#include "heap.h"
#include "report.h"

#include "common/constants.h"
#include "registry/pluginregistry.h"
#include "registry/treeitem.h"
#include "search/searchindex.h"
#include "search/settingssearch.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRandomGenerator>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace
{
constexpr int EntriesPerFile = 5;
constexpr int Files = 10000; ///< with 50,000 entries
constexpr int DifferentWords = 20000;
const QString s_heapOption = QStringLiteral("--index-heap");

/// Returns a word of two to four syllables, the same one for the same number.
QString wordAt(quint32 number)
{
    static const char *const s_syllables[] = {"ka",  "lo", "mi",  "ren", "sta", "tu",  "vel", "bor",
                                              "den", "fi", "gra", "hu",  "jo",  "pla", "qui", "zet"};
    QRandomGenerator random(number);
    QString word;
    for (int i = 2 + random.bounded(3); i > 0; --i) {
        word += QLatin1String(s_syllables[random.bounded(16)]);
    }
    return word;
}

QString someWord(QRandomGenerator *random)
{
    return wordAt(random->bounded(quint32(DifferentWords)));
}

QString pathOf(int file)
{
    return Constants::EntriesDirectory + QStringLiteral("/bench%1.json").arg(file, 5, 10, QLatin1Char('0'));
}

void writeFile(int file, quint32 seed)
{
    QRandomGenerator random(seed);
    QJsonArray entries;
    for (int i = 0; i < EntriesPerFile; ++i) {
        const QString path
            = QStringLiteral("settings/section%1/entry%2").arg(file % 40).arg(file * EntriesPerFile + i);
        QJsonObject entry{
            {QStringLiteral("path"), path},
            {QStringLiteral("type"), QStringLiteral("page")},
            {QStringLiteral("title"), QString(someWord(&random) + QLatin1Char(' ') + someWord(&random))}};
        if (random.bounded(3) == 0) {
            entry.insert(QStringLiteral("keywords"), QJsonArray{someWord(&random), someWord(&random)});
        }
        entries.append(entry);
    }
    QFile out(pathOf(file));
    require(out.open(QIODevice::WriteOnly), "the file can be written");
    out.write(QJsonDocument(QJsonObject{{QStringLiteral("entries"), entries}}).toJson());
}

void scan()
{
    callSlot(PluginRegistry::instance(), "monitoredDirectoryChanged");
}

/// Lets the tree have @p files files.
void load(int files)
{
    QDir().mkpath(Constants::EntriesDirectory);
    for (int file = 0; file < files; ++file) {
        writeFile(file, quint32(file));
    }
    scan();
}

void unload(int files)
{
    for (int file = 0; file < files; ++file) {
        QFile::remove(pathOf(file));
    }
    scan();
}

/// Returns a query as people type it: a word, the start of one, one with a typo, two, or an unknown one.
QString queryAt(int number)
{
    QRandomGenerator random(quint32(number) + 1000000U);
    QString word = someWord(&random);
    switch (number % 5) {
    case 0:
        return word;
    case 1:
        return word.left(1 + random.bounded(3));
    case 2:
        word[word.size() / 2] = QLatin1Char('x');
        return word;
    case 3:
        return word + QLatin1Char(' ') + someWord(&random).left(3);
    default:
        return word + QStringLiteral("wyx ") + someWord(&random);
    }
}

struct Building {
    double total; ///< ms
    double longestSlice; ///< ms
};

Building build(SettingsSearch *search)
{
    Building building{0, 0};
    search->find({QStringLiteral("a")});
    while (search->isBusy()) {
        const double time = cpuSeconds([] { QCoreApplication::processEvents(); }) * 1000;
        building.total += time;
        building.longestSlice = std::max(building.longestSlice, time);
    }
    return building;
}

QVector<Measure> measureIndex(int runs)
{
    QVector<double> totals;
    QVector<double> slices;
    for (int run = 0; run < runs; ++run) {
        SettingsSearch search;
        const Building building = build(&search);
        totals.append(building.total);
        slices.append(building.longestSlice);
    }
    return {{QStringLiteral("index of 50,000 entries, ms"), QStringLiteral("≤ 250"), totals, 1000},
            {QStringLiteral("longest slice of building the index, ms"), QStringLiteral("≤ 5"), slices, 25}};
}

QVector<Measure> measureQueries(int queries)
{
    SettingsSearch search;
    search.finish();
    QVector<double> samples;
    for (int number = 0; number < queries; ++number) {
        const QString text = queryAt(number);
        samples.append(cpuSeconds([&] { search.find({text}); }) * 1000);
    }
    const double worst = *std::max_element(samples.cbegin(), samples.cend());
    return {{QStringLiteral("query of 50,000 entries, ms"), QStringLiteral("≤ 0.5"), samples, 2.5},
            {QStringLiteral("slowest query, ms"), QStringLiteral("≤ 2"), {worst}, 20}};
}

/// The time in which the index follows a file that is replaced, in a tree of @p files files.
QVector<double> secondsOfChange(int files, int runs)
{
    load(files);
    SettingsSearch search;
    search.finish();
    QVector<double> samples;
    TreeItem *root = PluginRegistry::instance()->getItem({});
    for (int run = 0; run < runs; ++run) {
        const int file = run % files;
        PluginRegistry *registry = PluginRegistry::instance();
        const QString name = pathOf(file).section(QLatin1Char('/'), -1);
        samples.append(cpuSeconds([&] {
            registry->removeEntriesForFile(name);
            registry->addEntriesForFile(name);
            search.finish();
        }));
    }
    require(root->count(-1) > files, "the entries are there");
    search.release();
    unload(files);
    return samples;
}

QVector<Measure> measureChange(int runs)
{
    QVector<double> small = secondsOfChange(1000, runs);
    QVector<double> large = secondsOfChange(Files, runs);
    std::sort(small.begin(), small.end());
    std::sort(large.begin(), large.end());
    const double ratio = large.at(runs / 2) / small.at(runs / 2);
    return {
        {QStringLiteral("change of one file of 10,000, ms"), QString(), {large.at(runs / 2) * 1000}, Unlimited},
        {QStringLiteral("change of one file of 10,000 / of 1,000"), QStringLiteral("≤ 1.5"), {ratio}, 4}};
}

/// Bytes of heap of the index.
double indexHeap()
{
    load(Files);
    SettingsSearch warm;
    warm.finish();
    warm.release();
    SettingsSearch search;
    return heapGrowth([&search] { search.finish(); });
}

Report measureAll(Effort effort)
{
    const bool isFull = effort == Effort::Full;
    Report report;
    report.measures.append({QStringLiteral("heap of the index of 50,000 entries, MiB"),
                            QStringLiteral("≤ 6"),
                            {numberOfChild({s_heapOption}) / (1 << 20)},
                            8});
    report.measures += measureChange(isFull ? 501 : 101);
    load(Files);
    report.measures += measureIndex(isFull ? 11 : 3);
    report.measures += measureQueries(isFull ? 5000 : 500);
    unload(Files);
    return report;
}
}

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.contains(s_heapOption)) {
        std::printf("%.1f\n", indexHeap());
        std::fflush(stdout);
        unload(Files);
        return 0;
    }
    return runBenchmark(arguments, measureAll);
}
