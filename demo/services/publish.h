// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QDBusConnection>

class QObject;
class QString;

/// Registers the adaptors of @p object and the service on @p bus, then prints the service's name: the program that has
/// started this one can wait for that line. Returns false, with a warning, if the bus refuses.
bool publish(QObject *object, const QString &service, const QString &path,
             QDBusConnection bus = QDBusConnection::sessionBus());
