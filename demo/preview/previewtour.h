// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "pagefiles.h"
#include "windowpictures.h"

#include <QStringList>
#include <QTemporaryDir>

class QQuickWindow;
class TreeItem;

/// The actions of the preview without a user. Each returns whether it succeeded, and prints the reason if it did not.
class PreviewTour
{
public:
    PreviewTour(QQuickWindow *window, const PageFiles &pages);

    bool openPage(const QStringList &path, bool details = false);
    bool openAllPages();
    bool savePicture(const QString &file);

private:
    bool openItem(const TreeItem *item);
    bool showsNoErrors(const TreeItem *item) const;

    QQuickWindow *const m_window;
    const PageFiles m_pages;
    const QTemporaryDir m_directory;
    WindowPictures m_pictures;
};
