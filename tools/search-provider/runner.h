// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QDBusArgument>
#include <QDBusContext>
#include <QObject>
#include <QVariantMap>
#include <QVector>

class EntryFinder;
class SettingsApplication;

/// A match, in the order in which KRunner reads its members.
struct RunnerMatch {
    QString id; ///< the location of the entry
    QString text;
    QString iconName;
    int type = 0;
    double relevance = 0; ///< from 0 to 1
    QVariantMap properties;
};
using RunnerMatches = QVector<RunnerMatch>;
Q_DECLARE_METATYPE(RunnerMatch)

/// Something else that can be done with a match. Entries have nothing.
struct RunnerAction {
    QString id;
    QString text;
    QString iconName;
};
using RunnerActions = QVector<RunnerAction>;
Q_DECLARE_METATYPE(RunnerAction)

QDBusArgument &operator<<(QDBusArgument &argument, const RunnerMatch &match);
const QDBusArgument &operator>>(const QDBusArgument &argument, RunnerMatch &match);
QDBusArgument &operator<<(QDBusArgument &argument, const RunnerAction &action);
const QDBusArgument &operator>>(const QDBusArgument &argument, RunnerAction &action);

/// The entries for KRunner.
class Runner : public QObject, protected QDBusContext
{
    Q_OBJECT

public:
    Runner(EntryFinder *finder, SettingsApplication *application, QObject *parent = nullptr);

public Q_SLOTS:
    // The methods of org.kde.krunner1
    void Teardown();
    RunnerActions Actions();
    void Run(const QString &matchId, const QString &actionId);
    RunnerMatches Match(const QString &query);

private:
    EntryFinder *const m_finder;
    SettingsApplication *const m_application;
};
