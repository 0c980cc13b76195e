// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "windowpictures.h"

#include <QString>
#include <QStringList>

class QQuickWindow;

/// The part of the tour that shows the favourites, and edits and triggers them by mouse.
class FavoritesTour
{
public:
    FavoritesTour(QQuickWindow *window, WindowPictures *pictures);

    // These return false if a picture could not be saved or does not show the expected state, and print the reason.
    bool showPage(const QString &form);
    bool walkPages(const QString &form);
    bool walkChanges(const QString &form); ///< while the optional package is installed
    bool walkEdits(const QString &form);
    bool walkActions(const QString &form);

private:
    bool add(const QString &path);
    bool remove(const QString &path);
    bool drag(const QString &path, const QString &target);
    bool trigger(const QString &path, const QString &outcome, const QString &name);
    bool waitForStored(const QStringList &paths);

    QQuickWindow *const m_window;
    WindowPictures *const m_pictures;
};
