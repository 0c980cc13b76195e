// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "statistics.h"

#include <QStringList>

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace
{
QString number(double value)
{
    return QString::number(value, 'f', value < 100 ? 2 : 0);
}

QString range(double from, double to)
{
    return number(from) + QStringLiteral(" – ") + number(to);
}

QString markdownTable(const QVector<Measure> &measures)
{
    QString table = QStringLiteral("| Measure | Target | Median | Quartiles | Range | Samples |\n"
                                   "|---|---|---|---|---|---|\n");
    for (const Measure &measure : measures) {
        const QVector<double> &samples = measure.samples;
        const QStringList cells{measure.name,
                                measure.target,
                                number(median(samples)),
                                range(quantile(samples, 0.25), quantile(samples, 0.75)),
                                range(quantile(samples, 0), quantile(samples, 1)),
                                QString::number(samples.size())};
        table += QLatin1String("| ") + cells.join(QLatin1String(" | ")) + QLatin1String(" |\n");
    }
    return table;
}
}

double quantile(QVector<double> samples, double share)
{
    std::sort(samples.begin(), samples.end());
    const double position = share * (samples.size() - 1);
    const int below = int(std::floor(position));
    const int above = int(std::ceil(position));
    return samples.at(below) + (position - below) * (samples.at(above) - samples.at(below));
}

double median(const QVector<double> &samples)
{
    return quantile(samples, 0.5);
}

bool Measure::isAcceptable() const
{
    const double middle = median(samples);
    return minimum <= middle && middle <= maximum;
}

void print(const QVector<Measure> &measures)
{
    std::fputs(markdownTable(measures).toUtf8().constData(), stdout);
}

bool passesOnce(const std::function<QVector<Measure>()> &measure)
{
    for (int attempt = 0; attempt < 3; ++attempt) {
        const QVector<Measure> measures = measure();
        print(measures);
        if (std::all_of(measures.cbegin(), measures.cend(), [](const Measure &m) { return m.isAcceptable(); })) {
            return true;
        }
    }
    return false;
}
