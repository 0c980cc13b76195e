// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "models/rowdifference.h"

#include <algorithm>

RowDifference::RowDifference(const ItemRows &rows, const QList<TreeItem *> &wanted)
{
    QHash<const TreeItem *, int> lacking; // how many rows of an item are still to be found
    for (const TreeItem *item : wanted) {
        ++lacking[item];
    }
    for (int row = rows.count() - 1; row >= 0; --row) {
        const auto found = lacking.find(rows.at(row));
        if (found == lacking.end() || *found == 0) {
            obsolete.append(row);
        } else {
            --*found;
        }
    }
    for (auto it = wanted.crbegin(); it != wanted.crend(); ++it) {
        int &count = lacking[*it];
        if (count > 0) {
            --count;
            missing.append(*it);
        }
    }
    std::reverse(missing.begin(), missing.end());
}

bool RowDifference::isEmpty() const
{
    return obsolete.isEmpty() && missing.isEmpty();
}
