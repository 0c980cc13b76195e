// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "report.h"

#include <QStringList>

#include <functional>

/// Does @p work, whose instructions growthOfInstructions() counts; there may be one call in a process.
void counted(const std::function<void()> &work);
/// How the instructions of @p what, which this program executes in counted() when it runs with @p arguments and one of
/// @p sizes, grow from each size to the next. Valgrind counts them: about the same on every machine. The time grows with
/// the caches that a larger input leaves, too.
QVector<Measure> growthOfInstructions(const QString &what, const QStringList &arguments,
                                      const QVector<int> &sizes);
