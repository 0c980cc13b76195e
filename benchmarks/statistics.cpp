// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "statistics.h"

#include <algorithm>
#include <cmath>

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
