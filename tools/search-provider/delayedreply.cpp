// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "delayedreply.h"

#include <QDBusConnection>
#include <QDBusMessage>

EntryFinder::Receiver delayedReply(const QDBusContext &context,
                                   QVariant (*convert)(const QVector<SearchResult> &results))
{
    context.setDelayedReply(true);
    return [call = context.message(), bus = context.connection(), convert](const QVector<SearchResult> &results) {
        bus.send(call.createReply(convert(results)));
    };
}
