// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "search/searchindex.h"

#include "registry/fileindex.h"
#include "registry/treeitem.h"
#include "registry/treeitem_p.h"
#include "search/entrywords.h"

#include <QElapsedTimer>

#include <algorithm>

namespace
{
constexpr int PollInterval = 1; ///< ms, while a file is parsed

/// Returns @p item if it is the root of a tree whose files are known, otherwise null.
TreeItem *asRoot(TreeItem *item)
{
    return item && !item->parentItem() && TreeItemPrivate::of(item)->index() ? item : nullptr;
}
}

SearchIndex::SearchIndex(TreeItem *root)
    : m_root(asRoot(root))
    , m_files(m_root ? TreeItemPrivate::of(root)->index() : nullptr)
{
    if (!m_root) {
        return;
    }
    m_queue = m_files->files();
    m_pending = {m_queue.cbegin(), m_queue.cend()};
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
    return m_root && (m_task || !m_pending.isEmpty());
}

void SearchIndex::finish()
{
    const bool wasBusy = isBusy();
    while (readNext()) {}
    if (wasBusy) {
        finishReading();
    }
}

void SearchIndex::finishReading()
{
    m_timer.stop();
    Q_EMIT busyChanged();
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
        memory += sizeof(Segment) + size_t(segment.words.capacity()) * sizeof(int)
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
        finishFile();
    }
    removeSegment(file);
    if (!m_pending.contains(file)) {
        m_pending.insert(file);
        m_queue.append(file);
    }
    m_timer.start();
    if (!wasBusy) {
        QMetaObject::invokeMethod(this, &SearchIndex::busyChanged, Qt::QueuedConnection); // not within a batch
    }
}

void SearchIndex::readSlice()
{
    QElapsedTimer time;
    time.start();
    while (!isParsing() && time.elapsed() < SliceTime) {
        if (!readNext()) {
            finishReading();
            return;
        }
    }
    m_timer.setInterval(isParsing() ? PollInterval : 0);
}

bool SearchIndex::isParsing() const
{
    return m_task && !m_task->reader.isReady();
}

/// Returns false when there is nothing left to read.
bool SearchIndex::readNext()
{
    if (!m_root) {
        return false;
    }
    if (!m_task) {
        if (m_pending.isEmpty()) {
            return squeezeNext();
        }
        openNext();
        return true;
    }
    if (m_task->next == m_task->items.size()) {
        finishFile();
        return true;
    }
    TreeItem *item = m_task->items.at(m_task->next++);
    readEntry(item, m_task->reader.read(item), &m_segments[m_task->file]);
    return true;
}

void SearchIndex::openNext()
{
    m_task.emplace();
    m_task->file = m_queue.takeLast();
    m_task->items = m_files->declaredBy(m_task->file);
    m_pending.remove(m_task->file);
    if (!m_task->items.isEmpty()) {
        m_task->reader.open(m_task->items.constFirst());
    }
}

/// Releases memory once all files have been read for the first time: later ones are few. Returns false when that is done.
bool SearchIndex::squeezeNext()
{
    switch (m_squeezed) {
    case Squeezed::Nothing:
        m_nodes.squeeze();
        m_squeezed = Squeezed::Nodes;
        return true;
    case Squeezed::Nodes:
        m_vocabulary.squeeze();
        m_squeezed = Squeezed::All;
        return true;
    case Squeezed::All:
        break;
    }
    return false;
}

void SearchIndex::readEntry(TreeItem *item, const EntryTexts &texts, Segment *segment)
{
    const EntryWords entryWords = wordsOfEntry(texts);
    SearchNode &node = m_nodes.insert(item, texts.type);
    node.isResult = texts.isSearchable;
    node.titleWords = quint8(std::min(entryWords.titleWords, 0xFF));
    node.titlePlace = quint32(segment->titles.size());
    const QByteArray title = texts.title.toUtf8();
    segment->titles.append(title.constData()).append('\0'); // up to a null character in it
    const int position = SearchNodes::positionOf(item);
    for (const EntryWord &word : entryWords.words) {
        const int number = m_vocabulary.insert(word.text);
        m_vocabulary.addPosting(number, Posting::make(position, word.field, word.form, word.mentions));
        m_isInSegment.resize(size_t(m_vocabulary.size()));
        if (!m_isInSegment[size_t(number)]) {
            m_isInSegment[size_t(number)] = true;
            segment->words.append(number);
        }
    }
}

void SearchIndex::finishFile()
{
    const auto segment = m_segments.find(m_task->file);
    if (segment != m_segments.end()) {
        for (const int word : qAsConst(segment->words)) {
            m_isInSegment[size_t(word)] = false;
        }
        segment->words.squeeze();
        segment->titles.squeeze();
    }
    m_task.reset();
}

void SearchIndex::removeSegment(const QString &file)
{
    if (!m_segments.contains(file)) {
        return;
    }
    const Segment segment = m_segments.take(file);
    const QVector<TreeItem *> items = m_files->declaredBy(file); // also the one that is about to leave
    for (const TreeItem *item : items) {
        const int position = SearchNodes::positionOf(item);
        if (position >= 0 && m_nodes.at(position).isRead) {
            m_nodes.remove(position);
        }
    }
    const auto isRemoved = [this](quint32 posting) { return !m_nodes.at(Posting::nodeOf(posting)).isRead; };
    for (const int word : segment.words) {
        m_vocabulary.removePostings(word, isRemoved);
    }
}

#include "moc_searchindex.cpp"
