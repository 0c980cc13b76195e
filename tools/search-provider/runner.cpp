// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "runner.h"

#include "bustexts.h"
#include "delayedreply.h"
#include "entryfinder.h"
#include "settingsapplication.h"

#include <QDBusMetaType>

namespace
{
constexpr int PossibleMatch = 30; ///< among the types of matches that KRunner knows

QVariant matchesOf(const QVector<SearchResult> &results)
{
    RunnerMatches matches;
    for (const SearchResult &result : results) {
        const QVariantMap properties{
            {QStringLiteral("subtext"), BusTexts::shortened(result.breadcrumb.join(QStringLiteral(" › ")))},
            {QStringLiteral("actions"), QStringList()},
        };
        matches.append({result.location, BusTexts::shortened(result.title), BusTexts::themeIconOf(*result.item),
                        PossibleMatch, result.score, properties});
    }
    return QVariant::fromValue(matches);
}
}

QDBusArgument &operator<<(QDBusArgument &argument, const RunnerMatch &match)
{
    argument.beginStructure();
    argument << match.id << match.text << match.iconName << match.type << match.relevance << match.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, RunnerMatch &match)
{
    argument.beginStructure();
    argument >> match.id >> match.text >> match.iconName >> match.type >> match.relevance >> match.properties;
    argument.endStructure();
    return argument;
}

QDBusArgument &operator<<(QDBusArgument &argument, const RunnerAction &action)
{
    argument.beginStructure();
    argument << action.id << action.text << action.iconName;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, RunnerAction &action)
{
    argument.beginStructure();
    argument >> action.id >> action.text >> action.iconName;
    argument.endStructure();
    return argument;
}

Runner::Runner(EntryFinder *finder, SettingsApplication *application, QObject *parent)
    : QObject(parent)
    , m_finder(finder)
    , m_application(application)
{
    qDBusRegisterMetaType<RunnerMatch>();
    qDBusRegisterMetaType<RunnerMatches>();
    qDBusRegisterMetaType<RunnerAction>();
    qDBusRegisterMetaType<RunnerActions>();
    // The names of the types in the adaptor
    qRegisterMetaType<RunnerMatches>("RunnerMatches");
    qRegisterMetaType<RunnerActions>("RunnerActions");
}

void Runner::Teardown()
{
    // Nothing is kept for a session of matches.
}

RunnerActions Runner::Actions()
{
    return {};
}

void Runner::Run(const QString &matchId, const QString & /*actionId*/)
{
    m_application->open(matchId, 0);
}

RunnerMatches Runner::Match(const QString &query)
{
    m_finder->find({query}, delayedReply(*this, matchesOf));
    return {};
}

#include "moc_runner.cpp"
