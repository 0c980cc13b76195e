// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

// The input is a title, a null character, a keyword, a null character and a query. It searches three entries.

#include "harness.h"

#include "registry/entrytree.h"
#include "registry/treeitem.h"
#include "search/settingssearch.h"

namespace
{
QVariantMap entry(const QString &title, const QString &keyword)
{
    return {{QStringLiteral("title"), title},
            {QStringLiteral("keywords"), QStringList{keyword}},
            {QStringLiteral("from_file"), QStringLiteral("x.json")}};
}

void checkRanges(const QString &text, const QVector<TextRange> &ranges)
{
    int end = 0;
    for (const TextRange &range : ranges) {
        require(range.start >= end && range.length > 0, "ranges follow each other");
        end = range.start + range.length;
    }
    require(end <= text.size(), "ranges are within their text");
}
}

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QString input = QString::fromUtf8(reinterpret_cast<const char *>(data), int(size));
    const QString title = input.section(QChar(0), 0, 0);
    const QString keyword = input.section(QChar(0), 1, 1);
    EntryTree tree(EntrySources{}, nullptr);
    tree.root()->insertItem({QStringLiteral("a")}, entry(title, keyword));
    tree.root()->insertItem({QStringLiteral("a"), QStringLiteral("b")}, entry(keyword, title));
    tree.root()->insertItem({QStringLiteral("c")}, entry(QStringLiteral("Sound volume"), QStringLiteral("audio")));

    SettingsSearch search(tree.root());
    search.finish();
    SearchQuery query{input.section(QChar(0), 2)};
    const QVector<SearchResult> results = search.find(query);
    for (const SearchResult &result : results) {
        require(result.score > 0 && result.score <= 1, "a score is from 0 to 1");
        const SearchHighlights highlights = SettingsSearch::highlightsOf(result, query.text);
        checkRanges(result.title, highlights.titleRanges);
        checkRanges(highlights.matched, highlights.matchedRanges);
    }
    query.isStrict = true;
    require(search.find(query).size() <= results.size(), "a strict search finds no more");
    return 0;
}
