// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "launcherrows.h"

#include <algorithm>
#include <iterator>
#include <numeric>

namespace
{
constexpr int MaxBlockSize = 512;
}

int LauncherRows::count() const
{
    return std::accumulate(m_blocks.cbegin(), m_blocks.cend(), 0,
                           [](int sum, const Block &block) { return sum + int(block.size()); });
}

QObject *LauncherRows::at(int row) const
{
    if (row < 0) {
        return nullptr;
    }
    for (const Block &block : m_blocks) {
        if (row < int(block.size())) {
            return block[row].object;
        }
        row -= int(block.size());
    }
    return nullptr;
}

bool LauncherRows::contains(const LauncherRow &row) const
{
    const Place place = find(row);
    return place.block < int(m_blocks.size()) && !(row < m_blocks[place.block][place.offset]);
}

int LauncherRows::indexOf(const LauncherRow &row) const
{
    const Place place = find(row);
    return std::accumulate(m_blocks.cbegin(), m_blocks.cbegin() + place.block, place.offset,
                           [](int sum, const Block &block) { return sum + int(block.size()); });
}

void LauncherRows::assign(std::vector<LauncherRow> rows)
{
    std::sort(rows.begin(), rows.end());
    m_blocks.clear();
    for (auto begin = rows.cbegin(); begin != rows.cend();) {
        const auto end = begin + std::min<std::ptrdiff_t>(MaxBlockSize / 2, std::distance(begin, rows.cend()));
        m_blocks.emplace_back(begin, end);
        begin = end;
    }
}

void LauncherRows::insert(const LauncherRow &row)
{
    Place place = find(row);
    if (place.block == int(m_blocks.size())) { // after all rows
        if (m_blocks.empty()) {
            m_blocks.emplace_back();
        }
        place = {int(m_blocks.size()) - 1, int(m_blocks.back().size())};
    }
    Block &block = m_blocks[place.block];
    block.insert(block.begin() + place.offset, row);
    if (int(block.size()) > MaxBlockSize) {
        const auto middle = block.begin() + MaxBlockSize / 2;
        Block second(middle, block.end());
        block.erase(middle, block.end());
        m_blocks.insert(m_blocks.begin() + place.block + 1, std::move(second));
    }
}

void LauncherRows::remove(const LauncherRow &row)
{
    const Place place = find(row);
    Block &block = m_blocks[place.block];
    block.erase(block.begin() + place.offset);
    if (block.empty()) {
        m_blocks.erase(m_blocks.begin() + place.block);
    }
}

/// Returns the place of the first row that does not sort before @p row.
LauncherRows::Place LauncherRows::find(const LauncherRow &row) const
{
    const auto endsBefore = [](const Block &block, const LauncherRow &row) { return block.back() < row; };
    const auto block = std::lower_bound(m_blocks.cbegin(), m_blocks.cend(), row, endsBefore);
    if (block == m_blocks.cend()) {
        return {int(m_blocks.size()), 0};
    }
    const auto found = std::lower_bound(block->cbegin(), block->cend(), row);
    return {int(std::distance(m_blocks.cbegin(), block)), int(std::distance(block->cbegin(), found))};
}
