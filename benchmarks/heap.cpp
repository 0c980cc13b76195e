// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "heap.h"

#include <malloc.h>

namespace
{
double heapBytes()
{
    const auto info = mallinfo2();
    return double(info.uordblks) + double(info.hblkhd);
}
}

double heapGrowth(const std::function<void()> &work)
{
    const double before = heapBytes();
    work();
    return heapBytes() - before;
}
