// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "search/postinglists.h"

#include <QString>
#include <QStringView>

#include <vector>

/// The words of an index. A word has a number, and postings: the numbers that say where it occurs.
class Vocabulary
{
public:
    Vocabulary();

    /// Returns the number of @p word, which becomes one of these words. It has to get postings.
    int insert(QStringView word);
    void addPosting(int word, quint32 posting);
    /// Removes the postings of @p word for which @p isRemoved is true, and with the last one the word.
    template<typename Predicate>
    void removePostings(int word, const Predicate &isRemoved);

    int size() const; ///< numbers are below it; some are unused
    QStringView word(int number) const; ///< empty for an unused number
    /// Returns a set of the letters of the word, as signatureOf() does.
    quint32 signature(int number) const;
    const quint32 *postingsBegin(int number) const;
    const quint32 *postingsEnd(int number) const;

    /// Releases memory that is reserved for more words.
    void squeeze();

    /// Returns a bit for each letter of @p word. Different letters can have the same bit.
    static quint32 signatureOf(QStringView word);
    size_t memory() const; ///< in bytes

private:
    struct Entry {
        quint32 place = 0; ///< of the letters
        quint32 length = 0; ///< 0 for an unused number
        PostingList postings;
    };

    size_t slotOf(QStringView word) const;
    void insertSlot(int number);
    void removeSlot(size_t slot);
    void growSlots();
    void remove(int number);
    void compact();

    std::vector<ushort> m_letters;
    std::vector<Entry> m_entries;
    std::vector<quint32> m_signatures; ///< side by side, because each query reads all of them
    std::vector<int> m_slots; ///< a hash table of the numbers
    std::vector<int> m_unused;
    size_t m_unusedLetters = 0;
    PostingLists m_postings;
};

template<typename Predicate>
void Vocabulary::removePostings(int word, const Predicate &isRemoved)
{
    PostingList &postings = m_entries.at(size_t(word)).postings;
    m_postings.removeIf(&postings, isRemoved);
    if (postings.count == 0) {
        remove(word);
    }
}
