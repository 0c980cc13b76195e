// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "search/settingssearch.h"

#include <QObject>
#include <QVector>

#include <functional>

/**
 * Finds entries for launchers: those with all of the words, without typos.
 *
 * The answer comes when all entries have been read, because a launcher asks only once, often while the program starts.
 */
class EntryFinder : public QObject
{
    Q_OBJECT

public:
    using Receiver = std::function<void(const QVector<SearchResult> &results)>;

    /// Passes the entries that @p terms find to @p receive, the best one first.
    void find(const QStringList &terms, const Receiver &receive);
    /// Passes those of @p locations that @p terms find.
    void findWithin(const QStringList &locations, const QStringList &terms, const Receiver &receive);
    /// Passes the entries at @p locations, without those that do not exist.
    void look(const QStringList &locations, const Receiver &receive);
    /// Returns whether a launcher waits for its answer.
    bool isAnswering() const
    {
        return !m_waiting.isEmpty();
    }

Q_SIGNALS:
    /// A launcher has asked for something, or was answered.
    void used();

private:
    void whenRead(const std::function<void()> &answer);
    void answerWaiting();

    SettingsSearch m_search;
    QVector<std::function<void()>> m_waiting;
};
