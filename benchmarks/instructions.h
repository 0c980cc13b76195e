// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "report.h"

#include <QStringList>

#include <functional>

/// Runs @p work, whose instructions growthOfInstructions() counts. It may be called once in a process.
void counted(const std::function<void()> &work);
/// Returns how the instructions of counted() grow from each of @p sizes to the next. This program is run with
/// @p arguments and the size; @p what names the work. Valgrind counts the instructions, which hardly depend on the
/// machine. Times would also grow because a larger input does not fit into the processor's caches.
QVector<Measure> growthOfInstructions(const QString &what, const QStringList &arguments,
                                      const QVector<int> &sizes);
