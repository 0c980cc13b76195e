// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>
#include <limits>

constexpr double Unlimited = std::numeric_limits<double>::infinity();
/// The largest growth of a cost with ten times the input, on any machine.
constexpr double MaxGrowth = 12;
/// The same if only the smaller input fits into the processor's cache. A quadratic step grows a hundredfold.
constexpr double MaxGrowthOutOfCache = 30;

/// One quantity, measured repeatedly.
struct Measure {
    QString name;
    QString target; ///< for readers of the report; empty if there is none
    QVector<double> samples;
    double maximum = Unlimited; ///< the largest acceptable median, on any machine
};

/// The time of an operation at one size of its input.
struct Cost {
    QString series; ///< the same for all sizes
    int size;
    QVector<double> seconds;
};

struct Report {
    QVector<Measure> measures;
    QVector<Cost> costs;
};

enum class Effort {
    Full,
    Check, ///< just enough to distinguish a regression from noise
};

/**
 * Measures, and prints the report as JSON. If @p arguments contain --check, measures with little effort and prints
 * lines; each measure must be acceptable in one of three attempts, because other processes may keep the machine busy.
 * Returns the program's exit code.
 */
int runBenchmark(const QStringList &arguments, const std::function<Report(Effort)> &measure);

/// Returns the number as text: "1,000" for 1000.
QString sizeText(int size);
/// Returns each of @p costs with only its shortest time, on which other processes had the least influence.
QVector<Cost> fastest(QVector<Cost> costs);
/// Returns the ratio of each of @p costs, which are in the order of their sizes, to the previous one.
QVector<Measure> growths(const QVector<Cost> &costs, double maximum = MaxGrowth);
