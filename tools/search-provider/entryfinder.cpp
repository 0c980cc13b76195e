// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "entryfinder.h"

#include "bustexts.h"
#include "search/words.h"

#include <algorithm>
#include <utility>

namespace
{
constexpr int MaxResults = 50;
constexpr int MaxWaiting = 64;

SearchQuery queryOf(const QStringList &terms)
{
    SearchQuery query;
    for (const QString &term : terms) {
        query.text += term.leftRef(MaxLettersOfQuery - query.text.size()) + QLatin1Char(' ');
        if (query.text.size() >= MaxLettersOfQuery) {
            break;
        }
    }
    query.isStrict = true;
    query.limit = MaxResults;
    return query;
}

/// Returns @p results without those that a launcher cannot ask for again.
QVector<SearchResult> withIdentifiers(QVector<SearchResult> results)
{
    const auto hasNone = [](const SearchResult &result) { return !BusTexts::isIdentifier(result.location); };
    results.erase(std::remove_if(results.begin(), results.end(), hasNone), results.end());
    return results;
}
}

void EntryFinder::find(const QStringList &terms, const Receiver &receive)
{
    whenRead([this, query = queryOf(terms), receive] { receive(withIdentifiers(m_search.find(query))); });
}

void EntryFinder::findWithin(const QStringList &locations, const QStringList &terms, const Receiver &receive)
{
    SearchQuery query = queryOf(terms);
    query.within = locations.mid(0, MaxResults);
    whenRead([this, query, receive] { receive(withIdentifiers(m_search.find(query))); });
}

void EntryFinder::look(const QStringList &locations, const Receiver &receive)
{
    whenRead([this, locations = locations.mid(0, MaxResults), receive] {
        QVector<SearchResult> results;
        for (const QString &location : locations) {
            const SearchResult result = m_search.resultAt(location);
            if (result.item && BusTexts::isIdentifier(location)) {
                results.append(result);
            }
        }
        receive(results);
    });
}

void EntryFinder::whenRead(const std::function<void()> &answer)
{
    if (m_waiting.isEmpty()) {
        connect(&m_search, &SettingsSearch::busyChanged, this, &EntryFinder::answerWaiting, Qt::UniqueConnection);
        m_search.find({}); // begins to read
    }
    Q_EMIT used();
    if (m_search.isBusy() && m_waiting.size() < MaxWaiting) {
        m_waiting.append(answer);
    } else {
        answer();
    }
}

void EntryFinder::answerWaiting()
{
    if (m_search.isBusy()) {
        return;
    }
    const QVector<std::function<void()>> answers = std::exchange(m_waiting, {});
    for (const std::function<void()> &answer : answers) {
        answer();
    }
    Q_EMIT used();
}

#include "moc_entryfinder.cpp"
