// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QVector>

/// The value below which @p share (0 to 1) of @p samples lie, between neighbours in proportion. Needs one sample.
double quantile(QVector<double> samples, double share);
double median(const QVector<double> &samples);
