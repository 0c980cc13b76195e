// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

// What the list of applications costs, as ratios. The floor of a rebuild is to make as many plain objects with the
// same texts; the launcher has loaded its files before. A desktop file that changes is followed among a thousand
// applications and among ten, until its row has changed. Processor time of the thread.

#include "applications/applicationssettingsmodel.h"
#include "comparison.h"
#include "statistics.h"

#include <launcherfoldermodel.h>

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QStandardPaths>
#include <QTimer>

#include <memory>

namespace
{
using Model = ApplicationsSettingsModel;

constexpr int Few = 10;
constexpr int Many = 1000;

void require(bool condition, const char *what)
{
    if (!condition) {
        qFatal("%s", what);
    }
}

void write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    require(file.open(QIODevice::WriteOnly) && file.write(content) == content.size(), "A file is not written");
}

void writeApplication(int index, const QByteArray &comment)
{
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::ApplicationsLocation));
    require(folder.mkpath(QStringLiteral(".")), "There is no directory for applications");
    write(folder.filePath(QStringLiteral("x%1.desktop").arg(index)),
          "[Desktop Entry]\nType=Application\nExec=true\nIcon=icon\nName=X" + QByteArray::number(index)
              + "\nComment=" + comment + "\nX-DBus-ServiceName=org.example.X\n");
}

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

/// The texts of all rows, as the items have them.
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
        QStringList copies; // of the characters as well
        for (const QString &text : texts) {
            copies.append(QString(text.constData(), text.size()));
        }
        new PlainObject(copies, &parent);
    }
}

Runs measureRebuilds(Model *model, int runs)
{
    const QVector<QStringList> rows = textsOf(*model);
    require(rows.size() == Many, "Not all applications are listed");
    const auto floor = [&rows] { return cpuSeconds([&rows] { makePlainObjects(rows); }); };
    Runs result;
    for (int run = 0; run < runs; ++run) {
        const double before = floor();
        const double rebuild = cpuSeconds([model] { QMetaObject::invokeMethod(model, "launcherModelReset"); });
        result.add(before, rebuild, floor());
    }
    return result;
}

/// Seconds to follow the first application's file, for each run.
QVector<double> measureChanges(LauncherFolderModel *launcher, int runs)
{
    QVector<double> seconds;
    for (int run = 0; run < runs; ++run) {
        writeApplication(0, QByteArray::number(run));
        seconds.append(cpuSeconds([launcher] {
            QEventLoop loop;
            QObject::connect(launcher, &LauncherFolderModel::itemChanged, &loop, &QEventLoop::quit);
            loop.exec();
        }));
    }
    return seconds;
}

QVector<Measure> measureAll(int runs)
{
    const auto makeModel = [](LauncherFolderModel *launcher) {
        auto model = std::make_unique<Model>();
        model->setApplications(launcher);
        model->componentComplete();
        return model;
    };
    QDir(QStandardPaths::writableLocation(QStandardPaths::ApplicationsLocation)).removeRecursively();
    for (int i = 0; i < Few; ++i) {
        writeApplication(i, {});
    }
    QVector<double> amongFew;
    {
        LauncherFolderModel launcher;
        const auto model = makeModel(&launcher);
        amongFew = measureChanges(&launcher, runs);
    }
    for (int i = Few; i < Many; ++i) {
        writeApplication(i, {});
    }
    LauncherFolderModel launcher;
    const auto model = makeModel(&launcher);
    const Runs rebuilds = measureRebuilds(model.get(), runs);
    const double usual = median(amongFew);
    const QVector<double> growth = scaled(measureChanges(&launcher, runs),
                                          [usual](double run) { return run / usual; });
    return {
        {QStringLiteral("rebuild of 1,000 applications / floor"), QStringLiteral("≤ 3"), 0, 3, rebuilds.overFloor},
        {QStringLiteral("noise: floor / floor"), QStringLiteral("1"), 0, 10, rebuilds.noise},
        {QStringLiteral("a changed desktop file, among 1,000 applications / among 10"), QStringLiteral("≤ 2"), 0,
         2, growth}};
}
}

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    qputenv("XDG_DATA_DIRS", "/nowhere"); // the machine's applications
    write(QStringLiteral("/usr/share/velka-settings/favorites-blacklist.json"), "[]");
    write(QStringLiteral("/usr/share/velka-settings/entries/x.json"),
          R"({"entries": [{"path": "applications"}]})");
    if (application.arguments().contains(QStringLiteral("--check"))) {
        return passesOnce([] { return measureAll(51); }) ? 0 : 1;
    }
    print(measureAll(201));
    return 0;
}
