// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "toolkit/busname.h"

#include "applications/pendingreply.h"
#include "common/logging.h"
#include "common/messages.h"
#include "printable.h"

#include <QDBusConnectionInterface>
#include <QDBusError>
#include <QDBusMessage>
#include <QHash>
#include <QWeakPointer>

#include <utility>

namespace
{
const QString s_busService = QStringLiteral("org.freedesktop.DBus");
const QString s_busPath = QStringLiteral("/org/freedesktop/DBus");
const QString s_busInterface = QStringLiteral("org.freedesktop.DBus");
const QString s_localPath = QStringLiteral("/org/freedesktop/DBus/Local");
const QString s_localInterface = QStringLiteral("org.freedesktop.DBus.Local");

constexpr uint WaitForName = 0; ///< the flags of RequestName
constexpr uint AlreadyOwner = 4; ///< a reply to it, for which Qt has no name

QDBusMessage callOfBus(const char *method, const QVariantList &arguments)
{
    QDBusMessage call = QDBusMessage::createMethodCall(s_busService, s_busPath, s_busInterface,
                                                       QLatin1String(method));
    call.setArguments(arguments);
    return call;
}
}

QSharedPointer<BusName> BusName::of(const QString &service)
{
    static QHash<QString, QWeakPointer<BusName>> names;
    QSharedPointer<BusName> name = names.value(service);
    if (!name) {
        name.reset(new BusName(service));
        names.insert(service, name);
        name->m_untilReply = name;
        name->request();
    }
    return name;
}

BusName::BusName(const QString &service)
    : m_service(service)
    , m_bus(QDBusConnection::sessionBus())
{
}

BusName::~BusName()
{
    if (m_isRequested) {
        m_bus.send(callOfBus("ReleaseName", {m_service}));
    }
}

bool BusName::isOwned() const
{
    return m_isOwned;
}

void BusName::warn(const QString &service, const QString &reason)
{
    qCWarning(lcSettings).noquote().nospace()
        << Messages::NameNotOwned << " \"" << printable(service) << "\": " << printable(reason);
}

void BusName::takeDisconnection()
{
    setOwned(false);
}

void BusName::request()
{
    // Not the signals of QDBusConnectionInterface: it emits them in another thread, and a receiver that is deleted
    // meanwhile leaks memory of the connection.
    m_bus.connect(s_busService, s_busPath, s_busInterface, QStringLiteral("NameAcquired"), this,
                  SLOT(takeRegistration(QString)));
    m_bus.connect(s_busService, s_busPath, s_busInterface, QStringLiteral("NameLost"), this,
                  SLOT(takeLoss(QString)));
    m_bus.connect({}, s_localPath, s_localInterface, QStringLiteral("Disconnected"), this,
                  SLOT(takeDisconnection()));
    whenFinished(m_bus.asyncCall(callOfBus("RequestName", {m_service, WaitForName})), this,
                 [this](const QDBusPendingCall &reply) { takeReply(reply); });
}

void BusName::takeReply(const QDBusPendingCall &reply)
{
    const QSharedPointer<BusName> self = std::move(m_untilReply);
    const uint result = reply.reply().arguments().value(0).toUInt();
    m_isRequested = !reply.isError() && result != AlreadyOwner;
    if (reply.isError()) {
        warn(m_service, reply.error().message());
    } else if (result == QDBusConnectionInterface::ServiceQueued) {
        warn(m_service, QStringLiteral("another program has it"));
    } else {
        setOwned(true);
    }
}

void BusName::takeRegistration(const QString &service)
{
    if (service == m_service) {
        const QSharedPointer<BusName> self = std::move(m_untilReply);
        m_isRequested = true;
        setOwned(true);
    }
}

void BusName::takeLoss(const QString &service)
{
    if (service == m_service) {
        setOwned(false);
    }
}

void BusName::setOwned(bool isOwned)
{
    if (std::exchange(m_isOwned, isOwned) != isOwned) {
        Q_EMIT ownedChanged();
    }
}

#include "moc_busname.cpp"
