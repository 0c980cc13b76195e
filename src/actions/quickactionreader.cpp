// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "actions/quickactionreader.h"

#include "actions/callcheck.h"
#include "common/constants.h"
#include "common/logtext.h"
#include "common/messages.h"
#include "printable.h"

#include <mremoteaction.h>

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QQmlInfo>

#include <utility>

namespace
{
const QString s_service = QStringLiteral("remote-service");
const QString s_path = QStringLiteral("remote-path");
const QString s_interface = QStringLiteral("remote-interface");
const QString s_method = QStringLiteral("remote-method");
const QString s_arguments = QStringLiteral("remote-arguments");
const QString s_package = QStringLiteral("requires-package");

/// Returns the elements of the list. A value of another type has none, text included.
QVariantList argumentsOf(const QVariantMap &action)
{
    const QVariant arguments = action.value(s_arguments);
    const bool isList = arguments.userType() == QMetaType::QVariantList
                        || arguments.userType() == QMetaType::QStringList;
    return isList ? arguments.toList() : QVariantList();
}

QDBusMessage methodCall(const QVariantMap &action)
{
    QDBusMessage call = QDBusMessage::createMethodCall(
        action.value(s_service).toString(), action.value(s_path).toString(), action.value(s_interface).toString(),
        action.value(s_method).toString());
    call.setArguments(argumentsOf(action));
    return call;
}

QDBusMessage storeCall(const QString &packageName)
{
    QDBusMessage call = QDBusMessage::createMethodCall(Constants::StoreService, Constants::StorePath,
                                                       Constants::StoreInterface, QStringLiteral("showApp"));
    call.setArguments({packageName});
    return call;
}

bool describes(const QVariantMap &action, const QDBusMessage &call)
{
    return action.value(s_service).toString() == call.service() && action.value(s_path).toString() == call.path()
           && action.value(s_interface).toString() == call.interface()
           && action.value(s_method).toString() == call.member();
}

/// Returns why @p call must not be sent over @p bus; an invalid error when it may be.
QDBusError errorBeforeSending(const QDBusMessage &call, const QDBusConnection &bus)
{
    // Without a connection Qt sends nothing and reports that. After a connection has ended, however, Qt still lets
    // libdbus write the message.
    const bool wasConnected = !bus.baseService().isEmpty();
    return wasConnected ? validateCall(call) : QDBusError();
}
}

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
    const QDBusMessage call = methodCall(action);
    QDBusConnection bus = QDBusConnection::sessionBus();
    QDBusError error = errorBeforeSending(call, bus);
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
    const QDBusMessage call = storeCall(packageName);
    QDBusConnection bus = QDBusConnection::sessionBus();
    QDBusError error = errorBeforeSending(call, bus);
    if (!error.isValid() && bus.call(call, QDBus::NoBlock, -1).type() == QDBusMessage::ErrorMessage) {
        error = bus.lastError();
    }
    if (error.isValid()) {
        qmlInfo(this) << Messages::CannotCallStore << quoted(error);
    }
}

QString QuickActionReader::remoteActionString(const QVariantMap &action) const
{
    return MRemoteAction(action.value(s_service).toString(), action.value(s_path).toString(),
                         action.value(s_interface).toString(), action.value(s_method).toString(),
                         argumentsOf(action))
        .toString();
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
        const QString package = action.value(s_package).toString();
        if (!package.isEmpty() && describes(action, call)) {
            showStorePage(package);
            return;
        }
    }
}
