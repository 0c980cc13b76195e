// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "toolkit/applicationobject.h"

#include "applicationadaptor.h"
#include "common/logging.h"
#include "common/logtext.h"
#include "common/messages.h"
#include "printable.h"
#include "toolkit/address.h"
#include "toolkit/applicationpath.h"
#include "toolkit/busname.h"

#include <QDBusError>

#include <algorithm>

namespace
{
constexpr int MaxTokenLength = 4096;

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

/// Returns the objects whose path another one has, in the order of their creation.
QVector<ApplicationObject *> &waitingObjects()
{
    static QVector<ApplicationObject *> objects;
    return objects;
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
    publish();
}

ApplicationObject::~ApplicationObject()
{
    waitingObjects().removeOne(this);
    if (m_name) {
        m_bus.unregisterObject(applicationPath(m_service));
        publishNext(); // before the name is released, so that no other program gets it
    }
}

bool ApplicationObject::isOwned() const
{
    return m_name && m_name->isOwned();
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

void ApplicationObject::publish()
{
    // The object first: a call may follow the name at once.
    if (!exportObject()) {
        return;
    }
    m_name = BusName::of(m_service);
    connect(m_name.data(), &BusName::ownedChanged, this, &ApplicationObject::ownedChanged);
    if (m_name->isOwned()) {
        QMetaObject::invokeMethod(this, &ApplicationObject::ownedChanged, Qt::QueuedConnection);
    }
}

/// Publishes the object that has waited longest for the path of this one.
void ApplicationObject::publishNext() const
{
    QVector<ApplicationObject *> &objects = waitingObjects();
    auto *const next = std::find_if(objects.begin(), objects.end(), [this](const ApplicationObject *object) {
        return applicationPath(object->m_service) == applicationPath(m_service);
    });
    if (next != objects.end()) {
        ApplicationObject *const object = *next;
        objects.erase(next);
        object->publish();
    }
}

bool ApplicationObject::exportObject()
{
    const QString path = applicationPath(m_service);
    if (path.isEmpty()) {
        BusName::warn(m_service, QStringLiteral("it is no well-known name"));
    } else if (!m_bus.isConnected()) {
        BusName::warn(m_service, QStringLiteral("there is no session bus"));
    } else if (m_bus.registerObject(path, this)) {
        return true;
    } else {
        BusName::warn(m_service, QStringLiteral("this program has it already"));
        waitingObjects().append(this);
    }
    return false;
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
    const QString shown = printable(address.left(MaxLoggedLength));
    qCWarning(lcSettings).noquote().nospace() << Messages::AddressRefused << " \"" << shown << "\": " << reason;
    sendErrorReply(error, QStringLiteral("Refused \"%1\": %2").arg(shown, reason));
}

#include "moc_applicationobject.cpp"
