// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

class QDBusError;
class QDBusMessage;

/**
 * Returns why @p call must not be sent, or an invalid error if it may be sent. Qt would send it, and then libdbus would
 * end the process, or the bus would end the connection. That happens with a service of one part such as "abc",
 * with the path and the interface that are reserved for libdbus, and with arguments that hold a null or are beyond the
 * limits of D-Bus.
 *
 * Call this before you send names or arguments from registration files. Names that are just wrong are allowed: Qt and
 * the bus report an error for those.
 */
QDBusError validateCall(const QDBusMessage &call);
