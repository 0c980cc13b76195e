// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "toolkit/entryaction.h"

#include "actions/remotecall.h"
#include "applications/pendingreply.h"

#include <QDBusConnection>
#include <QDBusMessage>

#include <utility>

namespace
{
const QString s_action = QStringLiteral("action");
}

EntryAction::EntryAction(QObject *parent)
    : QObject(parent)
{
}

SettingsEntry *EntryAction::entry() const
{
    return m_entry;
}

void EntryAction::setEntry(SettingsEntry *entry)
{
    if (entry == m_entry) {
        return;
    }
    if (m_entry) {
        m_entry->disconnect(this);
    }
    m_entry = entry;
    if (m_entry) {
        connect(m_entry, &SettingsEntry::pathChanged, this, &EntryAction::reset);
        connect(m_entry, &QObject::destroyed, this, &EntryAction::entryChanged);
    }
    const QPointer<EntryAction> self(this);
    Q_EMIT entryChanged();
    if (self) {
        reset();
    }
}

EntryAction::State EntryAction::state() const
{
    return m_state;
}

QString EntryAction::errorName() const
{
    return m_error.name();
}

QString EntryAction::errorString() const
{
    return m_error.message();
}

QString EntryAction::requiredPackage() const
{
    return m_requiredPackage;
}

void EntryAction::run()
{
    if (m_state == Running) {
        return;
    }
    const QDBusError error = errorBeforeRunning();
    if (error.isValid()) {
        setState(Failed, error);
    } else {
        send();
    }
}

QDBusError EntryAction::errorBeforeRunning() const
{
    if (!m_entry || !m_entry->exists()) {
        return {QDBusError::InvalidArgs, QStringLiteral("There is no entry")};
    }
    if (m_entry->type() != s_action) {
        return {QDBusError::InvalidArgs, QStringLiteral("The entry is not an action")};
    }
    return RemoteCall::errorBeforeSending(RemoteCall::of(m_entry->params()), QDBusConnection::sessionBus());
}

void EntryAction::send()
{
    const QVariantMap action = m_entry->params();
    const auto take = [this, run = ++m_runs,
                       package = RemoteCall::requiredPackage(action)](const QDBusPendingCall &call) {
        if (run == m_runs) {
            finish(call.error(), package);
        }
    };
    whenFinished(QDBusConnection::sessionBus().asyncCall(RemoteCall::of(action)), this, take);
    setState(Running);
}

void EntryAction::finish(const QDBusError &error, const QString &package)
{
    if (error.type() != QDBusError::ServiceUnknown || package.isEmpty()) {
        setState(error.isValid() ? Failed : Succeeded, error);
        return;
    }
    RemoteCall::showInStore(package, this);
    setState(Failed, error, package);
}

void EntryAction::reset()
{
    ++m_runs;
    setState(Idle);
}

void EntryAction::setState(State state, const QDBusError &error, const QString &package)
{
    const bool hasOtherState = std::exchange(m_state, state) != state;
    const QDBusError errorBefore = std::exchange(m_error, error);
    const bool hasOtherError = errorBefore.name() != error.name() || errorBefore.message() != error.message();
    const bool hasOtherPackage = std::exchange(m_requiredPackage, package) != package;
    const QPointer<EntryAction> self(this);
    if (hasOtherError) {
        Q_EMIT errorChanged();
    }
    if (self && hasOtherPackage) {
        Q_EMIT requiredPackageChanged();
    }
    if (self && hasOtherState) { // last, so that its handlers find the error
        Q_EMIT stateChanged();
    }
}
