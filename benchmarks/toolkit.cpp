// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

// What the toolkit's types cost: a reset that StableListModel turns into steps, and SettingsEntry objects that nothing
// happens to.

#include "childprocess.h"
#include "comparison.h"
#include "heap.h"
#include "report.h"
#include "workload.h"

#include "models/settingsmodel.h"
#include "registry/pluginregistry.h"
#include "registry/treeitem.h"
#include "toolkit/settingsentry.h"
#include "toolkit/stablelistmodel.h"

#include <QCoreApplication>

#include <cstdio>
#include <memory>
#include <vector>

namespace
{
constexpr int Entries = 10000;
constexpr int HeapFiles = 400;
constexpr double MaxEntryBytes = 1024;
const QString s_heapOption = QStringLiteral("--entry-heap");
const QStringList s_page{QStringLiteral("list")};

using EntryList = std::vector<std::unique_ptr<SettingsEntry>>;

EntryList makeEntries(const QStringList &paths)
{
    EntryList entries;
    entries.reserve(std::size_t(paths.size()));
    for (const QString &path : paths) {
        entries.push_back(std::make_unique<SettingsEntry>());
        entries.back()->setPath(path);
    }
    return entries;
}

/// The rows of a page, of which one entry at a time is renamed, added or moved.
class Page
{
public:
    using Change = void (Page::*)();

    explicit Page(int rows)
        : m_root(PluginRegistry::instance()->getItem({}))
        , m_rows(rows)
    {
        for (int row = 0; row < rows; ++row) {
            setTitle(row, QStringLiteral("Title"));
        }
        m_source.setPath(s_page);
        m_source.setDepth(1);
        m_model.setSourceModel(&m_source);
        require(m_model.count() == rows, "the page has all rows");
    }

    ~Page()
    {
        m_root->removeItems([](const TreeItem *) { return true; });
    }

    Page(const Page &) = delete;
    Page &operator=(const Page &) = delete;

    void rename()
    {
        setTitle(m_rows / 2, QString::number(++m_batch));
    }

    void add()
    {
        setTitle(m_rows + ++m_batch, QStringLiteral("Title"));
    }

    void move()
    {
        insert(m_rows / 2, {{QStringLiteral("title"), QStringLiteral("Title")},
                            {QStringLiteral("order"), ++m_batch % 2 == 0 ? 1 : 1000000}});
    }

    /// The time that a batch with @p change takes, without and with the stable model.
    double secondsOfSource(Change change)
    {
        m_model.setSourceModel(nullptr);
        const double time = secondsOfBatch(change);
        m_model.setSourceModel(&m_source);
        return time;
    }

    template<typename Signal>
    double secondsOfBoth(Change change, Signal announcement)
    {
        int changes = 0;
        const auto connection = QObject::connect(&m_model, announcement, [&changes] { ++changes; });
        const double time = secondsOfBatch(change);
        QObject::disconnect(connection);
        require(changes == 1, "one row has changed");
        return time;
    }

private:
    double secondsOfBatch(Change change)
    {
        (this->*change)();
        return cpuSeconds([] { Q_EMIT PluginRegistry::instance()->contentChanged(); });
    }

    void setTitle(int row, const QString &title)
    {
        insert(row, {{QStringLiteral("title"), title}});
    }

    void insert(int row, const QVariantMap &data)
    {
        m_root->insertItem({s_page.first(), QStringLiteral("entry%1").arg(row, 5, 10, QLatin1Char('0'))}, data);
    }

    TreeItem *const m_root;
    const int m_rows;
    int m_batch = 0;
    SettingsModel m_source;
    StableListModel m_model;
};

/// The measure's maximum is twice the target, for slow machines.
template<typename Signal>
Measure measureReset(const QString &name, Page::Change change, Signal announcement, int rows, double target,
                     int runs)
{
    Page page(rows);
    QVector<double> samples;
    for (int run = 0; run < runs; ++run) {
        const double source = page.secondsOfSource(change);
        samples.append((page.secondsOfBoth(change, announcement) - source) * 1000);
    }
    return {QStringLiteral("StableListModel: reset with one %1 row of %2, ms").arg(name, sizeText(rows)),
            QStringLiteral("≤ %1").arg(target), samples, 2 * target};
}

void addResets(Report &report, int rows, double target, int runs)
{
    report.measures += {
        measureReset(QStringLiteral("changed"), &Page::rename, &QAbstractItemModel::dataChanged, rows, target,
                     runs),
        measureReset(QStringLiteral("added"), &Page::add, &QAbstractItemModel::rowsInserted, rows, target, runs),
        measureReset(QStringLiteral("moved"), &Page::move, &QAbstractItemModel::rowsMoved, rows, target, runs),
    };
}

/// Bytes of heap that an entry adds, those that the watcher keeps for its path included.
double entryHeap()
{
    QStringList paths;
    for (const TreeItem *item :
         PluginRegistry::instance()->getItem({})->getSubitems(TreeItem::orderLessThan, -1)) {
        if (item->isDeclared()) {
            paths.append(item->location().join(QLatin1Char('/')));
        }
    }
    SettingsEntry first; // and all that the first one creates
    first.setPath(paths.first());
    EntryList entries;
    return heapGrowth([&] { entries = makeEntries(paths); }) / paths.size();
}

Measure measureHeap(const Workload &workload, int count)
{
    workload.putInPlace();
    QVector<double> samples;
    for (int i = 0; i < count; ++i) {
        samples.append(numberOfChild({s_heapOption}));
    }
    workload.takeAway();
    return {QStringLiteral("bytes of heap for an idle SettingsEntry"), QStringLiteral("≤ %1").arg(MaxEntryBytes),
            samples, MaxEntryBytes};
}

/// The time of a batch that unloads a file and one that loads it again.
double secondsOfBatches(const Workload &workload)
{
    const int last = workload.fileCount() - 1;
    const auto scan = [] { callSlot(PluginRegistry::instance(), "monitoredDirectoryChanged"); };
    workload.hide(last, 1);
    double time = cpuSeconds(scan);
    workload.show(last, 1);
    time += cpuSeconds(scan);
    return time;
}

Measure measureBatch(int runs)
{
    const Workload workload(Entries / Workload::EntriesPerFile + 1);
    workload.putInPlace();
    callSlot(PluginRegistry::instance(), "monitoredDirectoryChanged");
    const QStringList paths = workload.entryPaths().mid(0, Entries);
    QVector<double> samples;
    for (int run = 0; run < runs; ++run) {
        const double without = secondsOfBatches(workload);
        const EntryList entries = makeEntries(paths);
        samples.append(secondsOfBatches(workload) / without);
    }
    workload.takeAway();
    callSlot(PluginRegistry::instance(), "monitoredDirectoryChanged");
    return {QStringLiteral("batch of one file, with 10,000 SettingsEntry objects of others / without"),
            QStringLiteral("≤ 2"), samples, 2};
}

Report measureAll(Effort effort)
{
    const bool isFull = effort == Effort::Full;
    Report report;
    report.measures.append(measureHeap(Workload(HeapFiles), isFull ? 5 : 3));
    addResets(report, 1000, 1, isFull ? 101 : 21);
    addResets(report, 10000, 60, isFull ? 21 : 5);
    report.measures.append(measureBatch(isFull ? 21 : 5));
    return report;
}
}

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.contains(s_heapOption)) {
        std::printf("%.1f\n", entryHeap());
        return 0;
    }
    return runBenchmark(arguments, measureAll);
}
