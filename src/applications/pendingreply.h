// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "applications/serviceoutcomes.h"
#include "common/logging.h"
#include "common/logtext.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>

#include <optional>

/// The result of a call that returns one value.
template<typename Value>
struct Reply {
    QDBusError error; ///< valid when there is no value
    Value value;
};

/**
 * Returns the reply to @p call, which is finished. A reply of another type is an error.
 *
 * QDBusPendingReply would replace such a reply by an error, while the thread of the bus may be reading it.
 */
template<typename Value>
Reply<Value> replyOf(const QDBusPendingCall &call)
{
    const QDBusError error = call.error();
    if (error.isValid()) {
        return {error, {}};
    }
    const QDBusMessage message = call.reply();
    const QString expected = QString::fromLatin1(QDBusMetaType::typeToSignature(qMetaTypeId<Value>()));
    if (!message.signature().startsWith(expected)) {
        const QString text = QStringLiteral("Unexpected reply signature: got \"%1\", expected \"%2\"");
        return {QDBusError(QDBusError::InvalidSignature, text.arg(message.signature(), expected)), {}};
    }
    return {{}, qdbus_cast<Value>(message.arguments().constFirst())};
}

/// Calls @p handler with @p call when it is finished, unless @p owner was deleted; in the order of the replies.
/// Until then a watcher of the call is a child of @p owner.
template<typename Handler>
void whenFinished(const QDBusPendingCall &call, QObject *owner, Handler handler)
{
    auto *watcher = new QDBusPendingCallWatcher(call, owner);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, owner,
                     [handler](QDBusPendingCallWatcher *finished) {
                         finished->disconnect();
                         finished->deleteLater();
                         handler(*finished);
                     });
    // The watcher of a call that was finished before it is notified through another object, and so after the watcher
    // of the next call; that of a call without a connection is never notified.
    if (call.isFinished()) {
        QMetaObject::invokeMethod(
            watcher, [watcher] { Q_EMIT watcher->finished(watcher); }, Qt::QueuedConnection);
    }
}

/// The same for a call to @p service, whose outcome is recorded.
template<typename Handler>
void whenFinished(PlatformServiceName service, const QDBusPendingCall &call, QObject *owner, Handler handler)
{
    whenFinished(call, owner, [service, handler](const QDBusPendingCall &finished) {
        ServiceOutcomes::instance()->record(service, finished.error());
        handler(finished);
    });
}

/// The same as replyOf() for a call to @p service, whose outcome is recorded.
template<typename Value>
Reply<Value> replyOf(PlatformServiceName service, const QDBusPendingCall &call)
{
    Reply<Value> reply = replyOf<Value>(call);
    ServiceOutcomes::instance()->record(service, reply.error);
    return reply;
}

/// Calls @p handler with the value that @p call to @p service returns, or with nothing after a warning of @p message
/// and the error.
template<typename Value, typename Handler>
void fetch(PlatformServiceName service, const QDBusPendingCall &call, QObject *owner, const QString &message,
           Handler handler)
{
    whenFinished(call, owner, [service, message, handler](const QDBusPendingCall &finished) {
        const Reply<Value> reply = replyOf<Value>(service, finished);
        if (reply.error.isValid()) {
            qCWarning(lcSettings).noquote() << message << unquoted(reply.error);
        }
        handler(reply.error.isValid() ? std::nullopt : std::make_optional(reply.value));
    });
}
