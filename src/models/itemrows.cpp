// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "models/shrinkingrows.h"

void ShrinkingRows::reset(const QList<TreeItem *> &items)
{
    m_slots.clear();
    m_slots.reserve(items.size());
    m_slotOf.clear();
    m_slotOf.reserve(items.size());
    for (TreeItem *item : items) {
        m_slotOf.insert(item, m_slots.size());
        m_slots.append(item);
    }
    m_removed.fill(0, items.size() + 1);
    m_count = items.size();
}

int ShrinkingRows::count() const
{
    return m_count;
}

TreeItem *ShrinkingRows::at(int row) const
{
    return row >= 0 && row < m_count ? m_slots.at(slotOfRow(row)).data() : nullptr;
}

int ShrinkingRows::rowOf(const QObject *item) const
{
    const int slot = m_slotOf.value(item, -1);
    return slot < 0 ? -1 : rowsBefore(slot);
}

void ShrinkingRows::remove(const QObject *item)
{
    const auto slot = m_slotOf.find(item);
    if (slot == m_slotOf.end()) {
        return;
    }
    for (int i = *slot + 1; i < m_removed.size(); i += i & -i) {
        ++m_removed[i];
    }
    m_slotOf.erase(slot);
    --m_count;
}

int ShrinkingRows::rowsBefore(int slot) const
{
    int rows = slot;
    for (int i = slot; i > 0; i -= i & -i) {
        rows -= m_removed.at(i);
    }
    return rows;
}

int ShrinkingRows::slotOfRow(int row) const
{
    if (m_count == m_slots.size()) {
        return row;
    }
    // The largest slot with at most "row" rows before it.
    int slot = 0;
    int step = 1;
    while (step * 2 < m_removed.size()) {
        step *= 2;
    }
    for (; step > 0; step /= 2) {
        const int next = slot + step;
        if (next < m_removed.size() && step - m_removed.at(next) <= row) {
            slot = next;
            row -= step - m_removed.at(next);
        }
    }
    return slot;
}
