// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "search/searchindex.h"

#include "registry/fileindex.h"
#include "registry/treeitem.h"
#include "registry/treeitem_p.h"
#include "search/entrywords.h"

#include <QElapsedTimer>

#include <algorithm>

SearchIndex::SearchIndex(TreeItem *root)
    : m_root(root)
    , m_files(TreeItemPrivate::of(root)->index())
{
    const QStringList files = m_files->files();
    m_pending = {files.cbegin(), files.cend()};
    m_files->addObserver(this);
    m_timer.setInterval(0);
    connect(&m_timer, &QTimer::timeout, this, &SearchIndex::readSlice);
    if (isBusy()) {
        m_timer.start();
    }
}

SearchIndex::~SearchIndex()
{
    if (m_root) {
        m_files->removeObserver(this);
    }
}

TreeItem *SearchIndex::root() const
{
    return m_root;
}

bool SearchIndex::isBusy() const
{
    return m_task || !m_pending.isEmpty();
}

void SearchIndex::finish()
{
    const bool wasBusy = isBusy();
    while (readNext()) {}
    m_timer.stop();
    if (wasBusy) {
        Q_EMIT busyChanged();
    }
}

const SearchNodes &SearchIndex::nodes() const
{
    return m_nodes;
}

const Vocabulary &SearchIndex::vocabulary() const
{
    return m_vocabulary;
}

QString SearchIndex::titleAt(int position) const
{
    const SearchNode &node = m_nodes.at(position);
    const auto segment = m_segments.constFind(node.item->fromFile());
    return node.isRead ? QString::fromUtf8(segment->titles.constData() + node.titlePlace) : QString();
}

size_t SearchIndex::memory() const
{
    size_t memory = m_nodes.memory() + m_vocabulary.memory();
    for (const Segment &segment : m_segments) {
        memory += sizeof(Segment) + size_t(segment.nodes.capacity() + segment.words.capacity()) * sizeof(int)
                  + size_t(segment.titles.capacity());
    }
    return memory;
}

void SearchIndex::nodeEntered(TreeItem *item)
{
    if (item->isDeclared()) {
        readAgain(item->fromFile());
    }
}

/// Removes the whole segment, because its nodes may be deleted before it is read again.
void SearchIndex::nodeLeaves(TreeItem *item)
{
    if (item->isDeclared()) {
        readAgain(item->fromFile());
    }
}

void SearchIndex::readAgain(const QString &file)
{
    const bool wasBusy = isBusy();
    if (m_task && m_task->file == file) {
        m_task.reset();
    }
    removeSegment(file);
    m_pending.insert(file);
    m_timer.start();
    if (!wasBusy) {
        QMetaObject::invokeMethod(this, &SearchIndex::busyChanged, Qt::QueuedConnection); // not within a batch
    }
}

void SearchIndex::readSlice()
{
    QElapsedTimer time;
    time.start();
    while (time.elapsed() < SliceTime) {
        if (!readNext()) {
            m_timer.stop();
            Q_EMIT busyChanged();
            return;
        }
    }
}

/// Returns false when there is nothing left to read.
bool SearchIndex::readNext()
{
    if (!m_task) {
        if (m_pending.isEmpty()) {
            return false;
        }
        m_task.emplace();
        m_task->file = *m_pending.cbegin();
        m_task->items = m_files->declaredBy(m_task->file);
        m_pending.erase(m_pending.cbegin());
    }
    if (m_task->next == m_task->items.size()) {
        finishFile();
        return true;
    }
    TreeItem *item = m_task->items.at(m_task->next++);
    readEntry(item, m_task->reader.read(item), &m_segments[m_task->file]);
    return true;
}

void SearchIndex::readEntry(TreeItem *item, const EntryTexts &texts, Segment *segment)
{
    SearchNode &node = m_nodes.insert(item);
    node.type = m_nodes.typeNumber(texts.type);
    node.isResult = texts.isSearchable;
    node.titleWords = quint8(std::min(countOfWords(texts.title), 0xFF));
    node.titlePlace = quint32(segment->titles.size());
    const QByteArray title = texts.title.toUtf8();
    segment->titles.append(title.constData()).append('\0'); // up to a null character in it
    const int position = SearchNodes::positionOf(item);
    segment->nodes.append(position);
    const QVector<EntryWord> words = wordsOfEntry(texts);
    for (const EntryWord &word : words) {
        const int number = m_vocabulary.insert(word.text);
        m_vocabulary.addPosting(number, Posting::make(position, word.field, word.form, word.mentions));
        segment->words.append(number);
    }
}

void SearchIndex::finishFile()
{
    const auto segment = m_segments.find(m_task->file);
    if (segment != m_segments.end()) {
        std::sort(segment->words.begin(), segment->words.end());
        segment->words.erase(std::unique(segment->words.begin(), segment->words.end()), segment->words.end());
        segment->words.squeeze();
        segment->nodes.squeeze();
        segment->titles.squeeze();
    }
    m_task.reset();
}

void SearchIndex::removeSegment(const QString &file)
{
    const Segment segment = m_segments.take(file);
    for (const int position : segment.nodes) {
        m_nodes.remove(position);
    }
    const auto isRemoved = [this](quint32 posting) { return !m_nodes.at(Posting::nodeOf(posting)).isRead; };
    QSet<int> removed;
    for (const int word : segment.words) {
        if (!removed.contains(word)) { // those of a file that was not read to its end can be there twice
            removed.insert(word);
            m_vocabulary.removePostings(word, isRemoved);
        }
    }
}
