// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QDir>
#include <QImage>
#include <QString>

#include <functional>

class QQuickWindow;

/// Saves pictures of a QML window when it no longer changes: when it is ready, all of its objects have been created and
/// two successive frames are the same.
class WindowPictures
{
public:
    using Condition = std::function<bool()>;

    WindowPictures(
        QQuickWindow *window, const QDir &directory, const Condition &isReady = [] { return true; });

    /// Returns the path of the picture with that name. File names begin with the language of the texts.
    QString file(const QString &name) const;
    /// Returns false, and prints the reason, if the picture could not be saved.
    bool save(const QString &name);
    /// Renders frames until @p condition is met. Returns false if that takes too long.
    bool waitFor(const Condition &condition);

private:
    void waitForFrame();
    QImage grab();

    QQuickWindow *const m_window;
    const QDir m_directory;
    const Condition m_isReady;
};

/// Prints the reason and returns false.
bool fail(const QString &reason);
