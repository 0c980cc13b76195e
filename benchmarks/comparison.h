// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QObject>
#include <QVector>

#include <functional>

/// Returns the wall time of @p work.
double seconds(const std::function<void()> &work);
/// Returns the processor time of this thread for @p work, on which other processes have less influence.
double cpuSeconds(const std::function<void()> &work);

/// Ends the process with the message @p what unless @p condition holds.
void require(bool condition, const char *what);
/// Calls @p slot of @p object, which may be private. Ends the process if there is no such slot.
void callSlot(QObject *object, const char *slot);

/// Returns the results of @p scale for all @p values.
QVector<double> scaled(QVector<double> values, const std::function<double(double)> &scale);

/// Returns @p samples, each divided by the median of @p usual.
QVector<double> over(const QVector<double> &samples, const QVector<double> &usual);

/// Repeated runs of some work, each between two runs of its baseline, so that changes in the machine's speed affect
/// both.
struct Runs {
    QVector<double> seconds;
    QVector<double> overBaseline;
    QVector<double> noise; ///< the second baseline over the first

    void add(double baselineBefore, double work, double baselineAfter);
};
