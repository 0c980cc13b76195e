// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QDBusConnection>

class QObject;
class QString;

/// Offers the adaptors of @p object on @p bus, then prints the service's name: whoever has started the program may
/// wait for that line. False, with a warning, when the bus refuses.
bool publish(QObject *object, const QString &service, const QString &path,
             QDBusConnection bus = QDBusConnection::sessionBus());
