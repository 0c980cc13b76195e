// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QDir>
#include <QImage>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <functional>

class QQuickWindow;
class RegistrationFiles;

/**
 * Walks through every page of the application, on a phone-sized and on a wide window, and saves a picture of each.
 *
 * A picture is taken when the window shows what the tree holds and two frames in a row are the same.
 */
class ScreenshotTour
{
public:
    /// The pictures' names begin with @p language.
    ScreenshotTour(QQuickWindow *window, RegistrationFiles *files, const QDir &directory, const QString &language);

    /// False when a picture could not be made; the reason has been printed.
    bool run();

private:
    bool walkPages(const QString &form, int depth);
    bool walkDrawer(const QString &form);
    bool walkChanges(const QString &form);
    bool changeFiles(bool changed);
    bool showEntry(const QStringList &path, bool details, const QString &name);
    /// Calls a function of the window's QML.
    template<typename... Arguments>
    QVariant call(const char *function, const Arguments &...arguments);
    bool save(const QString &name);
    bool waitFor(const std::function<bool()> &condition);
    void waitForFrame();
    QImage grab();
    bool showsTree() const;

    QQuickWindow *const m_window;
    RegistrationFiles *const m_files;
    const QDir m_directory;
    const QString m_language;
};
