// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "applications/applicationlist.h"

class SandboxingClient;

/// The applications that the sandboxing daemon allows to every user.
class AlwaysAllowedList : public ApplicationList
{
    Q_OBJECT

public:
    AlwaysAllowedList(SandboxingClient *sandboxing, QObject *parent);

    void fetch();

private:
    SandboxingClient *const m_sandboxing;
};
