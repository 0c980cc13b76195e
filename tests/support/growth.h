// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QtGlobal>

#include <functional>

/// The time that this thread has been at work, whatever else the machine does. Used like QElapsedTimer.
class CpuTimer
{
public:
    void start();
    qint64 nsecsElapsed() const;

private:
    qint64 m_start = 0;
};

/// How the cost of a piece of work grows with its size. The work returns nanoseconds of a CpuTimer, or -1 when its
/// result is wrong, and can be done again.
namespace Growth
{
using Work = std::function<qint64(int)>;

/// Whether @p work of size @p large takes less than @p factor times as long as that of size @p small.
bool isBelow(int factor, const Work &work, int small, int large);
/// Whether @p work takes about ten times as long for ten times @p size: quadratic work takes a hundred times. With the
/// sanitizers, which are slow, the sizes are a tenth.
bool isLinear(const Work &work, int size);
}
