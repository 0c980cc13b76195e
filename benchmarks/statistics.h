// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QString>
#include <QVector>

#include <functional>

/// The value below which @p share (0 to 1) of @p samples lie, between neighbours in proportion. Needs one sample.
double quantile(QVector<double> samples, double share);
double median(const QVector<double> &samples);

/// One quantity, measured repeatedly.
struct Measure {
    QString name;
    QString target;
    /// What the median may be on any machine.
    double minimum;
    double maximum;
    QVector<double> samples;

    bool isAcceptable() const;
};

/// Prints a Markdown table of @p measures with their spread.
void print(const QVector<Measure> &measures);

/// Whether all that @p measure returns is acceptable, at one of three attempts: others may keep the machine busy.
bool passesOnce(const std::function<QVector<Measure>()> &measure);
