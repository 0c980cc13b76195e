// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "applicationstour.h"
#include "favoritestour.h"
#include "windowpictures.h"

#include <QDir>
#include <QString>
#include <QStringList>

class QQuickWindow;
class RegistrationFiles;
class ServiceFaults;

/**
 * Walks through the pages of the application, on a phone-sized and on a wide window, and saves a picture of each.
 */
class ScreenshotTour
{
public:
    ScreenshotTour(QQuickWindow *window, RegistrationFiles *files, ServiceFaults *faults, const QDir &directory);

    // These return false if a picture could not be saved, and print the reason.
    bool run(); ///< every page
    bool runShort(); ///< a few pages, for an overview

private:
    bool walkPages(const QString &form, int depth);
    bool walkDrawer(const QString &form);
    bool walkChanges(const QString &form);
    bool changeFiles(bool changed);
    bool showEntry(const QStringList &path, bool details, const QString &name);
    bool showsTree() const;

    QQuickWindow *const m_window;
    RegistrationFiles *const m_files;
    WindowPictures m_pictures;
    FavoritesTour m_favorites;
    ApplicationsTour m_applications;
};
