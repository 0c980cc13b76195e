// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QEvent>

class QPointF;
class QQuickItem;
class QQuickWindow;
class QString;

/// The item in the window with that object name, null when there is none.
QQuickItem *findItem(const QQuickWindow *window, const QString &name);

// False when the item is not in sight; the reason has been printed.
bool findCenter(const QQuickWindow *window, const QString &name, QPointF *center);
bool click(QQuickWindow *window, const QString &name);

/// A press, a release or a move while pressed.
void sendMouse(QQuickWindow *window, QEvent::Type type, const QPointF &position);
