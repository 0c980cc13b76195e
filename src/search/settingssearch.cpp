// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "search/settingssearch.h"

#include "registry/pluginregistry.h"
#include "registry/treeitem.h"
#include "search/querymatcher.h"
#include "search/searchindex.h"

#include <algorithm>

namespace
{
/// Returns the index of the tree below @p root, which all objects share that use it at the time.
std::shared_ptr<SearchIndex> indexOf(TreeItem *root)
{
    static std::vector<std::weak_ptr<SearchIndex>> s_indexes;
    const auto isUnused = [](const std::weak_ptr<SearchIndex> &index) { return index.expired(); };
    s_indexes.erase(std::remove_if(s_indexes.begin(), s_indexes.end(), isUnused), s_indexes.end());
    for (const std::weak_ptr<SearchIndex> &candidate : s_indexes) {
        if (std::shared_ptr<SearchIndex> index = candidate.lock(); index->root() == root) {
            return index;
        }
    }
    auto index = std::make_shared<SearchIndex>(root);
    s_indexes.push_back(index);
    return index;
}

/// Returns the positions of @p results, with those from one file after each other.
QVector<int> orderByFile(const QVector<SearchResult> &results)
{
    QStringList files;
    QVector<int> order;
    for (const SearchResult &result : results) {
        order.append(files.size());
        files.append(result.item ? result.item->fromFile() : QString());
    }
    std::sort(order.begin(), order.end(), [&files](int a, int b) { return files.at(a) < files.at(b); });
    return order;
}

SearchHighlights highlightsIn(const SearchResult &result, const QString &query, EntryTextReader *reader)
{
    const QVector<TextRange> titleRanges = rangesOf(result.title, query);
    if (!titleRanges.isEmpty() || !result.item) {
        return {titleRanges, {}, {}};
    }
    const EntryTexts texts = reader->read(result.item);
    const QStringList others = texts.keywords + QStringList{texts.englishTitle} + texts.englishKeywords
                               + QStringList{texts.description};
    for (const QString &matched : others) {
        const QVector<TextRange> ranges = rangesOf(matched, query);
        if (!ranges.isEmpty()) {
            return {{}, matched, ranges};
        }
    }
    return {};
}
}

SettingsSearch::SettingsSearch(QObject *parent)
    : SettingsSearch(nullptr, parent)
{
}

SettingsSearch::SettingsSearch(TreeItem *root, QObject *parent)
    : QObject(parent)
    , m_root(root)
    , m_isOfProcess(!root)
{
}

SettingsSearch::~SettingsSearch() = default;

QVector<SearchResult> SettingsSearch::find(const SearchQuery &query)
{
    const QVector<Match> matches = matchesOf(query, *index());
    QVector<SearchResult> results;
    results.reserve(matches.size());
    for (const Match &match : matches) {
        results.append(resultFor(match.position, match.score));
    }
    return results;
}

SearchResult SettingsSearch::resultAt(const QString &location)
{
    TreeItem *root = index()->root();
    const TreeItem *item = root ? root->lookup(location.split(QLatin1Char('/'))) : nullptr;
    const int position = item ? SearchNodes::positionOf(item) : -1;
    return position >= 0 && m_index->nodes().at(position).isResult ? resultFor(position, 0) : SearchResult();
}

SearchHighlights SettingsSearch::highlightsOf(const SearchResult &result, const QString &query)
{
    EntryTextReader reader;
    return highlightsIn(result, query, &reader);
}

QVector<SearchHighlights> SettingsSearch::highlightsOf(const QVector<SearchResult> &results, const QString &query)
{
    EntryTextReader reader;
    QVector<SearchHighlights> highlights(results.size());
    const QVector<int> byFile = orderByFile(results);
    for (const int i : byFile) {
        highlights[i] = highlightsIn(results.at(i), query, &reader);
    }
    return highlights;
}

bool SettingsSearch::isBusy() const
{
    return m_index && m_index->isBusy();
}

void SettingsSearch::finish()
{
    index()->finish();
}

void SettingsSearch::release()
{
    if (m_index) {
        m_index->disconnect(this);
        m_index.reset();
    }
}

SearchIndex *SettingsSearch::index()
{
    if (!m_index) {
        m_index = indexOf(m_isOfProcess ? PluginRegistry::instance()->getItem({}) : m_root.data());
        connect(m_index.get(), &SearchIndex::busyChanged, this, &SettingsSearch::busyChanged);
    }
    return m_index.get();
}

SearchResult SettingsSearch::resultFor(int position, float score) const
{
    const SearchNodes &nodes = m_index->nodes();
    TreeItem *item = nodes.at(position).item;
    QStringList breadcrumb;
    for (int above = nodes.at(position).parent; above >= 0; above = nodes.at(above).parent) {
        const QString title = m_index->titleAt(above);
        if (!title.isEmpty()) {
            breadcrumb.prepend(title);
        }
    }
    const QString title = m_index->titleAt(position);
    return {item,
            item->location().join(QLatin1Char('/')),
            title.isEmpty() ? QLatin1String("!!") + item->name() : title,
            breadcrumb,
            nodes.types().type(nodes.at(position).type),
            double(score)};
}

#include "moc_settingssearch.cpp"
