// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QEvent>

class QPointF;
class QQuickItem;
class QQuickWindow;
class QString;

/// Returns the item in the window with that object name, null if there is none.
QQuickItem *findItem(const QQuickWindow *window, const QString &name);

// These return false if the item is not visible, and print the reason.
bool findCenter(const QQuickWindow *window, const QString &name, QPointF *center);
bool click(QQuickWindow *window, const QString &name);

/// Sends a press, a release or a move while the button is pressed.
void sendMouse(QQuickWindow *window, QEvent::Type type, const QPointF &position);
