// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "toolkit/entryaction.h"

#include "actions/remotecall.h"
#include "applications/pendingreply.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QStringList>

namespace
{
const QString s_action = QStringLiteral("action");
}

EntryAction::EntryAction(QObject *parent)
    : QObject(parent)
    , m_announcer(
          *this,
          {
              {&EntryAction::entryChanged, [](const auto &self) { return QVariant::fromValue(self.entry()); }},
              {&EntryAction::errorChanged,
               [](const auto &self) {
                   return QVariant(QStringList{self.errorName(), self.errorString()});
               }},
              {&EntryAction::requiredPackageChanged,
               [](const auto &self) { return QVariant(self.requiredPackage()); }},
              {&EntryAction::stateChanged, [](const auto &self) { return QVariant(int(self.state())); }},
          })
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
        connect(m_entry, &SettingsEntry::pathChanged, this, &EntryAction::followPath);
        connect(m_entry, &QObject::destroyed, this, [this] { m_announcer.announce(this); });
    }
    reset();
    m_announcer.announce(this);
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
    if (hasOtherPath()) {
        reset();
    }
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

void EntryAction::followPath()
{
    if (hasOtherPath()) {
        reset();
        m_announcer.announce(this);
    }
}

/// Returns true until the action has followed the path. Handlers that were connected to the entry earlier may run it.
bool EntryAction::hasOtherPath() const
{
    return m_entry && m_entry->path() != m_path;
}

/// Begins again, and leaves the announcement to the caller.
void EntryAction::reset()
{
    ++m_runs;
    m_path = m_entry ? m_entry->path() : QString();
    m_state = Idle;
    m_error = QDBusError();
    m_requiredPackage.clear();
}

void EntryAction::setState(State state, const QDBusError &error, const QString &package)
{
    m_state = state;
    m_error = error;
    m_requiredPackage = package;
    m_announcer.announce(this);
}

#include "moc_entryaction.cpp"
