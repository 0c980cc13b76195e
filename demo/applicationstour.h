// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "windowpictures.h"

#include <QString>

class QQuickWindow;
class ServiceFaults;

/// The part of the tour that shows the applications and changes their settings in the platform's services.
class ApplicationsTour
{
public:
    ApplicationsTour(QQuickWindow *window, ServiceFaults *faults, WindowPictures *pictures);

    // These return false if a picture could not be saved or does not show the expected state, and print the reason.
    bool showPage(const QString &form);
    bool walkPages(const QString &form);
    bool walkEdits(const QString &form);
    bool walkFaults(const QString &form); ///< in the autostart mode

private:
    bool waitForAllowlist();
    bool selectMode(const QString &mode, const QString &selected);
    bool waitForSwitch(const QString &name, bool on);

    QQuickWindow *const m_window;
    ServiceFaults *const m_faults;
    WindowPictures *const m_pictures;
};
