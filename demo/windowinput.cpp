// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "windowinput.h"

#include "qmlcall.h"
#include "windowpictures.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QQuickItem>
#include <QQuickWindow>

namespace
{
QQuickItem *findBelow(QQuickItem *top, const QString &name)
{
    if (top->objectName() == name) {
        return top;
    }
    const QList<QQuickItem *> children = top->childItems();
    for (QQuickItem *child : children) {
        if (QQuickItem *const found = findBelow(child, name)) {
            return found;
        }
    }
    return nullptr;
}
}

QQuickItem *findItem(const QQuickWindow *window, const QString &name)
{
    return findBelow(window->contentItem(), name);
}

bool findCenter(const QQuickWindow *window, const QString &name, QPointF *center)
{
    const QQuickItem *const item = findItem(window, name);
    if (item) {
        *center = item->mapToScene(item->boundingRect().center());
    }
    const bool isInSight = item && window->contentItem()->boundingRect().contains(*center);
    return isInSight || fail(QStringLiteral("Not in sight: ") + name);
}

bool click(QQuickWindow *window, const QString &name)
{
    QPointF center;
    if (QQuickItem *const item = findItem(window, name)) {
        callQml(window, "scrollTo", QVariant::fromValue(item));
    }
    if (!findCenter(window, name, &center)) {
        return false;
    }
    sendMouse(window, QEvent::MouseButtonPress, center);
    sendMouse(window, QEvent::MouseButtonRelease, center);
    return true;
}

void sendMouse(QQuickWindow *window, QEvent::Type type, const QPointF &position)
{
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    const Qt::MouseButtons buttons = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, position, window->mapToGlobal(position.toPoint()), button, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &event);
}
