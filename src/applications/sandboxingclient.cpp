// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications/sandboxingclient.h"

#include "applications/desktopfiles.h"
#include "applications/pendingreply.h"
#include "common/constants.h"
#include "common/logging.h"
#include "common/messages.h"

#include "tarnholddinterface.h"

SandboxingClient::SandboxingClient(QObject *parent)
    : QObject(parent)
{
}

void SandboxingClient::fetchAllowlist(uint uid, const ListHandler &handler)
{
    fetch<QStringList>(proxy()->asyncCall(QStringLiteral("GetAllowlist"), uid), parent(),
                       QString::fromLatin1(Messages::AllowlistFailed).arg(uid), handler);
}

void SandboxingClient::fetchAlwaysAllowed(const ListHandler &handler)
{
    fetch<QStringList>(proxy()->asyncCall(QStringLiteral("GetAlwaysAllowedApplications")), parent(),
                       QString::fromLatin1(Messages::AlwaysAllowedFailed), handler);
}

void SandboxingClient::setAllowlist(uint uid, const QStringList &applications,
                                    const std::function<void()> &finished)
{
    whenFinished(proxy()->SetAllowlist(uid, applications), parent(),
                 [finished](const QDBusPendingCall &) { finished(); });
}

void SandboxingClient::setAllowlistEnabled(uint uid, bool enabled, const std::function<void()> &finished)
{
    whenFinished(proxy()->SetAllowlistEnabled(uid, enabled ? 1 : 0), parent(),
                 [finished](const QDBusPendingCall &) { finished(); });
}

bool SandboxingClient::isAllowlistEnabled(uint uid)
{
    // Not by call(): it deletes what Qt's thread of the bus may still be reading of an error.
    QDBusPendingCall call = proxy()->asyncCall(QStringLiteral("GetAllowlistEnabled"), uid);
    call.waitForFinished(); // BLOCKS: QML reads a property
    const QDBusMessage reply = call.reply(); // any type of number will do
    return reply.type() == QDBusMessage::ReplyMessage && reply.arguments().value(0).toInt() != 0;
}

bool SandboxingClient::needsPermissions(const QString &application)
{
    QDBusPendingCall call = proxy()->asyncCall(QStringLiteral("GetAppInfo"), application);
    call.waitForFinished(); // BLOCKS: the answer decides what is sent next
    const auto reply = replyOf<QVariantMap>(call);
    if (reply.error.isValid()) {
        qCWarning(lcSettings) << Messages::AppInfoFailed << reply.error;
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
    QDBusPendingReply<> prompt = proxy()->SetShowPrompt(uid, application, 0);
    prompt.waitForFinished(); // BLOCKS: nothing may be granted while the user would be asked
    if (prompt.isError()) {
        qCWarning(lcSettings) << Messages::HidePromptFailed << application << "application";
        return false;
    }
    QDBusPendingReply<> granted = proxy()->SetGrantedPermissions(uid, application, *permissions);
    granted.waitForFinished(); // BLOCKS: the application is started only with its permissions
    if (granted.isError()) {
        qCWarning(lcSettings) << Messages::GrantFailed << application << "application";
        return false;
    }
    return true;
}

OrgOrvantaosTarnholdd1Interface *SandboxingClient::proxy()
{
    if (!m_proxy) {
        m_proxy = new OrgOrvantaosTarnholdd1Interface(Constants::SandboxingService, Constants::SandboxingPath,
                                                      QDBusConnection::systemBus(), parent());
    }
    return m_proxy;
}
