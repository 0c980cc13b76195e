// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "registrationfiles.h"
#include "servicefaults.h"

#include <QQmlApplicationEngine>
#include <QString>
#include <QVariantMap>

class QQuickWindow;

/// The window of the demo, and the objects that its pages use.
class DemoWindow
{
public:
    /// The developer drawer lists the registration files in @p packagesDirectory.
    explicit DemoWindow(const QString &packagesDirectory);

    /// Returns null, and prints the errors, if the window's QML has any.
    QQuickWindow *open(const QVariantMap &properties);
    RegistrationFiles *files();
    ServiceFaults *faults();

private:
    RegistrationFiles m_files;
    ServiceFaults m_faults;
    QQmlApplicationEngine m_engine;
};
