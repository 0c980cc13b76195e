// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

class QDBusError;
class QDBusMessage;

/**
 * Returns an invalid error when @p call may be sent, and else why it must not be: Qt would let it through, and then
 * libdbus would end the process or the bus the connection. That happens with a service of one part such as "abc",
 * with the path and the interface that are reserved for libdbus, and with arguments that hold a null or are beyond the
 * limits of D-Bus.
 *
 * Call this before you send names or arguments from registration files. Names that are just wrong are allowed: Qt and
 * the bus answer those with an error.
 */
QDBusError validateCall(const QDBusMessage &call);
