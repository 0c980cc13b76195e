// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QVector>

/// Returns the value below which @p share (0 to 1) of @p samples lie, interpolated between two samples. Needs at least
/// one sample.
double quantile(QVector<double> samples, double share);
double median(const QVector<double> &samples);
