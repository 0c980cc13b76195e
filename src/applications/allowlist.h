// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "applications/selection.h"

class AlwaysAllowedList;
class SandboxingClient;
class ApplicationsUser;

/**
 * The applications that the sandboxing daemon allows to a user, if the user is restricted at all.
 *
 * A change is in the list at once and is announced when the daemon has replied, also with an error. Nothing is
 * fetched or set for an invalid user.
 */
class Allowlist : public Selection
{
    Q_OBJECT

public:
    /// @p alwaysAllowed is fetched together with this list when the user is restricted.
    Allowlist(const ApplicationsUser *user, SandboxingClient *sandboxing, AlwaysAllowedList *alwaysAllowed,
              QObject *parent);

    void fetch() override;
    bool isEnabled() override; ///< calls the daemon and waits for the reply
    void setEnabled(bool enabled) override;
    void toggle(const QString &id) override;
    void apply(const QStringList &ids) override;
    void selectAll(const QStringList &ids) override; ///< sets an empty list first

private:
    void fetchAll();
    void takeEnabled(bool enabled);
    void send();

    const ApplicationsUser *const m_user;
    SandboxingClient *const m_sandboxing;
    AlwaysAllowedList *const m_alwaysAllowed;
    bool m_isEnabled = false; ///< the last value that was read or set
};
