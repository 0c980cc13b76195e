// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "search/edits.h"

namespace
{
/// Recurses as deep as the number of edits.
bool isWithin(QStringView a, QStringView b, int edits, bool isStart)
{
    while (!a.isEmpty() && !b.isEmpty() && a.front() == b.front()) {
        a = a.mid(1);
        b = b.mid(1);
    }
    if (a.isEmpty()) {
        return isStart || b.size() <= edits;
    }
    if (b.isEmpty() || edits == 0) {
        return a.size() <= edits;
    }
    const bool canSwap = a.size() > 1 && b.size() > 1 && a[0] == b[1] && a[1] == b[0];
    return isWithin(a.mid(1), b.mid(1), edits - 1, isStart) || isWithin(a.mid(1), b, edits - 1, isStart)
           || isWithin(a, b.mid(1), edits - 1, isStart)
           || (canSwap && isWithin(a.mid(2), b.mid(2), edits - 1, isStart));
}
}

bool isWithinEdits(QStringView word, QStringView other, int edits)
{
    return qAbs(word.size() - other.size()) <= edits && isWithin(word, other, edits, false);
}

bool isStartWithinEdits(QStringView word, QStringView other, int edits)
{
    return isWithin(word, other, edits, true);
}
