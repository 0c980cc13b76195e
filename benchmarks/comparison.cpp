// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "comparison.h"

#include "statistics.h"

#include <algorithm>
#include <chrono>
#include <ctime>

namespace
{
double threadTime()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) + double(time.tv_nsec) / 1e9;
}
}

double seconds(const std::function<void()> &work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double cpuSeconds(const std::function<void()> &work)
{
    const double start = threadTime();
    work();
    return threadTime() - start;
}

void require(bool condition, const char *what)
{
    if (!condition) {
        qFatal("%s", what);
    }
}

void callSlot(QObject *object, const char *slot)
{
    if (!QMetaObject::invokeMethod(object, slot)) {
        qFatal("There is no %s()", slot);
    }
}

QVector<double> scaled(QVector<double> values, const std::function<double(double)> &scale)
{
    std::transform(values.cbegin(), values.cend(), values.begin(), scale);
    return values;
}

QVector<double> over(const QVector<double> &samples, const QVector<double> &usual)
{
    const double middle = median(usual);
    return scaled(samples, [middle](double sample) { return sample / middle; });
}

void Runs::add(double baselineBefore, double work, double baselineAfter)
{
    seconds.append(work);
    overBaseline.append(2 * work / (baselineBefore + baselineAfter));
    noise.append(baselineAfter / baselineBefore);
}
