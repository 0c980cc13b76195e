// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "keyboarduse.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QQuickItem>
#include <QQuickWindow>

KeyboardUse::KeyboardUse(QQuickWindow *window)
    : QObject(window)
    , m_window(window)
{
    window->installEventFilter(this);
}

bool KeyboardUse::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::MouseButtonPress) {
        m_window->setProperty("keyboardUsed", event->type() == QEvent::KeyPress);
    }
    if (!pressesButton(event)) {
        return QObject::eventFilter(watched, event);
    }
    const auto *const key = static_cast<QKeyEvent *>(event);
    QKeyEvent space(key->type(), Qt::Key_Space, key->modifiers(), QString(), key->isAutoRepeat());
    QCoreApplication::sendEvent(m_window, &space);
    return true;
}

bool KeyboardUse::pressesButton(const QEvent *event) const
{
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease) {
        return false;
    }
    const int key = static_cast<const QKeyEvent *>(event)->key();
    const QQuickItem *const item = m_window->activeFocusItem();
    return (key == Qt::Key_Return || key == Qt::Key_Enter) && item && item->inherits("QQuickAbstractButton");
}

#include "moc_keyboarduse.cpp"
