// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>
#include <limits>

constexpr double Unlimited = std::numeric_limits<double>::infinity();
/// What ten times the input may cost on any machine.
constexpr double MaxGrowth = 12;
/// The same where the smaller input fits into the processor's cache and the larger one does not. A quadratic step makes
/// it a hundred times.
constexpr double MaxGrowthOutOfCache = 30;

/// One quantity, measured repeatedly.
struct Measure {
    QString name;
    QString target; ///< for people; empty when there is none
    QVector<double> samples;
    double maximum = Unlimited; ///< what the median may be on any machine
};

/// What something takes at one size of its input.
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
    Check, ///< as little as tells a regression from noise
};

/**
 * Measures and prints, as the program's @p arguments ask: the report as JSON; with --check what is measured with
 * little effort, and whether each measure is acceptable at one of three attempts, for others may keep the machine busy.
 * Returns the program's exit code.
 */
int runBenchmark(const QStringList &arguments, const std::function<Report(Effort)> &measure);

/// 1000 as "1,000".
QString sizeText(int size);
/// Each with its shortest time alone, to which others that keep the machine busy add the least.
QVector<Cost> fastest(QVector<Cost> costs);
/// How much more each of @p costs, which are in the order of their sizes, is than the one before it.
QVector<Measure> growths(const QVector<Cost> &costs, double maximum = MaxGrowth);
