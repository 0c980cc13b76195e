// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "report.h"

#include "comparison.h"
#include "statistics.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>
#include <QSet>

#include <algorithm>
#include <cstdio>

namespace
{
constexpr int Attempts = 3;

QJsonObject toJson(const QVector<double> &samples)
{
    return {{QStringLiteral("median"), median(samples)},
            {QStringLiteral("quartiles"), QJsonArray{quantile(samples, 0.25), quantile(samples, 0.75)}},
            {QStringLiteral("range"), QJsonArray{quantile(samples, 0), quantile(samples, 1)}},
            {QStringLiteral("samples"), samples.size()}};
}

QJsonObject toJson(const Report &report)
{
    QJsonArray measures;
    for (const Measure &measure : report.measures) {
        QJsonObject object = toJson(measure.samples);
        object.insert(QStringLiteral("name"), measure.name);
        object.insert(QStringLiteral("target"), measure.target);
        measures.append(object);
    }
    QJsonArray costs;
    for (const Cost &cost : report.costs) {
        QJsonObject object = toJson(cost.seconds);
        object.insert(QStringLiteral("series"), cost.series);
        object.insert(QStringLiteral("size"), cost.size);
        costs.append(object);
    }
    return {{QStringLiteral("measures"), measures}, {QStringLiteral("seconds"), costs}};
}

bool isAcceptable(const Measure &measure)
{
    return median(measure.samples) <= measure.maximum;
}

void printLines(const QVector<Measure> &measures)
{
    for (const Measure &measure : measures) {
        std::printf("%-70s %8.4f%s\n", qPrintable(measure.name), median(measure.samples),
                    isAcceptable(measure) ? "" : qPrintable(QStringLiteral(" > %1").arg(measure.maximum)));
    }
    std::fflush(stdout);
}
}

int runBenchmark(const QStringList &arguments, const std::function<Report(Effort)> &measure)
{
    if (!arguments.contains(QStringLiteral("--check"))) {
        std::fputs(QJsonDocument(toJson(measure(Effort::Full))).toJson().constData(), stdout);
        return 0;
    }
    QSet<QString> passed;
    const auto hasPassed = [&passed](const Measure &measure) { return passed.contains(measure.name); };
    for (int attempt = 0; attempt < Attempts; ++attempt) {
        const QVector<Measure> measures = measure(Effort::Check).measures;
        printLines(measures);
        for (const Measure &measure : measures) {
            if (isAcceptable(measure)) {
                passed.insert(measure.name);
            }
        }
        if (std::all_of(measures.cbegin(), measures.cend(), hasPassed)) {
            return 0;
        }
    }
    return 1;
}

QString sizeText(int size)
{
    return QLocale(QLocale::English).toString(size);
}

QVector<Cost> fastest(QVector<Cost> costs)
{
    for (Cost &cost : costs) {
        cost.seconds = {quantile(cost.seconds, 0)};
    }
    return costs;
}

QVector<Measure> growths(const QVector<Cost> &costs, double maximum)
{
    QVector<Measure> measures;
    for (int i = 1; i < costs.size(); ++i) {
        const Cost &small = costs.at(i - 1);
        const Cost &large = costs.at(i);
        measures.append(
            {QStringLiteral("%1, %2 / %3").arg(large.series, sizeText(large.size), sizeText(small.size)),
             QStringLiteral("≤ %1").arg(maximum), over(large.seconds, small.seconds), maximum});
    }
    return measures;
}
