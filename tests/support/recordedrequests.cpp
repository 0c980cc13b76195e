// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "recordedrequests.h"

#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <QSignalSpy>

RecordedRequests::RecordedRequests(const QString &service)
{
    connect(this, &AddressRequests::openRequested, this, &RecordedRequests::add);
    connect(this, &AddressRequests::activateRequested, this,
            [this](const QString &token) { add(text("activate"), token); });
    setService(service);
}

QString RecordedRequests::serviceOfTests()
{
    return text("org.example.My-Settings");
}

QStringList RecordedRequests::log() const
{
    return m_log;
}

void RecordedRequests::add(const QString &request, const QString &token)
{
    m_log.append(token.isEmpty() ? request : request + QLatin1Char(' ') + token);
}

QDBusMessage callApplication(const QString &method, const QVariantList &arguments)
{
    static const QDBusConnection callers = QDBusConnection::connectToBus(QDBusConnection::SessionBus,
                                                                         text("callers"));
    QDBusMessage message = QDBusMessage::createMethodCall(RecordedRequests::serviceOfTests(),
                                                          text("/org/example/My_Settings"),
                                                          text("org.freedesktop.Application"), method);
    message.setArguments(arguments);
    QDBusPendingCallWatcher watcher(callers.asyncCall(message));
    QSignalSpy finished(&watcher, &QDBusPendingCallWatcher::finished);
    if (!watcher.isFinished() && !finished.wait()) {
        qFatal("No reply to %s", qUtf8Printable(method));
    }
    return watcher.reply();
}

QDBusMessage open(const QStringList &urls, const QVariantMap &platformData)
{
    return callApplication(text("Open"), {urls, platformData});
}

QDBusMessage openAction(const QVariantList &parameter, const QString &action)
{
    return callApplication(text("ActivateAction"), {action, parameter, QVariantMap()});
}

QString errorOf(const QDBusMessage &reply)
{
    return reply.type() == QDBusMessage::ErrorMessage ? reply.errorName() : QString();
}
