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

/// The three services that the applications model calls, each in a process of its own. They share one journal of calls.
class ApplicationServices
{
public:
    enum Service { Sandboxing, Autostart, Notifications };
    enum Fault { Refuses, AnswersAnotherType, AnswersNothing, AnswersTooLate, Dies, IsMissing };

    /// Starts all services on their buses, with a successful reply to each call, and clears the journal.
    void reset();
    DBusPeer &operator[](Service service);

    /// Lets @p method reply with the Python expression @p result, of another type than usual with a @p signature.
    void answer(const QByteArray &method, const QByteArray &result, const QByteArray &signature = {});
    /// Lets @p method reply with one after the other of the Python expressions @p results.
    void answerInTurn(const QByteArray &method, const QByteArrayList &results);
    /// Lets @p method run the Python code @p code before it replies as usual.
    void prepare(const QByteArray &method, const char *code);
    void spoil(const QByteArray &method, Fault fault);
    void stop(Service service); ///< until the next reset() or start()
    void start(Service service);

    /// Returns when the replies to all calls so far, and to calls that the replies cause, have been handled.
    void settle() const;
    /// Waits like settle(). Returns the calls since the last take, such as "SetEnabled(1000, 'id', 1) isb".
    QStringList takeCalls();

private:
    QStringList journal() const; ///< all calls that the services have received
    void define(const QByteArray &method, const QString &code, const QByteArray &signature = {});

    const QTemporaryDir m_directory;
    std::map<Service, std::unique_ptr<DBusPeer>> m_peers;
    int m_taken = 0;
    int m_turns = 0;
    QSet<QByteArray> m_changed;
};

Q_DECLARE_METATYPE(ApplicationServices::Fault)

/// Adds one row for each fault: the column "fault", and "error" with the error that a call of @p method then returns.
void faults(const char *method);

/// Adds the applications a, b and c to the launcher, and an "applications" section to the registry.
void writeThreeApplications(const Applications &applications);
/// The same, where a has the application id com.example.a, b has com.example.b, and c none.
void writeNotifyingApplications(const Applications &applications);

constexpr int NoMode = -1;
/// In milliseconds, far below the time-out of a call
constexpr int NoTime = 5000;

/// A complete model of the installed applications for the user 1000, and a record of its signals.
class ServedModel : public ApplicationsSettingsModel
{
public:
    /// Sets @p mode and waits for its list. The record starts after that.
    explicit ServedModel(ApplicationServices *services, int mode = NoMode);

    QStringList takeSignals();
    QVariantList column(ApplicationRoles role) const;

private:
    SignalLog m_signals{this};
};

/// Returns the signals that announce a new allow-list for three rows.
QStringList allowlistAnnouncement();
/// Returns the signals that announce a changed notification setting of one row: "0-0" for the first row.
QStringList notificationAnnouncement(const char *row);

/// Returns the output of QDebug for it, with or without quotes around the texts.
QString debugText(const QDBusError &error);
QString unquotedText(const QDBusError &error);
/// Returns a warning of the library's category as MessageLog records it.
QString warning(const QString &message);
QStringList incorrectUid(int times);
QStringList texts(std::initializer_list<const char *> latin1);
