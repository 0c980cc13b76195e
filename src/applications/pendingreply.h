// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

/// Calls @p handler with the finished @p reply, unless @p context is dead by then.
template<typename... Types, typename Handler>
void whenFinished(const QDBusPendingReply<Types...> &reply, QObject *context, Handler handler)
{
    // Without a connection there is nothing that could ever finish.
    if (reply.isError()) {
        QMetaObject::invokeMethod(
            context, [handler, reply] { handler(reply); }, Qt::QueuedConnection);
        return;
    }
    auto *watcher = new QDBusPendingCallWatcher(reply, context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context,
                     [handler](QDBusPendingCallWatcher *finished) {
                         finished->deleteLater();
                         handler(QDBusPendingReply<Types...>(*finished));
                     });
}
