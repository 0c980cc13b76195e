// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "search/vocabulary.h"

#include <QHash>

#include <algorithm>

namespace
{
constexpr int NoWord = -1;
constexpr size_t MinSlots = 64;
constexpr size_t MinUnusedLetters = 4096; ///< that are worth compacting

/// Lets a vector grow by less than it would by itself.
template<typename T>
void reserve(std::vector<T> *vector, size_t size)
{
    if (size > vector->capacity()) {
        vector->reserve(size + size / 4);
    }
}

size_t hashOf(QStringView word)
{
    return qHash(word, uint(qGlobalQHashSeed()));
}
}

Vocabulary::Vocabulary()
    : m_slots(MinSlots, NoWord)
{
}

int Vocabulary::insert(QStringView word)
{
    const int known = m_slots.at(slotOf(word));
    if (known != NoWord) {
        return known;
    }
    int number = int(m_entries.size());
    if (m_unused.empty()) {
        reserve(&m_entries, m_entries.size() + 1);
        reserve(&m_signatures, m_signatures.size() + 1);
        m_entries.emplace_back();
        m_signatures.push_back(0);
    } else {
        number = m_unused.back();
        m_unused.pop_back();
    }
    reserve(&m_letters, m_letters.size() + size_t(word.size()));
    m_entries[size_t(number)] = {quint32(m_letters.size()), quint32(word.size()), {}};
    m_signatures[size_t(number)] = signatureOf(word);
    m_letters.insert(m_letters.end(), word.utf16(), word.utf16() + word.size());
    insertSlot(number);
    return number;
}

void Vocabulary::addPosting(int word, quint32 posting)
{
    m_postings.append(&m_entries.at(size_t(word)).postings, posting);
}

int Vocabulary::size() const
{
    return int(m_entries.size());
}

QStringView Vocabulary::word(int number) const
{
    const Entry &entry = m_entries[size_t(number)];
    return {m_letters.data() + entry.place, qsizetype(entry.length)};
}

quint32 Vocabulary::signature(int number) const
{
    return m_signatures[size_t(number)];
}

const quint32 *Vocabulary::postingsBegin(int number) const
{
    return m_postings.begin(m_entries[size_t(number)].postings);
}

const quint32 *Vocabulary::postingsEnd(int number) const
{
    return m_postings.end(m_entries[size_t(number)].postings);
}

quint32 Vocabulary::signatureOf(QStringView word)
{
    quint32 signature = 0;
    for (const QChar c : word) {
        signature |= 1U << (c.unicode() % 32U);
    }
    return signature;
}

void Vocabulary::squeeze()
{
    m_letters.shrink_to_fit();
    m_entries.shrink_to_fit();
    m_signatures.shrink_to_fit();
    m_postings.squeeze();
}

size_t Vocabulary::memory() const
{
    return m_letters.capacity() * sizeof(ushort) + m_entries.capacity() * sizeof(Entry)
           + m_signatures.capacity() * sizeof(quint32) + (m_slots.capacity() + m_unused.capacity()) * sizeof(int)
           + m_postings.memory();
}

/// Returns the slot of @p word, or the free one where it belongs.
size_t Vocabulary::slotOf(QStringView word) const
{
    const size_t mask = m_slots.size() - 1;
    size_t slot = hashOf(word) & mask;
    while (m_slots[slot] != NoWord && this->word(m_slots[slot]) != word) {
        slot = (slot + 1) & mask;
    }
    return slot;
}

void Vocabulary::insertSlot(int number)
{
    m_slots[slotOf(word(number))] = number;
    const size_t used = m_entries.size() - m_unused.size();
    if (used * 4 > m_slots.size() * 3) {
        growSlots();
    }
}

void Vocabulary::growSlots()
{
    std::vector<int> numbers(m_slots.size() * 2, NoWord);
    numbers.swap(m_slots);
    for (const int number : numbers) {
        if (number != NoWord) {
            m_slots[slotOf(word(number))] = number;
        }
    }
}

/// Moves the words behind @p slot, so that each is still found.
void Vocabulary::removeSlot(size_t slot)
{
    const size_t mask = m_slots.size() - 1;
    m_slots[slot] = NoWord;
    for (size_t next = (slot + 1) & mask; m_slots[next] != NoWord; next = (next + 1) & mask) {
        const int number = m_slots[next];
        m_slots[next] = NoWord;
        m_slots[slotOf(word(number))] = number;
    }
}

void Vocabulary::remove(int number)
{
    removeSlot(slotOf(word(number)));
    m_unusedLetters += m_entries[size_t(number)].length;
    m_entries[size_t(number)] = {};
    m_signatures[size_t(number)] = 0;
    m_unused.push_back(number);
    if (m_unusedLetters > MinUnusedLetters && m_unusedLetters > m_letters.size() / 2) {
        compact();
    }
}

void Vocabulary::compact()
{
    std::vector<ushort> letters;
    letters.reserve(m_letters.size() - m_unusedLetters);
    for (Entry &entry : m_entries) {
        const auto first = m_letters.cbegin() + entry.place;
        entry.place = quint32(letters.size());
        letters.insert(letters.end(), first, first + entry.length);
    }
    m_letters.swap(letters);
    m_unusedLetters = 0;
}
