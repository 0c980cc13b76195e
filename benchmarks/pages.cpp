// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

// Measures how a page of 20, 200 and 2,000 rows is rebuilt after one of its files was loaded again. The baseline is to
// copy and sort as many plain structs with the texts of the entries by the same keys. Each rebuild is timed between two
// runs of the baseline, in wall time. The time in which QML reads all roles and properties of all rows is measured, too.

#include "comparison.h"
#include "instructions.h"
#include "report.h"
#include "workload.h"

#include "models/settingsmodel.h"
#include "registry/pluginregistry.h"
#include "registry/treeitem.h"

#include <QCoreApplication>
#include <QQmlEngine>

#include <algorithm>

namespace
{
const QVector<int> s_rows{20, 200, 2000};
const QStringList s_page{QStringLiteral("system_settings"), QStringLiteral("section0")};
const QString s_rebuildOption = QStringLiteral("--count-rebuilding");

struct PlainEntry {
    int order;
    QString name;
    QString path;
    QString type;
    QString title;
    QString translationId;
    QString icon;
    QVariant params;
};

Workload workloadOf(int rows)
{
    return Workload(rows / Workload::EntriesPerFile, 1);
}

QVector<PlainEntry> plainEntries(const SettingsModel &model)
{
    QVector<PlainEntry> entries;
    for (int row = 0; row < model.count(); ++row) {
        const auto *item = qobject_cast<TreeItem *>(model.objectAt(row));
        const auto value = [item](const char *key) { return item->value(QLatin1String(key)); };
        entries.append({item->order(), item->name(), value("path").toString(), item->type(),
                        value("title").toString(), value("translation_id").toString(), item->icon(),
                        value("params")});
    }
    std::reverse(entries.begin(), entries.end());
    return entries;
}

double baselineSeconds(const QVector<PlainEntry> &entries)
{
    QVector<PlainEntry> copy;
    return seconds([&] {
        copy = entries;
        std::sort(copy.begin(), copy.end(), [](const PlainEntry &a, const PlainEntry &b) {
            return a.order != b.order ? a.order < b.order : a.name < b.name;
        });
    });
}

/// A model of the page that a workload declares.
class Page
{
public:
    explicit Page(const Workload &workload)
        : m_file(workload.fileName(0))
    {
        workload.putInPlace();
        callSlot(PluginRegistry::instance(), "monitoredDirectoryChanged");
        m_model.setPath(s_page);
        m_model.setDepth(1);
        if (m_model.count() != workload.fileCount() * Workload::EntriesPerFile) {
            qFatal("The page has %d rows", m_model.count());
        }
    }

    SettingsModel *model()
    {
        return &m_model;
    }

    /// The rows of the file are missing until rebuild().
    void reloadFile()
    {
        PluginRegistry::instance()->removeEntriesForFile(m_file);
        PluginRegistry::instance()->addEntriesForFile(m_file);
    }

    void rebuild()
    {
        callSlot(&m_model, "updateItems");
    }

private:
    const QString m_file;
    SettingsModel m_model;
};

Runs rebuilds(Page *page, int runs)
{
    const QVector<PlainEntry> entries = plainEntries(*page->model());
    Runs result;
    for (int run = 0; run < runs; ++run) {
        page->reloadFile();
        const double before = baselineSeconds(entries);
        const double time = seconds([page] { page->rebuild(); });
        result.add(before, time, baselineSeconds(entries));
    }
    return result;
}

QVector<double> readings(SettingsModel *model, int runs)
{
    QJSEngine engine;
    QQmlEngine::setObjectOwnership(model, QQmlEngine::CppOwnership);
    QJSValue read = engine.evaluate(QStringLiteral(R"((function(model, roles) {
        let length = 0
        for (let row = 0; row < model.count; ++row) {
            const index = model.index(row, 0)
            for (const role of roles)
                length += String(model.data(index, role)).length
            const item = model.objectAt(row)
            length += (item.name + item.type + item.title + item.shortTitle + item.icon + item.controlIcon).length
        }
        return length
    }))"));
    const QJSValueList arguments{engine.newQObject(model), engine.toScriptValue(model->roleNames().keys())};
    QVector<double> result;
    for (int run = 0; run < runs; ++run) {
        QJSValue length;
        result.append(seconds([&] { length = read.call(arguments); }));
        if (length.toInt() == 0) {
            qFatal("JavaScript does not read the page: %s", qPrintable(length.toString()));
        }
    }
    return result;
}

/// Counts a rebuild without sorting, which grows by more than its input.
int runCounted(int rows)
{
    const Workload workload = workloadOf(rows);
    Page page(workload);
    counted([&page] { page.rebuild(); });
    workload.takeAway();
    return 0;
}

Report measureAll(Effort effort)
{
    const int runs = effort == Effort::Full ? 501 : 101;
    Report report;
    QVector<Cost> rebuildCosts;
    QVector<Cost> readingCosts;
    for (const int rows : s_rows) {
        const Workload workload = workloadOf(rows);
        Page page(workload);
        const Runs rebuilding = rebuilds(&page, runs);
        report.measures.append({QStringLiteral("page of %1 rows rebuilt / baseline").arg(sizeText(rows)),
                                rows == 200 ? QStringLiteral("≤ 2") : QString(), rebuilding.overBaseline,
                                rows < 200 ? 8.0 : 4.0});
        rebuildCosts.append({QStringLiteral("page: rebuild"), rows, rebuilding.seconds});
        readingCosts.append(
            {QStringLiteral("page: read all roles from QML"), rows, readings(page.model(), runs / 10)});
        workload.takeAway();
    }
    report.measures += growthOfInstructions(QStringLiteral("instructions of rebuilding a page, nothing changed"),
                                            {s_rebuildOption}, s_rows);
    report.costs = rebuildCosts + readingCosts;
    return report;
}
}

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.contains(s_rebuildOption)) {
        return runCounted(arguments.last().toInt());
    }
    return runBenchmark(arguments, measureAll);
}
