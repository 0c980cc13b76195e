// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "toolkit/platformservice.h"

/// The states of the services that the model of applications calls. It calls none itself.
class PlatformServices : public QObject
{
    Q_OBJECT
    Q_PROPERTY(PlatformService *sandboxing READ sandboxing CONSTANT)
    Q_PROPERTY(PlatformService *autostart READ autostart CONSTANT)
    Q_PROPERTY(PlatformService *notifications READ notifications CONSTANT)

public:
    explicit PlatformServices(QObject *parent = nullptr);

    PlatformService *sandboxing() const;
    PlatformService *autostart() const;
    PlatformService *notifications() const;

private:
    PlatformService *const m_sandboxing;
    PlatformService *const m_autostart;
    PlatformService *const m_notifications;
};
