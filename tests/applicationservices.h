// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "applications/applicationssettingsmodel.h"
#include "dbuspeer.h"
#include "messagelog.h"
#include "signallog.h"

#include <QByteArrayList>
#include <QDBusError>
#include <QMetaType>
#include <QSet>
#include <QTemporaryDir>

#include <initializer_list>
#include <map>
#include <memory>

class Applications;

/// The three services that the applications model talks to, each in a process of its own. They keep one journal.
class ApplicationServices
{
public:
    enum Service { Sandboxing, Autostart, Notifications };
    enum Fault { Refuses, AnswersAnotherType, AnswersNothing, AnswersTooLate, Dies, IsMissing };

    /// Puts all of them on their buses, answering each call with success, and forgets the calls so far.
    void reset();
    DBusPeer &operator[](Service service);

    /// Makes @p method answer with the Python expression @p result, of another type than usual with a @p signature.
    void answer(const QByteArray &method, const QByteArray &result, const QByteArray &signature = {});
    /// Makes @p method answer with one after the other of the Python expressions @p results.
    void answerInTurn(const QByteArray &method, const QByteArrayList &results);
    /// Makes @p method run @p code, too, before it answers as usual.
    void prepare(const QByteArray &method, const char *code);
    void spoil(const QByteArray &method, Fault fault);
    void stop(Service service); ///< until the next reset() or start()
    void start(Service service);

    /// Returns when all calls so far, and those that the answers lead to, are answered and the answers handled.
    void settle() const;
    /// The calls since the last time, once they are settled: "SetEnabled(1000, 'id', 1) isb".
    QStringList takeCalls();

private:
    QStringList journal() const; ///< all calls that the services have taken so far
    void define(const QByteArray &method, const QString &code, const QByteArray &signature = {});

    const QTemporaryDir m_directory;
    std::map<Service, std::unique_ptr<DBusPeer>> m_peers;
    int m_taken = 0;
    int m_turns = 0;
    QSet<QByteArray> m_changed;
};

Q_DECLARE_METATYPE(ApplicationServices::Fault)

/// One row for each fault: the column "fault", and "error" with the one that a call of @p method has then.
void faults(const char *method);

/// Puts the applications a, b and c into the launcher, and an "applications" section into the registry.
void writeThreeApplications(const Applications &applications);
/// The same, where a has the application id com.app.a, b has com.app.b, and c none.
void writeNotifyingApplications(const Applications &applications);

constexpr int NoMode = -1;
/// In milliseconds, far below the time that a call is given for its answer
constexpr int NoTime = 5000;

/// A complete model of the installed applications for the user 1000, with a record of what it does.
class ServedModel : public ApplicationsSettingsModel
{
public:
    /// In @p mode, of which it has fetched the list. The record starts after that.
    explicit ServedModel(ApplicationServices *services, int mode = NoMode);

    QStringList takeSignals();
    QVariantList column(ApplicationRoles role) const;

private:
    SignalLog m_signals{this};
};

/// The signals with which a new allow-list for three rows is announced.
QStringList allowlistAnnouncement();
/// The signals with which another notification setting of one row is announced: "0-0" for the first row.
QStringList notificationAnnouncement(const char *row);

/// The output of QDebug for it, with and without quotes round the texts.
QString debugText(const QDBusError &error);
QString unquotedText(const QDBusError &error);
/// A warning of the library's category as MessageLog records it.
QString warning(const QString &message);
QStringList incorrectUid(int times);
QStringList texts(std::initializer_list<const char *> latin1);
