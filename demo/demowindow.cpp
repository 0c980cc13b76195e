// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "demowindow.h"

#include "keyboarduse.h"

#include <QCoreApplication>
#include <QDir>
#include <QQmlContext>
#include <QQuickWindow>

DemoWindow::DemoWindow(const QString &packagesDirectory)
    : m_files(packagesDirectory)
{
    m_engine.addImportPath(QCoreApplication::applicationDirPath() + QStringLiteral("/../qml")); // in the build
    m_engine.rootContext()->setContextProperty(QStringLiteral("registrationFiles"), &m_files);
    m_engine.rootContext()->setContextProperty(QStringLiteral("serviceFaults"), &m_faults);
    m_engine.rootContext()->setContextProperty(QStringLiteral("homePath"), QDir::homePath());
}

QQuickWindow *DemoWindow::open(const QVariantMap &properties)
{
    m_engine.setInitialProperties(properties);
    m_engine.load(QStringLiteral("qrc:/qml/Main.qml"));
    const QList<QObject *> windows = m_engine.rootObjects();
    auto *const window = windows.isEmpty() ? nullptr : qobject_cast<QQuickWindow *>(windows.constFirst());
    if (window) {
        new KeyboardUse(window);
    }
    return window;
}

RegistrationFiles *DemoWindow::files()
{
    return &m_files;
}

ServiceFaults *DemoWindow::faults()
{
    return &m_faults;
}
