// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

// Measures a model of all entries of a tree that can become favourites. The first such model after the files were loaded
// parses the entries, which are kept as text until they are read. So each sample of the first build loads the files
// again while no model exists. Few favourites are stored, so that dconf's share is small. The times are processor times
// of the thread.

#include "comparison.h"
#include "instructions.h"
#include "models/favoritesmodel.h"
#include "registry/pluginregistry.h"
#include "report.h"
#include "workload.h"

#include <mgconfitem.h>

#include <QCoreApplication>

#include <memory>

namespace
{
struct Size {
    int files;
    int firstBuilds;
    int runs;
};
const QVector<Size> s_fullSizes{{100, 101, 301}, {1000, 31, 101}, {10000, 11, 25}};
const QVector<Size> s_checkSizes{{100, 25, 51}, {1000, 9, 15}, {10000, 3, 5}};

/// Each size has ten times the files of the previous one.
const QVector<int> s_countedFiles{100, 1000};

constexpr int Favorites = 10;
const QString s_key = QStringLiteral("/benchmark/favorites");
const QString s_firstBuild = QStringLiteral("first build");
const QString s_rebuild = QStringLiteral("rebuild");
const QString s_edit = QStringLiteral("add and remove");
const QString s_countOption = QStringLiteral("--count");

/// A workload that the registry has loaded.
class LoadedWorkload
{
public:
    explicit LoadedWorkload(const Workload &workload)
        : m_workload(workload)
    {
        m_workload.putInPlace();
        rescan();
    }

    ~LoadedWorkload()
    {
        m_workload.takeAway();
        rescan();
    }

    LoadedWorkload(const LoadedWorkload &) = delete;
    LoadedWorkload &operator=(const LoadedWorkload &) = delete;

private:
    static void rescan()
    {
        callSlot(PluginRegistry::instance(), "monitoredDirectoryChanged");
    }

    const Workload &m_workload;
};

struct Samples {
    QVector<double> firstBuilds;
    QVector<double> rebuilds;
    QVector<double> questions;
    QVector<double> edits;
};

/// Returns a model that has no rows until its componentComplete() is called.
std::unique_ptr<FavoritesModel> makeModel()
{
    auto model = std::make_unique<FavoritesModel>();
    model->setKey(s_key);
    model->setFilter({QStringLiteral("grid_favorites")});
    model->setPath({QStringLiteral("system_settings")});
    model->setShowPotential(true);
    return model;
}

double firstBuildSeconds(const Workload &workload)
{
    const LoadedWorkload loaded(workload);
    const auto model = makeModel();
    const double build = cpuSeconds([&model] { model->componentComplete(); });
    require(model->count() > workload.fileCount() * Workload::EntriesPerFile, "Rows are missing"); // sections, too
    return build;
}

void ask(const FavoritesModel &model, const QStringList &paths)
{
    int favorites = 0;
    for (const QString &path : paths) {
        favorites += model.isFavorite(path) ? 1 : 0;
    }
    require(favorites == Favorites, "The answers are wrong");
}

void edit(FavoritesModel *model, const QString &path)
{
    model->addFavorite(path);
    require(model->isFavorite(path), "It was not added");
    model->removeFavorite(path);
    require(!model->isFavorite(path), "It was not removed");
}

Samples measure(const Size &size)
{
    const Workload workload(size.files);
    Samples samples;
    for (int i = 0; i < size.firstBuilds; ++i) {
        samples.firstBuilds.append(firstBuildSeconds(workload));
    }
    const LoadedWorkload loaded(workload);
    const QStringList paths = workload.entryPaths();
    MGConfItem(s_key).set(QStringList(paths.mid(0, Favorites)));
    const auto model = makeModel();
    model->componentComplete();
    for (int i = 0; i < size.runs; ++i) {
        samples.rebuilds.append(cpuSeconds([&model] { callSlot(model.get(), "resetModel"); }));
        samples.edits.append(cpuSeconds([&] { edit(model.get(), paths.last()); }));
        samples.questions.append(cpuSeconds([&] { ask(*model, paths); }));
        QCoreApplication::processEvents(); // dconf's messages about the edits
    }
    return samples;
}

void count(const QString &what, int files)
{
    const Workload workload(files);
    const LoadedWorkload loaded(workload);
    const QStringList paths = workload.entryPaths();
    MGConfItem(s_key).set(QStringList(paths.mid(0, Favorites)));
    const auto model = makeModel();
    if (what == s_firstBuild) {
        counted([&model] { model->componentComplete(); });
        return;
    }
    model->componentComplete();
    if (what == s_rebuild) {
        counted([&model] { callSlot(model.get(), "resetModel"); });
    } else {
        counted([&] { edit(model.get(), paths.last()); });
    }
}

QVector<Measure> growthOf(const QString &what)
{
    return growthOfInstructions(QStringLiteral("potential favourites: instructions of ") + what,
                                {s_countOption, what}, s_countedFiles);
}

Report measureAll(Effort effort)
{
    QVector<Cost> firstBuilds;
    QVector<Cost> rebuilds;
    QVector<Cost> questions;
    QVector<Cost> edits;
    Report report;
    for (const Size &size : effort == Effort::Full ? s_fullSizes : s_checkSizes) {
        const Samples samples = measure(size);
        const auto cost = [&size](const QString &what, const QVector<double> &seconds) {
            return Cost{QStringLiteral("potential favourites: ") + what, size.files, seconds};
        };
        firstBuilds.append(cost(s_firstBuild, samples.firstBuilds));
        rebuilds.append(cost(s_rebuild, samples.rebuilds));
        questions.append(cost(QStringLiteral("isFavorite() of all entries"), samples.questions));
        edits.append(cost(s_edit, samples.edits));
    }
    report.measures = growthOf(s_firstBuild) + growthOf(s_rebuild) + growthOf(s_edit)
                      + growths(fastest(questions));
    report.costs = firstBuilds + rebuilds + questions + edits;
    return report;
}
}

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.contains(s_countOption)) {
        count(arguments.at(2), arguments.at(3).toInt());
        return 0;
    }
    return runBenchmark(arguments, measureAll);
}
