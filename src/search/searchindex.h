// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "registry/nodeobserver.h"
#include "search/entrytexts.h"
#include "search/searchnodes.h"
#include "search/vocabulary.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QSet>
#include <QTimer>
#include <QVector>

#include <optional>
#include <vector>

class FileIndex;
class TreeItem;

/// A file of which the entries are being read.
struct IndexTask {
    QString file;
    QVector<TreeItem *> items;
    int next = 0;
    EntryTextReader reader;
};

/**
 * The words of the entries of a tree: a segment for each registration file, which is read again when one of its nodes
 * comes or goes. Files are read in slices from the event loop.
 */
class SearchIndex : public QObject, private NodeObserver
{
    Q_OBJECT

public:
    static constexpr int SliceTime = 3; ///< ms, for a frame to be drawn in time

    /// There can be one index for the tree below @p root at a time. For a node that is no root, or in no tree whose files
    /// are known, it is empty.
    explicit SearchIndex(TreeItem *root);
    ~SearchIndex() override;

    TreeItem *root() const; ///< null once the tree is deleted, or without one
    bool isBusy() const; ///< there are files that are still to be read
    /// Reads all files that are still to be read.
    void finish();

    const SearchNodes &nodes() const;
    const Vocabulary &vocabulary() const;
    QString titleAt(int position) const; ///< as it is displayed, empty for an entry without one
    size_t memory() const; ///< in bytes, about

Q_SIGNALS:
    void busyChanged();

private:
    struct Segment {
        QVector<int> words; ///< each once
        QByteArray titles; ///< of its nodes, each with a null character at its end
    };

    enum class Squeezed { Nothing, Nodes, All };

    void nodeEntered(TreeItem *item) override;
    void nodeLeaves(TreeItem *item) override;

    void readAgain(const QString &file);
    void finishReading();
    void readSlice();
    bool isParsing() const;
    bool readNext();
    void openNext();
    bool squeezeNext();
    void readEntry(TreeItem *item, const EntryTexts &texts, Segment *segment);
    void finishFile();
    void removeSegment(const QString &file);

    QPointer<TreeItem> m_root;
    FileIndex *const m_files; ///< deleted with the root
    SearchNodes m_nodes;
    Vocabulary m_vocabulary;
    QHash<QString, Segment> m_segments;
    QSet<QString> m_pending; ///< files to read
    QStringList m_queue; ///< the same, in any order
    Squeezed m_squeezed = Squeezed::Nothing;
    std::optional<IndexTask> m_task;
    std::vector<bool> m_isInSegment; ///< for each word, whether it is in the segment of m_task
    QTimer m_timer;
};
