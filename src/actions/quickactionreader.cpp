// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "actions/quickactionreader.h"

#include "actions/remotecall.h"
#include "common/messages.h"
#include "printable.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QQmlInfo>

#include <utility>

QuickActionReader::QuickActionReader(QObject *parent)
    : QObject(parent)
{
}

void QuickActionReader::trigger(const QVariantMap &action)
{
    if (!m_triggeredActions.contains(action)) {
        m_triggeredActions.append(action);
    }
    sendRemoteCall(action, SLOT(triggerActionError(QDBusError, QDBusMessage)));
}

void QuickActionReader::sendRemoteCall(const QVariantMap &action, const char *errorSlot)
{
    const QDBusMessage call = RemoteCall::of(action);
    QDBusConnection bus = QDBusConnection::sessionBus();
    QDBusError error = RemoteCall::errorBeforeSending(call, bus);
    if (!error.isValid()) {
        if (bus.callWithCallback(call, this, nullptr, errorSlot, -1)) {
            return;
        }
        error = bus.lastError();
    }
    qmlInfo(this) << QString::fromLatin1(Messages::CannotQueueCall)
                         .arg(printable(call.service()), printable(call.path()), printable(call.interface()),
                              printable(call.member()),
                              printable(error.name() + QLatin1Char(' ') + error.message()));
}

void QuickActionReader::showStorePage(const QString &packageName)
{
    RemoteCall::showInStore(packageName, this);
}

QString QuickActionReader::remoteActionString(const QVariantMap &action) const
{
    return RemoteCall::toString(action);
}

void QuickActionReader::triggerActionError(const QDBusError &error, const QDBusMessage &msg)
{
    if (error.type() == QDBusError::NoReply) {
        return;
    }
    qmlInfo(this) << QString::fromLatin1(Messages::CallFailed)
                         .arg(printable(msg.service()), printable(msg.path()), printable(msg.interface()),
                              printable(msg.member()), printable(error.name()), printable(error.message()));
    if (error.type() == QDBusError::ServiceUnknown) {
        showPackageOf(msg);
    }
}

void QuickActionReader::showPackageOf(const QDBusMessage &call)
{
    for (const QVariantMap &action : std::as_const(m_triggeredActions)) {
        const QString package = RemoteCall::requiredPackage(action);
        if (!package.isEmpty() && RemoteCall::isOf(action, call)) {
            showStorePage(package);
            return;
        }
    }
}

#include "moc_quickactionreader.cpp"
