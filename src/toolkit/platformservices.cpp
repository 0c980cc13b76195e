// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "toolkit/platformservices.h"

PlatformServices::PlatformServices(QObject *parent)
    : QObject(parent)
    , m_sandboxing(new PlatformService(PlatformServiceName::Sandboxing, this))
    , m_autostart(new PlatformService(PlatformServiceName::Autostart, this))
    , m_notifications(new PlatformService(PlatformServiceName::Notifications, this))
{
}

PlatformService *PlatformServices::sandboxing() const
{
    return m_sandboxing;
}

PlatformService *PlatformServices::autostart() const
{
    return m_autostart;
}

PlatformService *PlatformServices::notifications() const
{
    return m_notifications;
}

#include "moc_platformservices.cpp"
