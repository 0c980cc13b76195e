// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications/notificationsclient.h"

#include "applications/pendingreply.h"
#include "common/constants.h"
#include "common/logging.h"
#include "common/logtext.h"
#include "common/messages.h"

#include "notificationsconfigproxy.h"

namespace
{
constexpr auto s_notifications = PlatformServiceName::Notifications;
}

NotificationsClient::NotificationsClient(QObject *parent)
    : QObject(parent)
{
}

void NotificationsClient::fetchList(const std::function<void(const std::optional<QVariantMap> &)> &handler)
{
    const QDBusPendingCall call = proxy()->asyncCall(QStringLiteral("getList"));
    whenFinished(call, parent(), [handler](const QDBusPendingCall &finished) {
        const auto reply = replyOf<QVariantMap>(s_notifications, finished);
        if (reply.error.isValid()) {
            // Unlike other errors, by name and message
            qCWarning(lcSettings) << Messages::NotificationsListFailed << quoted(reply.error.name())
                                  << quoted(reply.error.message());
            handler({});
        } else {
            handler(reply.value);
        }
    });
}

void NotificationsClient::setEnabled(const QString &application, bool enabled,
                                     const std::function<void()> &succeeded)
{
    whenFinished(
        s_notifications, proxy()->setEnabled(application, enabled), parent(),
        [application, succeeded](const QDBusPendingCall &reply) {
            if (reply.isError()) {
                qCWarning(lcSettings).noquote()
                    << QString::fromLatin1(Messages::NotificationsSetFailed).arg(unquoted(application).text)
                    << unquoted(reply.error());
            } else {
                succeeded();
            }
        });
}

ComKeloNotificationsConfigProxy *NotificationsClient::proxy()
{
    if (!m_proxy) {
        m_proxy = new ComKeloNotificationsConfigProxy(Constants::NotificationsService,
                                                      Constants::NotificationsPath, QDBusConnection::sessionBus(),
                                                      parent());
        connect(m_proxy, &ComKeloNotificationsConfigProxy::configChanged, this,
                &NotificationsClient::configChanged);
    }
    return m_proxy;
}

#include "moc_notificationsclient.cpp"
