// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "toolkit/applicationobject.h"

#include "applicationadaptor.h"
#include "applications/pendingreply.h"
#include "common/logging.h"
#include "common/messages.h"
#include "printable.h"
#include "toolkit/address.h"
#include "toolkit/applicationpath.h"

#include <QDBusConnectionInterface>
#include <QDBusError>
#include <QDBusMessage>

#include <utility>

namespace
{
const QString s_localPath = QStringLiteral("/org/freedesktop/DBus/Local");
const QString s_localInterface = QStringLiteral("org.freedesktop.DBus.Local");

constexpr uint WaitForName = 0; ///< the flags of RequestName
constexpr int LoggedLength = 100; ///< of an address
constexpr int MaxTokenLength = 4096;

QDBusMessage callOfBus(const char *method, const QVariantList &arguments)
{
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QLatin1String(method));
    call.setArguments(arguments);
    return call;
}

QString tokenOf(const QVariantMap &platformData)
{
    for (const char *key : {"activation-token", "desktop-startup-id"}) {
        const QVariant token = platformData.value(QLatin1String(key));
        if (token.userType() == QMetaType::QString && !token.toString().isEmpty()
            && token.toString().size() <= MaxTokenLength) {
            return token.toString();
        }
    }
    return {};
}

/// Returns the one text in the parameter of the action "open".
QString addressIn(const QVariantList &parameter)
{
    const bool isAddress = parameter.size() == 1 && parameter.first().userType() == QMetaType::QString;
    return isAddress ? parameter.first().toString() : QString();
}
}

ApplicationObject::ApplicationObject(const QString &service, const Receiver &receiver)
    : m_service(service)
    , m_receiver(receiver)
    , m_bus(QDBusConnection::sessionBus())
{
    new ApplicationAdaptor(this);
    // The object first: a call may follow the name at once.
    m_isExported = exportObject();
    if (m_isExported) {
        requestName();
    }
}

ApplicationObject::~ApplicationObject()
{
    if (m_isExported) {
        m_bus.unregisterObject(applicationPath(m_service));
        m_bus.send(callOfBus("ReleaseName", {m_service}));
    }
}

bool ApplicationObject::isOwned() const
{
    return m_isOwned;
}

void ApplicationObject::Activate(const QVariantMap &platformData)
{
    pass({{{}, tokenOf(platformData)}});
}

void ApplicationObject::Open(const QStringList &uris, const QVariantMap &platformData)
{
    if (uris.size() > AddressRequest::MaxWaiting) {
        refuseMany(uris.constFirst());
        return;
    }
    QVector<AddressRequest> requests;
    for (const QString &uri : uris) {
        const Address address = Address::ofUrl(uri);
        if (!address.error.isEmpty()) {
            refuse(uri, address.error);
            return;
        }
        requests.append({address.path, tokenOf(platformData)});
    }
    pass(requests);
}

void ApplicationObject::ActivateAction(const QString &action, const QVariantList &parameter,
                                       const QVariantMap &platformData)
{
    if (action != QLatin1String("open")) {
        refuse(action, QStringLiteral("there is no such action"));
        return;
    }
    const Address address = Address::of(addressIn(parameter));
    if (address.error.isEmpty()) {
        pass({{address.path, tokenOf(platformData)}});
    } else {
        refuse(addressIn(parameter), address.error);
    }
}

void ApplicationObject::takeDisconnection()
{
    setOwned(m_service, false);
}

bool ApplicationObject::exportObject()
{
    const QString path = applicationPath(m_service);
    if (path.isEmpty()) {
        warn(QStringLiteral("it is no well-known name"));
    } else if (!m_bus.isConnected()) {
        warn(QStringLiteral("there is no session bus"));
    } else if (m_bus.registerObject(path, this)) {
        return true;
    } else {
        warn(QStringLiteral("this program has it already"));
    }
    return false;
}

void ApplicationObject::requestName()
{
    const QDBusConnectionInterface *const bus = m_bus.interface();
    connect(bus, &QDBusConnectionInterface::serviceRegistered, this,
            [this](const QString &service) { setOwned(service, true); });
    connect(bus, &QDBusConnectionInterface::serviceUnregistered, this,
            [this](const QString &service) { setOwned(service, false); });
    m_bus.connect({}, s_localPath, s_localInterface, QStringLiteral("Disconnected"), this,
                  SLOT(takeDisconnection()));
    whenFinished(m_bus.asyncCall(callOfBus("RequestName", {m_service, WaitForName})), this,
                 [this](const QDBusPendingCall &reply) { takeNameReply(reply); });
}

void ApplicationObject::takeNameReply(const QDBusPendingCall &reply) const
{
    const uint result = reply.reply().arguments().value(0).toUInt();
    if (reply.isError()) {
        warn(reply.error().message());
    } else if (result == QDBusConnectionInterface::ServiceQueued) {
        warn(QStringLiteral("another program has it"));
    }
}

void ApplicationObject::setOwned(const QString &service, bool isOwned)
{
    if (service == m_service && std::exchange(m_isOwned, isOwned) != isOwned) {
        Q_EMIT ownedChanged();
    }
}

void ApplicationObject::pass(const QVector<AddressRequest> &requests)
{
    if (requests.isEmpty()) {
        refuse({}, QStringLiteral("it names no entry"));
    } else if (!m_receiver(requests)) {
        refuseMany(requests.constFirst().path);
    }
}

void ApplicationObject::refuseMany(const QString &address)
{
    refuse(address, QStringLiteral("there are too many requests"), QDBusError::LimitsExceeded);
}

void ApplicationObject::refuse(const QString &address, const QString &reason, QDBusError::ErrorType error)
{
    const QString shown = printable(address.left(LoggedLength));
    qCWarning(lcSettings).noquote().nospace() << Messages::AddressRefused << " \"" << shown << "\": " << reason;
    sendErrorReply(error, QStringLiteral("Refused \"%1\": %2").arg(shown, reason));
}

void ApplicationObject::warn(const QString &reason) const
{
    qCWarning(lcSettings).noquote().nospace()
        << Messages::NameNotOwned << " \"" << printable(m_service) << "\": " << printable(reason);
}
