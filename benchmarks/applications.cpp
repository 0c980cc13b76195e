// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

// Measures the list of applications. The baseline of a rebuild is to create as many plain objects with the same texts;
// the launcher has loaded its files before. A change of a desktop file is measured until its row has changed, a reply of
// a service about all applications from its arrival until the last signal of the model. The times are processor times
// of the model's thread, which exclude the services and Qt's thread for the bus.

#include "answeringservices.h"
#include "applications/applicationssettingsmodel.h"
#include "comparison.h"
#include "installedapplications.h"
#include "report.h"

#include <launcherfoldermodel.h>

#include <QCoreApplication>
#include <QEventLoop>

#include <array>
#include <functional>

namespace
{
using Model = ApplicationsSettingsModel;

constexpr uint User = 1000;
constexpr int FullRuns = 201;
constexpr int CheckRuns = 25;
constexpr std::array<int, 3> Sizes{10, 100, 1000};

/// A change costs the same with a hundred times the applications, apart from noise.
constexpr double MaxGrowthOfChanges = 2;
constexpr int NoMode = -1;

/// The samples of one number of applications.
struct Samples {
    Runs rebuilds;
    QVector<double> changes;
    QVector<double> allowlists;
    QVector<double> autostartLists;
    QVector<double> notifications;
};

class PlainObject : public QObject
{
public:
    PlainObject(QStringList texts, QObject *parent)
        : QObject(parent)
        , m_texts(std::move(texts))
    {
    }

private:
    const QStringList m_texts;
};

/// Returns the texts of all rows.
QVector<QStringList> textsOf(const Model &model)
{
    QVector<QStringList> rows;
    for (int row = 0; row < model.rowCount(); ++row) {
        QStringList texts;
        for (const int role : {Model::IconIdRole, Model::IconModeRole, Model::NameRole, Model::FilePathRole,
                               Model::FileIdRole, Model::ApplicationIdRole}) {
            texts.append(model.index(row).data(role).toString());
        }
        rows.append(texts);
    }
    return rows;
}

void makePlainObjects(const QVector<QStringList> &rows)
{
    QObject parent;
    for (const QStringList &texts : rows) {
        QStringList copies; // deep ones
        for (const QString &text : texts) {
            copies.append(QString(text.constData(), text.size()));
        }
        new PlainObject(copies, &parent);
    }
}

Runs measureRebuilds(Model *model, int runs)
{
    const QVector<QStringList> rows = textsOf(*model);
    const auto baseline = [&rows] { return cpuSeconds([&rows] { makePlainObjects(rows); }); };
    Runs result;
    for (int run = 0; run < runs; ++run) {
        const double before = baseline();
        const double work = cpuSeconds([model] { callSlot(model, "launcherModelReset"); });
        result.add(before, work, baseline());
    }
    return result;
}

template<typename Object, typename Signal>
double secondsUntil(const Object *object, Signal signal)
{
    QEventLoop loop;
    QObject::connect(object, signal, &loop, &QEventLoop::quit);
    return cpuSeconds([&loop] { loop.exec(); });
}

/// Returns the seconds until a change of the first application's file is announced, for each run.
QVector<double> measureChanges(const LauncherFolderModel &launcher, int runs)
{
    QVector<double> seconds;
    for (int run = 0; run < runs; ++run) {
        InstalledApplications::write(0, QByteArray::number(run));
        seconds.append(secondsUntil(&launcher, &LauncherFolderModel::itemChanged));
    }
    return seconds;
}

/// Returns the seconds that a reply takes until the model emits @p last, its last signal, for each run.
template<typename Signal>
QVector<double> measureReplies(const Model &model, const std::function<void()> &ask, Signal last, int runs)
{
    ask();
    secondsUntil(&model, last); // connects to the service
    QVector<double> seconds;
    for (int run = 0; run < runs; ++run) {
        ask();
        seconds.append(secondsUntil(&model, last));
    }
    return seconds;
}

QVector<double> measureListReplies(Model *model, Model::ApplicationsFilterModeTypes mode, int runs)
{
    const auto ask = [=] {
        model->setFilterMode(NoMode);
        model->setFilterMode(mode);
    };
    const QVector<double> seconds = measureReplies(*model, ask, &Model::dataChanged, runs);
    require(model->selectedApps().size() == model->count(), "The list is not the service's");
    return seconds;
}

QVector<double> measureNotificationsReplies(Model *model, int runs)
{
    const auto ask = [model] { model->getAllowedNotificationsConfig(); };
    const QVector<double> seconds = measureReplies(*model, ask, &Model::selectedAppsChanged, runs);
    require(!model->index(1).data(Model::NotificationsEnabledRole).toBool(), "The states are not the service's");
    return seconds;
}

Samples measure(int applications, int runs)
{
    InstalledApplications::install(applications);
    const AnsweringServices services(applications);
    LauncherFolderModel launcher;
    Model model;
    model.setUid(User);
    model.setApplications(&launcher);
    model.componentComplete();
    require(model.count() == applications, "Not all applications are listed");
    Samples samples;
    samples.rebuilds = measureRebuilds(&model, runs);
    samples.changes = measureChanges(launcher, runs);
    samples.allowlists = measureListReplies(&model, Model::AllowedOnly, runs);
    samples.autostartLists = measureListReplies(&model, Model::AutostartedOnly, runs);
    samples.notifications = measureNotificationsReplies(&model, runs);
    return samples;
}

Report measureAll(Effort effort)
{
    QVector<Cost> rebuilds;
    QVector<Cost> changes;
    QVector<Cost> allowlists;
    QVector<Cost> autostartLists;
    QVector<Cost> notifications;
    Report report;
    for (const int size : Sizes) {
        const Samples samples = measure(size, effort == Effort::Full ? FullRuns : CheckRuns);
        const QString applications = QStringLiteral(", %1 applications").arg(sizeText(size));
        report.measures += {{QStringLiteral("rebuild / baseline") + applications, QStringLiteral("≤ 3"),
                             samples.rebuilds.overBaseline, 9},
                            {QStringLiteral("noise: baseline / the same baseline again") + applications,
                             QStringLiteral("1"), samples.rebuilds.noise}};
        rebuilds.append({QStringLiteral("applications: rebuild"), size, samples.rebuilds.seconds});
        changes.append({QStringLiteral("applications: a changed desktop file"), size, samples.changes});
        allowlists.append({QStringLiteral("applications: reply with the allow-list"), size, samples.allowlists});
        autostartLists.append(
            {QStringLiteral("applications: reply with the autostart list"), size, samples.autostartLists});
        notifications.append(
            {QStringLiteral("applications: reply with all notifications"), size, samples.notifications});
    }
    report.measures += growths({changes.first(), changes.last()}, MaxGrowthOfChanges)
                       + growths(fastest(rebuilds), MaxGrowthOutOfCache) + growths(fastest(allowlists))
                       + growths(fastest(autostartLists)) + growths(fastest(notifications));
    report.costs = rebuilds + changes + allowlists + autostartLists + notifications;
    return report;
}
}

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (AnsweringServices::areRunWith(arguments)) {
        return AnsweringServices::run(arguments);
    }
    return runBenchmark(arguments, measureAll);
}
