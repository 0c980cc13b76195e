// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

class QDBusError;
class QDBusMessage;

/**
 * What a message bus would object to in a method call: a name against D-Bus's grammar, one that is reserved for
 * libdbus itself, or arguments beyond its limits. An invalid error when there is nothing.
 *
 * To be asked before a call with names or arguments of strangers is sent. Qt lets some of these calls through; then
 * libdbus ends the process, or the bus ends the connection.
 */
QDBusError objectionTo(const QDBusMessage &call);
