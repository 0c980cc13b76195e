// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications/userapplicationlists.h"

#include "applications/autostartclient.h"
#include "applications/sandboxingclient.h"
#include "common/logging.h"
#include "common/messages.h"

#include <QPointer>

#include <unistd.h>

using Self = UserApplicationLists;

const QString UserApplicationLists::EnabledMode = QStringLiteral("enabledMode");

UserApplicationLists::UserApplicationLists(QObject *parent)
    : QObject(parent)
    , m_sandboxing(new SandboxingClient(parent))
    , m_autostart(new AutostartClient(parent))
    , m_uid(geteuid())
{
}

uint UserApplicationLists::uid() const
{
    return m_uid;
}

void UserApplicationLists::setUid(uint uid)
{
    m_uid = uid;
}

const IdList &UserApplicationLists::allowlist() const
{
    return m_allowlist;
}

const IdList &UserApplicationLists::autostartList() const
{
    return m_autostartList;
}

const IdList &UserApplicationLists::alwaysAllowedList() const
{
    return m_alwaysAllowedList;
}

void UserApplicationLists::forget()
{
    m_allowlist = IdList();
    m_autostartList = IdList();
}

bool UserApplicationLists::isValidUid() const
{
    if (m_uid == 0) {
        qCWarning(lcSettings) << Messages::IncorrectUid << m_uid;
    }
    return m_uid != 0;
}

/// Emits one after the other. False when a handler has deleted this object.
bool UserApplicationLists::announce(std::initializer_list<Signal> changes)
{
    const QPointer<UserApplicationLists> self(this);
    for (const Signal change : changes) {
        if (!self) {
            return false;
        }
        Q_EMIT(this->*change)();
    }
    return self;
}

void UserApplicationLists::fetchAllowlist()
{
    if (!isValidUid()) {
        return;
    }
    m_sandboxing->fetchAllowlist(m_uid, [this](const std::optional<QStringList> &ids) {
        if (!ids) {
            m_allowlist = IdList();
        } else if (*ids != m_allowlist.ids()) {
            m_allowlist = IdList(*ids);
            announce({&Self::allowlistChanged, &Self::selectionChanged, &Self::membersChanged});
        }
    });
}

void UserApplicationLists::fetchAlwaysAllowed()
{
    m_sandboxing->fetchAlwaysAllowed([this](const std::optional<QStringList> &ids) {
        if (!ids) {
            m_alwaysAllowedList = IdList();
        } else if (*ids != m_alwaysAllowedList.ids()) {
            m_alwaysAllowedList = IdList(*ids);
            announce({&Self::alwaysAllowedChanged, &Self::selectionChanged, &Self::membersChanged});
        }
    });
}

void UserApplicationLists::fetchAutostartList()
{
    if (!isValidUid()) {
        return;
    }
    m_autostart->fetchEnabled(m_uid, [this](const std::optional<QStringList> &ids) { replaceAutostartList(ids); });
}

void UserApplicationLists::replaceAutostartList(const std::optional<QStringList> &ids)
{
    if (!ids) {
        m_autostartList = IdList();
        return;
    }
    if (*ids == m_autostartList.ids()) {
        return;
    }
    const bool wasEnabled = m_autostartList.contains(EnabledMode);
    m_autostartList = IdList(*ids);
    const bool isEnabled = m_autostartList.contains(EnabledMode);
    if (isEnabled == wasEnabled) {
        announce({&Self::autostartListChanged, &Self::selectionChanged, &Self::membersChanged});
    } else {
        announce({&Self::autostartListChanged, &Self::selectionChanged, &Self::autostartEnabledChanged,
                  &Self::membersChanged});
    }
}

void UserApplicationLists::setAllowlist(const QStringList &ids)
{
    m_allowlist = IdList(ids);
    if (!isValidUid()) {
        return;
    }
    m_sandboxing->setAllowlist(m_uid, m_allowlist.ids(), [this] {
        announce({&Self::allowlistChanged, &Self::selectionChanged, &Self::membersChanged});
    });
}

bool UserApplicationLists::queryAllowlistEnabled()
{
    m_allowlistEnabled = m_sandboxing->isAllowlistEnabled(m_uid);
    if (m_allowlistEnabled) {
        fetchAlwaysAllowed();
        fetchAllowlist();
    }
    return m_allowlistEnabled;
}

void UserApplicationLists::setAllowlistEnabled(bool enabled)
{
    if (enabled == m_allowlistEnabled || !isValidUid()) {
        return;
    }
    m_sandboxing->setAllowlistEnabled(m_uid, enabled, [this, enabled] {
        m_allowlistEnabled = enabled;
        if (!announce({&Self::allowlistEnabledChanged})) {
            return;
        }
        if (enabled) {
            fetchAlwaysAllowed();
            fetchAllowlist();
        } else {
            setAllowlist({});
        }
    });
}

void UserApplicationLists::setAutostart(const QString &id, bool enable)
{
    if (id != EnabledMode && m_sandboxing->needsPermissions(id) && !m_sandboxing->grantPermissions(m_uid, id)) {
        qCWarning(lcSettings) << Messages::NotAdding << id << Messages::PermissionsNotGranted;
        return;
    }
    m_autostart->setEnabled(m_uid, id, enable, [this, id, enable] { changeAutostartList(id, enable); });
}

void UserApplicationLists::changeAutostartList(const QString &id, bool enabled)
{
    if (enabled) {
        m_autostartList.append(id);
    } else {
        m_autostartList.removeAll(id);
    }
    const bool alive = announce({&Self::selectionChanged, &Self::autostartListChanged, &Self::membersChanged});
    if (alive && id == EnabledMode) {
        Q_EMIT autostartEnabledChanged();
    }
}

void UserApplicationLists::applyAutostart(const QStringList &ids)
{
    const IdList wanted(ids);
    const IdList current = m_autostartList;
    for (const QString &id : current.ids()) {
        if (!wanted.contains(id)) {
            setAutostart(id, false);
        }
    }
    for (const QString &id : ids) {
        if (!m_autostartList.contains(id)) {
            setAutostart(id, true);
        }
    }
}
