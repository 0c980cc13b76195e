// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "windowpictures.h"

#include <QStringList>
#include <QTemporaryDir>

class QQuickWindow;

/// What the preview does by itself. Each returns whether it could; the reason of a failure has been printed.
class PreviewTour
{
public:
    PreviewTour(QQuickWindow *window, const QStringList &topPath);

    bool openPage(const QStringList &path, bool details = false);
    bool openAllPages();
    bool savePicture(const QString &file);

private:
    QQuickWindow *const m_window;
    const QStringList m_topPath;
    const QTemporaryDir m_directory;
    WindowPictures m_pictures;
};
