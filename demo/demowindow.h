// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "maintenanceinterface.h"
#include "registrationfiles.h"
#include "servicefaults.h"

#include <QQmlApplicationEngine>
#include <QString>
#include <QVariantMap>

class QQuickWindow;

/// The window of the demo and what its pages talk to.
class DemoWindow
{
public:
    /// The developer drawer offers the registration files in @p packagesDirectory.
    explicit DemoWindow(const QString &packagesDirectory);

    /// Null when the window's QML has errors, which have been printed.
    QQuickWindow *open(const QVariantMap &properties);
    RegistrationFiles *files();
    ServiceFaults *faults();

private:
    RegistrationFiles m_files;
    OrgExampleMaintenanceInterface m_maintenance;
    ServiceFaults m_faults;
    QQmlApplicationEngine m_engine;
};
