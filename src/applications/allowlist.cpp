// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications/allowlist.h"

#include "applications/alwaysallowedlist.h"
#include "applications/applicationsuser.h"
#include "applications/sandboxingclient.h"

Allowlist::Allowlist(const ApplicationsUser *user, SandboxingClient *sandboxing, AlwaysAllowedList *alwaysAllowed,
                     QObject *parent)
    : Selection(parent)
    , m_user(user)
    , m_sandboxing(sandboxing)
    , m_alwaysAllowed(alwaysAllowed)
{
}

void Allowlist::fetch()
{
    if (!m_user->isValid()) {
        return;
    }
    m_sandboxing->fetchAllowlist(m_user->uid(), [this](const auto &ids) {
        if (store(ids)) {
            announce();
        }
    });
}

bool Allowlist::isEnabled()
{
    m_isEnabled = m_sandboxing->isAllowlistEnabled(m_user->uid());
    if (m_isEnabled) {
        fetchAll();
    }
    return m_isEnabled;
}

void Allowlist::setEnabled(bool enabled)
{
    if (enabled != m_isEnabled && m_user->isValid()) {
        m_sandboxing->setAllowlistEnabled(m_user->uid(), enabled, [this, enabled] { takeEnabled(enabled); });
    }
}

void Allowlist::toggle(const QString &id)
{
    if (contains(id)) {
        m_list.removeAll(id);
    } else if (canBeSent(ids() + QStringList(id))) {
        m_list.append(id);
    } else {
        return;
    }
    send();
}

void Allowlist::apply(const QStringList &ids)
{
    if (canBeSent(ids)) {
        m_list = IdList(ids);
        send();
    }
}

void Allowlist::selectAll(const QStringList &ids)
{
    if (canBeSent(ids)) {
        apply({});
        apply(ids);
    }
}

void Allowlist::fetchAll()
{
    m_alwaysAllowed->fetch();
    fetch();
}

void Allowlist::takeEnabled(bool enabled)
{
    m_isEnabled = enabled;
    const QPointer<Allowlist> self(this);
    Q_EMIT enabledChanged();
    if (!self) {
        return;
    }
    if (enabled) {
        fetchAll();
    } else {
        apply({});
    }
}

void Allowlist::send()
{
    if (m_user->isValid()) {
        m_sandboxing->setAllowlist(m_user->uid(), ids(), [this] { announce(); });
    }
}

#include "moc_allowlist.cpp"
