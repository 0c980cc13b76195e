// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications/autostartlist.h"

#include "applications/applicationsuser.h"
#include "applications/autostartclient.h"
#include "applications/sandboxingclient.h"
#include "common/logging.h"
#include "common/logtext.h"
#include "common/messages.h"

namespace
{
const QString s_enabledMode = QStringLiteral("enabledMode");
}

AutostartList::AutostartList(const ApplicationsUser *user, SandboxingClient *sandboxing, QObject *parent)
    : Selection(parent)
    , m_user(user)
    , m_sandboxing(sandboxing)
    , m_client(new AutostartClient(parent))
{
}

void AutostartList::fetch()
{
    if (m_user->isValid()) {
        m_client->fetchEnabled(m_user->uid(), [this](const auto &ids) { take(ids); });
    }
}

bool AutostartList::isEnabled()
{
    return m_user->isValid() && contains(s_enabledMode);
}

void AutostartList::setEnabled(bool enabled)
{
    const bool valid = m_user->isValid();
    if (valid && contains(s_enabledMode) == enabled) {
        return;
    }
    if (enabled) {
        set(s_enabledMode, true);
    } else if (valid) {
        apply({});
    }
}

void AutostartList::toggle(const QString &id)
{
    if (!id.isEmpty() && m_user->isValid()) {
        set(id, !contains(id));
    }
}

void AutostartList::apply(const QStringList &ids)
{
    const SandboxingClient::Batch batch(m_sandboxing);
    const IdList wanted(ids);
    const QStringList current = this->ids();
    for (const QString &id : current) {
        if (!wanted.contains(id)) {
            set(id, false);
        }
    }
    for (const QString &id : ids) {
        if (!contains(id)) {
            set(id, true);
        }
    }
}

void AutostartList::selectAll(const QStringList &ids)
{
    apply(ids);
}

void AutostartList::take(const std::optional<QStringList> &ids)
{
    using Self = AutostartList;
    const bool wasEnabled = contains(s_enabledMode);
    if (!store(ids)) {
        return;
    }
    if (contains(s_enabledMode) == wasEnabled) {
        announce();
    } else {
        emitAll<Self>(this,
                      {&Self::listChanged, &Self::selectionChanged, &Self::enabledChanged, &Self::membersChanged});
    }
}

void AutostartList::set(const QString &id, bool enabled)
{
    if (!canBeSent({id})) {
        return;
    }
    if (id != s_enabledMode && m_sandboxing->needsPermissions(id)
        && !m_sandboxing->grantPermissions(m_user->uid(), id)) {
        qCWarning(lcSettings) << Messages::NotAdding << quoted(id) << Messages::PermissionsNotGranted;
        return;
    }
    m_client->setEnabled(m_user->uid(), id, enabled, [this, id, enabled] { takeChange(id, enabled); });
}

void AutostartList::takeChange(const QString &id, bool enabled)
{
    using Self = AutostartList;
    if (enabled) {
        m_list.append(id);
    } else {
        m_list.removeAll(id);
    }
    if (id == s_enabledMode) {
        emitAll<Self>(this,
                      {&Self::selectionChanged, &Self::listChanged, &Self::membersChanged, &Self::enabledChanged});
    } else {
        emitAll<Self>(this, {&Self::selectionChanged, &Self::listChanged, &Self::membersChanged});
    }
}

#include "moc_autostartlist.cpp"
