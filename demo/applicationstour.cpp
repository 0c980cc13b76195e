// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applicationstour.h"

#include "appearance.h"
#include "qmlcall.h"
#include "servicefaults.h"
#include "windowinput.h"

#include <QQuickItem>
#include <QQuickWindow>

namespace
{
const QString s_allowedMode = QStringLiteral("mode allowed");
const QString s_autostartMode = QStringLiteral("mode autostart");
const QString s_allowed = QStringLiteral("selected camera.desktop");
const QString s_alwaysAllowed = QStringLiteral("selected phone.desktop");
const QString s_notAllowed = QStringLiteral("selected browser.desktop");
const QString s_autostarted = QStringLiteral("selected calendar.desktop");
const QString s_ruled = QStringLiteral("selected maps.desktop");
const QString s_silent = QStringLiteral("notify browser.desktop");
const QString s_application = QStringLiteral("application maps.desktop");
const QString s_entry = QStringLiteral("entry applications/maps.desktop/offline");
}

ApplicationsTour::ApplicationsTour(QQuickWindow *window, ServiceFaults *faults, WindowPictures *pictures)
    : m_window(window)
    , m_faults(faults)
    , m_pictures(pictures)
{
}

bool ApplicationsTour::showPage(const QString &form)
{
    callQml(m_window, "openApplications");
    return waitForAllowlist() && m_pictures->save(form + QLatin1String("-applications"));
}

bool ApplicationsTour::walkPages(const QString &form)
{
    return showPage(form) && selectMode(s_autostartMode, s_autostarted)
           && m_pictures->save(form + QLatin1String("-applications-autostart"))
           && selectMode(s_allowedMode, s_allowed) && waitForSwitch(s_ruled, true)
           && click(m_window, s_application) && m_pictures->save(form + QLatin1String("-application"))
           && click(m_window, s_entry) && m_pictures->save(form + QLatin1String("-application-entry"));
}

bool ApplicationsTour::walkEdits(const QString &form)
{
    callQml(m_window, "openApplications");
    if (!waitForAllowlist()) {
        return false;
    }
    callQml(m_window, "setSelectedOnly", true);
    if (!m_pictures->save(form + QLatin1String("-applications-selected"))) {
        return false;
    }
    callQml(m_window, "setSelectedOnly", false);
    return click(m_window, QStringLiteral("select all")) && waitForSwitch(s_notAllowed, true)
           && m_pictures->save(form + QLatin1String("-applications-all"))
           && selectMode(s_autostartMode, s_autostarted) && click(m_window, QStringLiteral("policy rules"))
           && waitForSwitch(s_ruled, true) && m_pictures->save(form + QLatin1String("-applications-rules"));
}

bool ApplicationsTour::walkFaults(const QString &form)
{
    const QString service = QStringLiteral("autostart");
    expectWarning(QStringLiteral("Failed to get autostart list for uid"));
    m_faults->setFault(service, QStringLiteral("fail"));
    if (!m_pictures->waitFor(expectedWarningCame)) {
        return fail(QStringLiteral("The failure of a service is not reported"));
    }
    if (!m_pictures->save(form + QLatin1String("-applications-failing"))) {
        return false;
    }
    m_faults->setFault(service, QStringLiteral("none"));
    return waitForSwitch(s_autostarted, true);
}

/// Waits until the page shows the replies of all services.
bool ApplicationsTour::waitForAllowlist()
{
    return waitForSwitch(QStringLiteral("restricted"), true) && waitForSwitch(s_allowed, true)
           && waitForSwitch(s_alwaysAllowed, true) && waitForSwitch(s_silent, false);
}

bool ApplicationsTour::selectMode(const QString &mode, const QString &selected)
{
    return click(m_window, mode) && waitForSwitch(selected, true)
           && waitForSwitch(QStringLiteral("restricted"), true);
}

bool ApplicationsTour::waitForSwitch(const QString &name, bool on)
{
    const bool switched = m_pictures->waitFor([&] {
        const QQuickItem *const item = findItem(m_window, name);
        return item && item->property("checked").toBool() == on;
    });
    return switched || fail(QStringLiteral("Not switched: ") + name);
}
