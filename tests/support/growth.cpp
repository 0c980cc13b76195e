// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "growth.h"

#include <algorithm>
#include <ctime>
#include <limits>

namespace
{
qint64 threadTime()
{
    timespec time;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return qint64(time.tv_sec) * 1000000000 + time.tv_nsec;
}
}

void CpuTimer::start()
{
    m_start = threadTime();
}

qint64 CpuTimer::nsecsElapsed() const
{
    return threadTime() - m_start;
}

bool Growth::isBelow(int factor, const Work &work, int small, int large)
{
    // Other processes that use the caches and the memory can only add to the time, so the shortest one is used.
    constexpr int Attempts = 10;
    qint64 leastOfSmall = std::numeric_limits<qint64>::max();
    qint64 leastOfLarge = leastOfSmall;
    for (int attempt = 0; attempt < Attempts; ++attempt) {
        const qint64 ofSmall = work(small);
        const qint64 ofLarge = work(large);
        if (ofSmall < 0 || ofLarge < 0) {
            qWarning("Wrong result");
            return false;
        }
        leastOfSmall = std::min(leastOfSmall, ofSmall);
        leastOfLarge = std::min(leastOfLarge, ofLarge);
        if (leastOfLarge < factor * leastOfSmall) {
            return true;
        }
        qWarning("%lld ns for %d, %lld ns for %d", ofSmall, small, ofLarge, large);
    }
    return false;
}

bool Growth::isLinear(const Work &work, int size)
{
#ifdef VELKA_SANITIZE
    size /= 10;
#endif
    return isBelow(40, work, size, 10 * size);
}
