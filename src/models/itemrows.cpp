// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "models/itemrows.h"

namespace
{
constexpr int MaxSpareSlots = 64;
}

void ItemRows::reset(const QList<TreeItem *> &items)
{
    clear(items.size());
    for (TreeItem *item : items) {
        appendSlot(item, item);
    }
}

int ItemRows::count() const
{
    return m_count;
}

TreeItem *ItemRows::at(int row) const
{
    return row >= 0 && row < m_count ? m_slots.at(slotOfRow(row)).item.data() : nullptr;
}

int ItemRows::rowOf(const QObject *item) const
{
    return rowOfSlot(m_slotsOf.value(item).last);
}

int ItemRows::firstRowOf(const QObject *item) const
{
    return rowOfSlot(m_slotsOf.value(item).first);
}

int ItemRows::countOf(const QObject *item) const
{
    return m_slotsOf.value(item).count;
}

void ItemRows::append(TreeItem *item)
{
    if (m_slots.size() > 2 * m_count + MaxSpareSlots) {
        assign(rows());
    }
    appendSlot(item, item);
}

void ItemRows::removeAt(int row)
{
    const int slot = slotOfRow(row);
    unlink(slot);
    for (int i = slot + 1; i < m_removed.size(); i += i & -i) {
        ++m_removed[i];
    }
    --m_count;
}

void ItemRows::move(int from, int to)
{
    QVector<Slot> moved = rows();
    moved.move(from, to);
    assign(moved);
}

QVector<ItemRows::Slot> ItemRows::rows() const
{
    QVector<Slot> rows;
    rows.reserve(m_count);
    for (int row = 0; row < m_count; ++row) {
        rows.append(m_slots.at(slotOfRow(row)));
    }
    return rows;
}

void ItemRows::assign(const QVector<Slot> &rows)
{
    clear(rows.size());
    for (const Slot &row : rows) {
        appendSlot(row.item, row.key);
    }
}

void ItemRows::clear(int capacity)
{
    m_slots.clear();
    m_slots.reserve(capacity);
    m_slotsOf.clear();
    m_slotsOf.reserve(capacity);
    m_removed = {0};
    m_removed.reserve(capacity + 1);
    m_count = 0;
}

void ItemRows::appendSlot(const QPointer<TreeItem> &item, const QObject *key)
{
    m_slots.append({item, key});
    link(m_slots.size() - 1);
    const int end = m_slots.size();
    m_removed.append(removedBefore(end - 1) - removedBefore(end - (end & -end)));
    ++m_count;
}

void ItemRows::link(int slot)
{
    SlotsOfItem &slotsOfItem = m_slotsOf[m_slots.at(slot).key];
    if (slotsOfItem.count == 0) {
        slotsOfItem.first = slot;
    } else {
        m_slots[slotsOfItem.last].next = slot;
        m_slots[slot].previous = slotsOfItem.last;
    }
    slotsOfItem.last = slot;
    ++slotsOfItem.count;
}

void ItemRows::unlink(int slot)
{
    const Slot removed = m_slots.at(slot);
    const auto slotsOfItem = m_slotsOf.find(removed.key);
    int &toNext = removed.previous >= 0 ? m_slots[removed.previous].next : slotsOfItem->first;
    int &toPrevious = removed.next >= 0 ? m_slots[removed.next].previous : slotsOfItem->last;
    toNext = removed.next;
    toPrevious = removed.previous;
    if (--slotsOfItem->count == 0) {
        m_slotsOf.erase(slotsOfItem);
    }
}

int ItemRows::rowOfSlot(int slot) const
{
    return slot < 0 ? -1 : slot - removedBefore(slot);
}

int ItemRows::removedBefore(int slot) const
{
    int removed = 0;
    for (int i = slot; i > 0; i -= i & -i) {
        removed += m_removed.at(i);
    }
    return removed;
}

int ItemRows::slotOfRow(int row) const
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
