// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

// Measures the heap that a row of each model takes, malloc's own overhead included. Each sample is taken in a fresh
// process, in which nothing has been freed, as the difference between a model with rows and without. The listed objects
// are in memory before.

#include "applications/applicationssettingsmodel.h"
#include "childprocess.h"
#include "heap.h"
#include "installedapplications.h"
#include "models/favoritesmodel.h"
#include "models/settingsmodel.h"
#include "registry/pluginregistry.h"
#include "registry/treeitem.h"
#include "report.h"
#include "workload.h"

#include <launcherfoldermodel.h>

#include <QCoreApplication>

#include <array>
#include <cstdio>

namespace
{
constexpr int Applications = 1000;
constexpr int SettingsFiles = 400;
constexpr int FavoritesFiles = 1000;
constexpr int FullSamples = 5;
constexpr int CheckSamples = 3;

const QString s_section = QStringLiteral("system_settings");

double settingsRow()
{
    PluginRegistry::instance();
    SettingsModel model;
    model.setDepth(2);
    const double bytes = heapGrowth([&model] { model.setPath({s_section}); });
    return bytes / model.count();
}

double favoritesRow()
{
    // Entries are kept as text until they are read.
    for (const TreeItem *item :
         PluginRegistry::instance()->getItem({})->getSubitems(TreeItem::orderLessThan, -1)) {
        item->type();
    }
    FavoritesModel model;
    model.setFilter({QStringLiteral("grid_favorites")});
    model.setPath({s_section});
    model.componentComplete();
    const double bytes = heapGrowth([&model] { model.setShowPotential(true); });
    return bytes / model.count();
}

double applicationRow()
{
    InstalledApplications::install(Applications);
    PluginRegistry::instance();
    LauncherFolderModel launcher;
    ApplicationsSettingsModel model;
    model.setApplications(&launcher);
    const double bytes = heapGrowth([&model] { model.componentComplete(); });
    return bytes / model.count();
}

struct Row {
    QString model; ///< also the program's argument
    int files; ///< registration files
    double (*bytes)();
    double maximum;
};
const std::array<Row, 3> s_rows{{
    {QStringLiteral("SettingsModel"), SettingsFiles, settingsRow, 542},
    {QStringLiteral("FavoritesModel"), FavoritesFiles, favoritesRow, 574},
    {QStringLiteral("ApplicationsSettingsModel"), 1, applicationRow, 1050},
}};

Measure measure(const Row &row, int count)
{
    const Workload workload(row.files);
    workload.putInPlace();
    QVector<double> samples;
    for (int i = 0; i < count; ++i) {
        samples.append(numberOfChild({row.model}));
    }
    workload.takeAway();
    return {QStringLiteral("bytes of heap for a row of %1").arg(row.model),
            QStringLiteral("≤ %1").arg(row.maximum), samples, row.maximum};
}

Report measureAll(Effort effort)
{
    Report report;
    for (const Row &row : s_rows) {
        report.measures.append(measure(row, effort == Effort::Full ? FullSamples : CheckSamples));
    }
    return report;
}
}

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    for (const Row &row : s_rows) {
        if (arguments.contains(row.model)) {
            std::printf("%.1f\n", row.bytes());
            return 0;
        }
    }
    return runBenchmark(arguments, measureAll);
}
