// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QObject>

class QQuickWindow;

/**
 * Lets the keyboard do in a window what a finger does.
 *
 * The return key presses buttons, as the space bar does. The window's property `keyboardUsed` is true if the last input
 * came from the keyboard, so that the focus only shows for those who need it.
 */
class KeyboardUse : public QObject
{
    Q_OBJECT

public:
    /// The window becomes the parent.
    explicit KeyboardUse(QQuickWindow *window);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool pressesButton(const QEvent *event) const;

    QQuickWindow *const m_window;
};
