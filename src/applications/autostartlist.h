// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "applications/selection.h"

class AutostartClient;
class SandboxingClient;
class ApplicationsUser;

/**
 * The applications that are started automatically for a user. While it holds the id "enabledMode", the user is
 * restricted to what it holds.
 *
 * Each change is one call, and is in the list when the call has succeeded. Before it, an application that needs
 * permissions is granted them, which waits for the sandboxing daemon.
 */
class AutostartList : public Selection
{
    Q_OBJECT

public:
    AutostartList(const ApplicationsUser *user, SandboxingClient *sandboxing, QObject *parent);

    void fetch() override;
    bool isEnabled() override;
    void setEnabled(bool enabled) override; ///< a false one switches off all that the list holds
    void toggle(const QString &id) override;
    void apply(const QStringList &ids) override;
    void selectAll(const QStringList &ids) override;

private:
    void take(const std::optional<QStringList> &ids);
    void set(const QString &id, bool enabled);
    void takeChange(const QString &id, bool enabled);

    const ApplicationsUser *const m_user;
    SandboxingClient *const m_sandboxing;
    AutostartClient *const m_client;
};
