// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "search/searchquery.h"
#include "search/textranges.h"
#include "search/velkasettingssearch_export.h"

#include <QObject>
#include <QPointer>
#include <QVector>

#include <memory>

class SearchIndex;
class TreeItem;

/// An entry that was found.
struct SearchResult {
    TreeItem *item = nullptr; ///< valid until PluginRegistry::contentChanged()
    QString location; ///< the names down to the entry, joined by slashes
    QString title;
    QStringList breadcrumb; ///< the titles of the nodes above it, from the top
    QString kind; ///< the type of the entry
    double score = 0; ///< from 0 to 1, the best; only results of one query can be compared
};

/// The parts of an entry's texts that match a query.
struct SearchHighlights {
    QVector<TextRange> titleRanges;
    QString matched; ///< a keyword, the English title or the description, when no part of the title matches
    QVector<TextRange> matchedRanges;
};

/**
 * Finds entries by the words of their titles and keywords.
 *
 * The words are indexed at the first query, from the event loop, so that nothing waits: find() answers from what has been
 * read so far, and busyChanged() says when all is read, then and after each change of the entries. All objects for the
 * same tree share one index, which is deleted with the last of them. To be used in the GUI thread only.
 */
class VELKASETTINGSSEARCH_EXPORT SettingsSearch : public QObject
{
    Q_OBJECT

public:
    /// Searches the entries of this process.
    explicit SettingsSearch(QObject *parent = nullptr);
    /// Searches the tree below @p root, which is PluginRegistry::getItem({}). For any other node, or after the registry is
    /// deleted, it finds nothing.
    explicit SettingsSearch(TreeItem *root, QObject *parent = nullptr);
    ~SettingsSearch() override;

    /**
     * Returns what matches @p query, the best one first: the entries with all of the words; if there are none, those
     * with all of them and a few typos; and if there are none either, those with most of them.
     */
    QVector<SearchResult> find(const SearchQuery &query);
    /// Returns the entry at @p location, without an item if there is none that can be found.
    SearchResult resultAt(const QString &location);

    /// Returns the matching parts of @p result for the words @p query. It must be valid.
    static SearchHighlights highlightsOf(const SearchResult &result, const QString &query);
    /// Returns those of each of @p results. Their files are read once, and not for each result.
    static QVector<SearchHighlights> highlightsOf(const QVector<SearchResult> &results, const QString &query);

    bool isBusy() const; ///< entries are still to be read
    /// Reads all entries now.
    void finish();
    /// Releases the index until the next query.
    void release();

Q_SIGNALS:
    void busyChanged();

private:
    Q_DECL_HIDDEN SearchIndex *index();
    Q_DECL_HIDDEN SearchResult resultFor(int position, float score) const;

    const QPointer<TreeItem> m_root; ///< null for the entries of this process, or once the tree is deleted
    const bool m_isOfProcess;
    std::shared_ptr<SearchIndex> m_index; ///< null before the first query
};
