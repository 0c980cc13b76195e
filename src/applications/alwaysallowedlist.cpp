// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications/alwaysallowedlist.h"

#include "applications/sandboxingclient.h"

AlwaysAllowedList::AlwaysAllowedList(SandboxingClient *sandboxing, QObject *parent)
    : ApplicationList(parent)
    , m_sandboxing(sandboxing)
{
}

void AlwaysAllowedList::fetch()
{
    m_sandboxing->fetchAlwaysAllowed([this](const auto &ids) {
        if (store(ids)) {
            announce();
        }
    });
}

#include "moc_alwaysallowedlist.cpp"
