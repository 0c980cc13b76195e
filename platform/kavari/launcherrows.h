// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "launcherrow.h"

#include <vector>

/**
 * Sorted rows. They are kept in blocks, so that finding, inserting or removing one of 60,000 rows takes little more
 * than one of a hundred: all of them may come or go one by one.
 */
class LauncherRows
{
public:
    int count() const;
    QObject *at(int row) const; ///< null when there is no such row
    bool contains(const LauncherRow &row) const;
    int indexOf(const LauncherRow &row) const; ///< the number of rows before it, also when there is no such row

    void assign(std::vector<LauncherRow> rows); ///< in any order
    void insert(const LauncherRow &row);
    void remove(const LauncherRow &row); ///< which must be there

private:
    using Block = std::vector<LauncherRow>;
    struct Place {
        int block;
        int offset;
    };

    Place find(const LauncherRow &row) const;

    std::vector<Block> m_blocks; ///< none is empty
};
