// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

// Measures the favourites. The baseline is what every program does that follows a list in dconf: it reads the list,
// writes it, reads it again when the change is announced, and looks up each path in a hash of all entries. For
// isFavorite() and the role "favorite" the baseline is to read the list into a hash and look up all entries. Each run is
// timed between two runs of the baseline in the same process. The times are processor times of the thread, because the
// dconf service takes the writes at the same time in another process.

#include "comparison.h"
#include "models/favoritesmodel.h"
#include "registry/pluginregistry.h"
#include "report.h"
#include "statistics.h"
#include "workload.h"

#include <mgconfitem.h>

#include <QCoreApplication>
#include <QHash>
#include <QSet>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <iostream>
#include <map>

namespace
{
constexpr int Many = 1000;
constexpr int VeryMany = 10000;
constexpr int Files = 10000;
constexpr int CheckFiles = 2100; // a few more entries than favourites
/// The largest growth of a cost with ten times the favourites, on any machine. A quadratic step grows a hundredfold, and
/// dconf alone more than tenfold.
constexpr double MaxGrowthWithDconf = 30;
/// The largest ratio of a cost to its target, on any machine. Growth alone does not distinguish a search of the list
/// from a look-up: for each query both grow tenfold at most.
constexpr double MaxOverTarget = 3;

struct Plan {
    QVector<int> sizes;
    int runs;
};
const Plan s_fullPlan{{10, Many, VeryMany}, 30};
const Plan s_checkPlan{{Many, VeryMany}, 3};

const QString s_key = QStringLiteral("/benchmark/favorites");
const QString s_baselineKey = QStringLiteral("/benchmark/baseline");
const QString s_userModifiedKey = QStringLiteral("/benchmark/modified");

/// The entries of an installed workload, shuffled.
class Entries
{
public:
    explicit Entries(const Workload &workload)
    {
        const QStringList paths = workload.entryPaths();
        for (int i = 0; i < paths.size(); ++i) {
            // The factor is prime to their number, so that each entry comes once.
            m_paths.append(paths.at(int(qint64(i) * 7919 % paths.size())));
            m_index.insert(m_paths.last(), i);
        }
    }

    const QStringList &paths() const
    {
        return m_paths;
    }

    bool haveAll(const QStringList &paths) const
    {
        return std::all_of(paths.cbegin(), paths.cend(),
                           [this](const QString &path) { return m_index.contains(path); });
    }

private:
    QStringList m_paths;
    QHash<QString, int> m_index;
};

QStringList everySecond(const QStringList &paths)
{
    QStringList half;
    for (int i = 0; i < paths.size(); i += 2) {
        half.append(paths.at(i));
    }
    return half;
}

/// Lists of one size, a model of them, and the baseline.
class Subject
{
public:
    Subject(const Entries &entries, int size)
        : m_entries(entries)
        , m_size(size)
        , m_all(entries.paths().mid(0, size))
        , m_half(everySecond(m_all))
        , m_writer(s_key)
        , m_baseline(s_baselineKey)
    {
        QObject::connect(&m_baseline, &MGConfItem::valueChanged, &m_baseline,
                         [this] { require(m_entries.haveAll(m_baseline.value().toStringList())); });
        m_writer.set(m_all);
        m_baseline.set(m_all);
        m_model.setFilter({QStringLiteral("grid_favorites")});
        m_model.setKey(s_key);
        m_model.setUserModifiedKey(s_userModifiedKey);
        m_model.componentComplete();
        require(m_model.count() == size);
    }

    ~Subject()
    {
        m_writer.set({});
        m_baseline.set({});
        MGConfItem(s_userModifiedKey).set({});
    }

    void setUserModified(bool modified)
    {
        MGConfItem(s_userModifiedKey).set(modified);
    }

    void writeOther()
    {
        const QStringList &other = m_model.count() == m_size ? m_half : m_all;
        m_writer.set(other);
        require(m_model.count() == other.size());
    }

    void add()
    {
        m_model.addFavorite(m_entries.paths().at(m_size));
        require(m_model.count() == m_size + 1);
    }

    void removeLast()
    {
        m_model.removeFavorite(m_entries.paths().at(m_size));
        require(m_model.count() == m_size);
    }

    void move()
    {
        m_model.move(0, m_size - 1);
    }

    void showPotential()
    {
        m_model.setPath({QStringLiteral("system_settings")});
        m_model.setShowPotential(true);
    }

    void readRoles()
    {
        int favorites = 0;
        for (int row = 0; row < m_model.count(); ++row) {
            favorites += m_model.data(m_model.index(row), FavoritesModel::FavoriteRole).toBool() ? 1 : 0;
        }
        require(favorites == m_size);
    }

    void askForAll()
    {
        int favorites = 0;
        for (const QString &path : m_entries.paths()) {
            favorites += m_model.isFavorite(path) ? 1 : 0;
        }
        require(favorites == m_size);
    }

    /// Makes the model read the list again for the next query.
    void touch()
    {
        m_writer.set(QStringList());
        m_writer.set(m_all);
    }

    void baseline()
    {
        QStringList paths = m_baseline.value().toStringList();
        paths.move(0, paths.size() - 1);
        m_baseline.set(paths);
    }

    void baselineOfQueries()
    {
        const QStringList stored = m_baseline.value().toStringList();
        const QSet<QString> favorites(stored.cbegin(), stored.cend());
        int found = 0;
        for (const QString &path : m_entries.paths()) {
            found += favorites.contains(path) ? 1 : 0;
        }
        require(found == m_size);
    }

private:
    void require(bool condition) const
    {
        if (!condition) {
            qFatal("The result with %d favourites is wrong", m_size);
        }
    }

    const Entries &m_entries;
    const int m_size;
    const QStringList m_all;
    const QStringList m_half;
    MGConfItem m_writer;
    MGConfItem m_baseline;
    FavoritesModel m_model;
};

/// An operation that is measured with each size.
struct Operation {
    QString name;
    void (Subject::*work)();
    void (Subject::*baseline)();
    double target; ///< the largest ratio to the baseline
    void (*prepare)(Subject &subject); ///< called once
    void (*before)(Subject &subject); ///< called for each run; before() and after() are not timed
    void (*after)(Subject &subject);
};

void nothing(Subject &) {}

const std::array<Operation, 7> s_operations{{
    {QStringLiteral("another list, reset"), &Subject::writeOther, &Subject::baseline, 2,
     [](Subject &s) { s.setUserModified(false); }, nothing, nothing},
    {QStringLiteral("another list, row by row"), &Subject::writeOther, &Subject::baseline, 2,
     [](Subject &s) { s.setUserModified(true); }, nothing, nothing},
    {QStringLiteral("add"), &Subject::add, &Subject::baseline, 3, nothing, nothing,
     [](Subject &s) { s.removeLast(); }},
    {QStringLiteral("remove the last"), &Subject::removeLast, &Subject::baseline, 3, nothing,
     [](Subject &s) { s.add(); }, nothing},
    {QStringLiteral("move the first to the end"), &Subject::move, &Subject::baseline, 3, nothing, nothing,
     nothing},
    {QStringLiteral("isFavorite() of all"), &Subject::askForAll, &Subject::baselineOfQueries, 1.5, nothing,
     [](Subject &s) { s.touch(); }, nothing},
    {QStringLiteral("role \"favorite\" of all"), &Subject::readRoles, &Subject::baselineOfQueries, 12,
     [](Subject &s) { s.showPotential(); }, [](Subject &s) { s.touch(); }, nothing},
}};

void run(benchmark::State &state, const Entries &entries, int size, const Operation &operation, Runs &runs)
{
    Subject subject(entries, size);
    operation.prepare(subject);
    const auto baseline = [&] {
        QCoreApplication::processEvents(); // dconf's messages about the previous writes
        return cpuSeconds([&] { (subject.*operation.baseline)(); });
    };
    for (auto iteration : state) {
        Q_UNUSED(iteration)
        operation.before(subject);
        const double baselineBefore = baseline();
        QCoreApplication::processEvents();
        const double work = cpuSeconds([&] { (subject.*operation.work)(); });
        const double baselineAfter = baseline();
        operation.after(subject);
        state.SetIterationTime(work);
        runs.add(baselineBefore, work, baselineAfter);
    }
    state.counters["over_baseline"] = median(runs.overBaseline);
}

/// The runs of one operation by size.
using RunsOfSizes = std::map<int, Runs>;

void add(const Operation &operation, const RunsOfSizes &runs, Report *report)
{
    QVector<Cost> costs;
    for (const auto &[size, ofSize] : runs) {
        costs.append({QStringLiteral("favourites: %1").arg(operation.name), size, ofSize.seconds});
        report->measures.append(
            {QStringLiteral("%1 / baseline, %2 favourites").arg(operation.name, sizeText(size)),
             QStringLiteral("≤ %1").arg(operation.target), ofSize.overBaseline, MaxOverTarget * operation.target});
    }
    const bool writes = operation.baseline == &Subject::baseline;
    report->measures += growths(fastest(costs.mid(costs.size() - 2)), writes ? MaxGrowthWithDconf : MaxGrowth);
    report->costs += costs;
}

Report measureAll(const Entries &entries, const Plan &plan)
{
    std::array<RunsOfSizes, s_operations.size()> runs;
    benchmark::ClearRegisteredBenchmarks();
    for (std::size_t i = 0; i < s_operations.size(); ++i) {
        const Operation &operation = s_operations[i];
        for (const int size : plan.sizes) {
            const QString name = QStringLiteral("%1, %2").arg(operation.name, sizeText(size));
            Runs &ofSize = runs[i][size];
            benchmark::RegisterBenchmark(name.toUtf8().constData(),
                                         [&entries, size, &operation, &ofSize](auto &state) {
                                             run(state, entries, size, operation, ofSize);
                                         })
                ->UseManualTime()
                ->Iterations(plan.runs)
                ->Unit(benchmark::kMicrosecond);
        }
    }
    benchmark::ConsoleReporter reporter;
    reporter.SetOutputStream(&std::cerr); // the report goes to standard output
    benchmark::RunSpecifiedBenchmarks(&reporter);

    Report report;
    for (std::size_t i = 0; i < s_operations.size(); ++i) {
        add(s_operations[i], runs[i], &report);
    }
    return report;
}
}

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const bool check = application.arguments().contains(QStringLiteral("--check"));
    const Workload workload(check ? CheckFiles : Files);
    workload.putInPlace();
    PluginRegistry::instance();
    const Entries entries(workload);
    return runBenchmark(application.arguments(), [&entries](Effort effort) {
        return measureAll(entries, effort == Effort::Full ? s_fullPlan : s_checkPlan);
    });
}
