// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QDir>
#include <QImage>
#include <QString>

#include <functional>

class QQuickWindow;

/// Saves pictures of a QML window that has come to rest: when it is ready, all of its objects have been created and two
/// frames in a row are the same.
class WindowPictures
{
public:
    using Condition = std::function<bool()>;

    WindowPictures(
        QQuickWindow *window, const QDir &directory, const Condition &isReady = [] { return true; });

    /// Where the picture of that name is saved. File names begin with the language of the texts.
    QString file(const QString &name) const;
    /// False when the picture could not be made; the reason has been printed.
    bool save(const QString &name);
    /// Renders frames until @p condition is met. False when that takes too long.
    bool waitFor(const Condition &condition);

private:
    void waitForFrame();
    QImage grab();

    QQuickWindow *const m_window;
    const QDir m_directory;
    const Condition m_isReady;
};

/// Prints the reason. Always false.
bool fail(const QString &reason);
