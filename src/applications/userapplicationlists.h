// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "applications/idlist.h"

#include <QObject>

#include <initializer_list>
#include <optional>

class AutostartClient;
class SandboxingClient;

/**
 * What the platform's services keep of one user's applications: which are allowed, always allowed, and started
 * automatically. All lists are lists of application ids, empty until fetched and after a failure.
 *
 * The clients of the services are children of its parent, as it is itself.
 *
 * What is for a user alone is refused with a warning for the uid 0. The last answer to arrive wins, also when the user
 * was changed while it was on its way.
 */
class UserApplicationLists : public QObject
{
    Q_OBJECT

public:
    /// Stands in the autostart list while the user is restricted to what it holds.
    static const QString EnabledMode;

    explicit UserApplicationLists(QObject *parent);

    uint uid() const; ///< the effective user's unless set
    void setUid(uint uid); ///< fetches nothing
    bool isValidUid() const; ///< warns when it is not

    const IdList &allowlist() const;
    const IdList &autostartList() const;
    const IdList &alwaysAllowedList() const;

    void forget(); ///< the user's two lists, silently
    void fetchAllowlist();
    void fetchAutostartList();

    /// Asks the daemon and waits for it. When it is, the allow-lists are fetched.
    bool queryAllowlistEnabled();
    void setAllowlistEnabled(bool enabled);
    void setAllowlist(const QStringList &ids);
    /// Waits for the daemon when the application needs permissions, which are granted first.
    void setAutostart(const QString &id, bool enable);
    void applyAutostart(const QStringList &ids); ///< switches what differs from the autostart list

Q_SIGNALS:
    void allowlistChanged();
    void autostartListChanged();
    void alwaysAllowedChanged();
    void selectionChanged(); ///< with each of the above
    void membersChanged(); ///< any application may have come into a list or gone
    void allowlistEnabledChanged();
    void autostartEnabledChanged();

private:
    using Signal = void (UserApplicationLists::*)();

    bool announce(std::initializer_list<Signal> changes);
    void fetchAlwaysAllowed();
    void replaceAutostartList(const std::optional<QStringList> &ids);
    void changeAutostartList(const QString &id, bool enabled);

    SandboxingClient *const m_sandboxing;
    AutostartClient *const m_autostart;
    uint m_uid;
    bool m_allowlistEnabled = false; ///< as last heard of
    IdList m_allowlist;
    IdList m_autostartList;
    IdList m_alwaysAllowedList;
};
