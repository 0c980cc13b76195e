// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QObject>
#include <QVector>

#include <functional>

/// The wall time of @p work.
double seconds(const std::function<void()> &work);
/// The processor time of this thread for @p work: what others do on the machine counts less.
double cpuSeconds(const std::function<void()> &work);

/// Ends the process, saying @p what, unless @p condition holds.
void require(bool condition, const char *what);
/// Calls the slot of @p object, which may be private. Ends the process when there is none.
void callSlot(QObject *object, const char *slot);

/// @p values, each turned by @p scale.
QVector<double> scaled(QVector<double> values, const std::function<double(double)> &scale);

/// How many times the usual one of @p usual each of @p samples is.
QVector<double> over(const QVector<double> &samples, const QVector<double> &usual);

/// Repeated runs of some work, each between two runs of its floor, so that a machine that gets slower or faster
/// meanwhile does so for both.
struct Runs {
    QVector<double> seconds;
    QVector<double> overFloor;
    QVector<double> noise; ///< one floor over the other

    void add(double floorBefore, double work, double floorAfter);
};
