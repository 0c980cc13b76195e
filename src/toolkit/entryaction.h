// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "toolkit/propertyannouncer.h"
#include "toolkit/settingsentry.h"

#include <QDBusError>
#include <QObject>
#include <QPointer>

class QDBusPendingCall;

/**
 * The action of an entry, and its outcome.
 *
 * run() sends the D-Bus call that the entry describes and returns at once; the reply decides the state. Another entry,
 * or another path of the entry, begins again with Idle, and the reply to an earlier call is ignored. An entry that
 * leaves the tree meanwhile changes nothing.
 */
class EntryAction : public QObject
{
    Q_OBJECT
    /// Not owned.
    Q_PROPERTY(SettingsEntry *entry READ entry WRITE setEntry NOTIFY entryChanged)
    Q_PROPERTY(State state READ state NOTIFY stateChanged)
    /// The error's name on D-Bus, empty unless the state is Failed.
    Q_PROPERTY(QString errorName READ errorName NOTIFY errorChanged)
    /// The error's text, in English or in the words of the service. Empty unless the state is Failed.
    Q_PROPERTY(QString errorString READ errorString NOTIFY errorChanged)
    /// The package that the store was asked to show, because the service is missing. Empty if it was not asked.
    Q_PROPERTY(QString requiredPackage READ requiredPackage NOTIFY requiredPackageChanged)

public:
    enum State {
        Idle, ///< not run yet
        Running, ///< the call was sent
        Succeeded, ///< the service has replied
        Failed, ///< the call was not sent, or there was an error, or no reply in time
    };
    Q_ENUM(State)

    explicit EntryAction(QObject *parent = nullptr);

    SettingsEntry *entry() const;
    void setEntry(SettingsEntry *entry);
    State state() const;
    QString errorName() const;
    QString errorString() const;
    QString requiredPackage() const;

    /// Does nothing while the action is running.
    Q_INVOKABLE void run();

Q_SIGNALS:
    void entryChanged();
    void stateChanged();
    void errorChanged();
    void requiredPackageChanged();

private:
    QDBusError errorBeforeRunning() const;
    void send();
    void finish(const QDBusError &error, const QString &package);
    void followPath();
    bool hasOtherPath() const;
    void reset();
    void setState(State state, const QDBusError &error = {}, const QString &package = {});

    QPointer<SettingsEntry> m_entry;
    QString m_path; ///< of the entry, as the state concerns it
    State m_state = Idle;
    QDBusError m_error;
    QString m_requiredPackage;
    int m_runs = 0; ///< tells the reply to the present call from earlier ones
    PropertyAnnouncer<EntryAction> m_announcer;
};
