// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "actions/remotecall.h"

#include "actions/callcheck.h"
#include "common/constants.h"
#include "common/logtext.h"
#include "common/messages.h"

#include <mremoteaction.h>

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QQmlInfo>

namespace RemoteCall
{
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
}

QDBusMessage of(const QVariantMap &action)
{
    QDBusMessage call = QDBusMessage::createMethodCall(
        action.value(s_service).toString(), action.value(s_path).toString(), action.value(s_interface).toString(),
        action.value(s_method).toString());
    call.setArguments(argumentsOf(action));
    return call;
}

QDBusError errorBeforeSending(const QDBusMessage &call, const QDBusConnection &bus)
{
    // Without a connection Qt sends nothing, and that is the error. One that has ended is no protection: Qt still
    // lets libdbus write the message.
    const bool wasConnected = !bus.baseService().isEmpty();
    return wasConnected ? validateCall(call) : QDBusError();
}

bool isOf(const QVariantMap &action, const QDBusMessage &call)
{
    return action.value(s_service).toString() == call.service() && action.value(s_path).toString() == call.path()
           && action.value(s_interface).toString() == call.interface()
           && action.value(s_method).toString() == call.member();
}

QString toString(const QVariantMap &action)
{
    return MRemoteAction(action.value(s_service).toString(), action.value(s_path).toString(),
                         action.value(s_interface).toString(), action.value(s_method).toString(),
                         argumentsOf(action))
        .toString();
}

QString requiredPackage(const QVariantMap &action)
{
    return action.value(s_package).toString();
}

void showInStore(const QString &package, const QObject *reporter)
{
    QDBusMessage call = QDBusMessage::createMethodCall(Constants::StoreService, Constants::StorePath,
                                                       Constants::StoreInterface, QStringLiteral("showApp"));
    call.setArguments({package});
    QDBusConnection bus = QDBusConnection::sessionBus();
    QDBusError error = errorBeforeSending(call, bus);
    if (!error.isValid() && bus.call(call, QDBus::NoBlock, -1).type() == QDBusMessage::ErrorMessage) {
        error = bus.lastError();
    }
    if (error.isValid()) {
        qmlInfo(reporter) << Messages::CannotCallStore << quoted(error);
    }
}
}
