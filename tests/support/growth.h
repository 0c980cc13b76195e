// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QtGlobal>

#include <functional>

/// The processor time of this thread, which hardly depends on other processes. Used like QElapsedTimer.
class CpuTimer
{
public:
    void start();
    qint64 nsecsElapsed() const;

private:
    qint64 m_start = 0;
};

/// Functions that check how the cost of repeatable work grows with its size. The work returns nanoseconds of a
/// CpuTimer, or -1 if its result is wrong.
namespace Growth
{
using Work = std::function<qint64(int)>;

/// Returns true if @p work of size @p large takes less than @p factor times as long as that of size @p small.
bool isBelow(int factor, const Work &work, int small, int large);
/// Returns true if @p work takes about ten times as long for ten times @p size. Quadratic work takes a hundred times as
/// long. With the sanitizers, which are slow, the sizes are a tenth.
bool isLinear(const Work &work, int size);
}
