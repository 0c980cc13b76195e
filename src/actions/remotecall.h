// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "common/velkasettings_export.h"

#include <QVariantMap>

class QDBusConnection;
class QDBusError;
class QDBusMessage;
class QObject;

/**
 * The D-Bus call that an action describes.
 *
 * An action's keys: "remote-service", "remote-path", "remote-interface", "remote-method", "remote-arguments" (a list,
 * sent as the variants that it holds) and "requires-package".
 */
namespace RemoteCall
{
/// Returns the call. An absent name is empty, an absent list of arguments too.
VELKASETTINGS_PRIVATE_EXPORT QDBusMessage of(const QVariantMap &action);
/// Returns why @p call must not be sent over @p bus; an invalid error when it may be.
VELKASETTINGS_PRIVATE_EXPORT QDBusError errorBeforeSending(const QDBusMessage &call, const QDBusConnection &bus);
/// Returns true if @p call is the one of @p action, as far as the names tell.
bool isOf(const QVariantMap &action, const QDBusMessage &call);
/// Returns the call as MRemoteAction writes it.
QString toString(const QVariantMap &action);

/// Returns the package that has the service, empty if the action names none.
VELKASETTINGS_PRIVATE_EXPORT QString requiredPackage(const QVariantMap &action);
/// Asks the store client to show @p package, and does not wait. A call that cannot be sent is reported with qmlInfo()
/// of @p reporter.
VELKASETTINGS_PRIVATE_EXPORT void showInStore(const QString &package, const QObject *reporter);
}
