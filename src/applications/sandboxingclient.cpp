// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications/sandboxingclient.h"

#include "applications/desktopfiles.h"
#include "applications/pendingreply.h"
#include "common/constants.h"
#include "common/logging.h"
#include "common/logtext.h"
#include "common/messages.h"

#include "tarnholddinterface.h"

#include <QElapsedTimer>

namespace
{
constexpr auto s_sandboxing = PlatformServiceName::Sandboxing;
constexpr int LeastTimeout = 1500; ///< in milliseconds: an earlier error is not a time-out
}

SandboxingClient::Batch::Batch(SandboxingClient *client)
    : m_client(client)
{
    m_client->m_batch = this;
}

SandboxingClient::Batch::~Batch()
{
    m_client->m_batch = nullptr;
}

SandboxingClient::SandboxingClient(QObject *parent)
    : QObject(parent)
{
}

void SandboxingClient::fetchAllowlist(uint uid, const ListHandler &handler)
{
    fetch<QStringList>(s_sandboxing, proxy()->asyncCall(QStringLiteral("GetAllowlist"), uid), parent(),
                       QString::fromLatin1(Messages::AllowlistFailed).arg(uid), handler);
}

void SandboxingClient::fetchAlwaysAllowed(const ListHandler &handler)
{
    fetch<QStringList>(s_sandboxing, proxy()->asyncCall(QStringLiteral("GetAlwaysAllowedApplications")), parent(),
                       QString::fromLatin1(Messages::AlwaysAllowedFailed), handler);
}

void SandboxingClient::setAllowlist(uint uid, const QStringList &applications,
                                    const std::function<void()> &finished)
{
    whenFinished(s_sandboxing, proxy()->SetAllowlist(uid, applications), parent(),
                 [finished](const QDBusPendingCall &) { finished(); });
}

void SandboxingClient::setAllowlistEnabled(uint uid, bool enabled, const std::function<void()> &finished)
{
    whenFinished(s_sandboxing, proxy()->SetAllowlistEnabled(uid, enabled ? 1 : 0), parent(),
                 [finished](const QDBusPendingCall &) { finished(); });
}

bool SandboxingClient::isAllowlistEnabled(uint uid)
{
    // Not by call(): it deletes what Qt's thread of the bus may still be reading of an error.
    QDBusPendingCall call = proxy()->asyncCall(QStringLiteral("GetAllowlistEnabled"), uid);
    call.waitForFinished(); // BLOCKS: QML reads a property
    ServiceOutcomes::instance()->record(s_sandboxing, call.error());
    const QDBusMessage reply = call.reply(); // any type of number will do
    return reply.type() == QDBusMessage::ReplyMessage && reply.arguments().value(0).toInt() != 0;
}

bool SandboxingClient::needsPermissions(const QString &application)
{
    // BLOCKS: the next call depends on the reply
    const auto reply = replyOf<QVariantMap>(s_sandboxing, callAndWait(QStringLiteral("GetAppInfo"), application));
    if (reply.error.isValid()) {
        qCWarning(lcSettings) << Messages::AppInfoFailed << quoted(reply.error);
        return false;
    }
    const QVariant mode = reply.value.value(QStringLiteral("Mode"));
    return mode.userType() != QMetaType::QString || mode.toString() != QLatin1String("None");
}

bool SandboxingClient::grantPermissions(uint uid, const QString &application)
{
    const std::optional<QStringList> permissions = requestedPermissions(application);
    if (!permissions || permissions->isEmpty()) {
        return permissions.has_value();
    }
    // BLOCKS: permissions may only be granted when the user is no longer prompted
    if (callAndWait(QStringLiteral("SetShowPrompt"), uid, application, 0).isError()) {
        qCWarning(lcSettings) << Messages::HidePromptFailed << quoted(application) << "application";
        return false;
    }
    // BLOCKS: the application is started only with its permissions
    if (callAndWait(QStringLiteral("SetGrantedPermissions"), uid, application, *permissions).isError()) {
        qCWarning(lcSettings) << Messages::GrantFailed << quoted(application) << "application";
        return false;
    }
    return true;
}

template<typename... Arguments>
QDBusPendingCall SandboxingClient::callAndWait(const QString &method, const Arguments &...arguments)
{
    if (m_batch && m_batch->m_timeout.isValid()) {
        return QDBusPendingCall::fromError(m_batch->m_timeout);
    }
    QElapsedTimer timer;
    timer.start();
    QDBusPendingCall call = proxy()->asyncCall(method, arguments...);
    call.waitForFinished();
    ServiceOutcomes::instance()->record(s_sandboxing, call.error());
    // A daemon that dies causes the same error at once, and another one may reply to the next call.
    if (m_batch && call.error().type() == QDBusError::NoReply && timer.hasExpired(LeastTimeout)) {
        m_batch->m_timeout = call.error();
    }
    return call;
}

OrgOrvantaosTarnholdd1Interface *SandboxingClient::proxy()
{
    if (!m_proxy) {
        m_proxy = new OrgOrvantaosTarnholdd1Interface(Constants::SandboxingService, Constants::SandboxingPath,
                                                      QDBusConnection::systemBus(), parent());
    }
    return m_proxy;
}

#include "moc_sandboxingclient.cpp"
