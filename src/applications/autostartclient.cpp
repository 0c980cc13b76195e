// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications/autostartclient.h"

#include "applications/pendingreply.h"
#include "common/constants.h"
#include "common/logging.h"
#include "common/messages.h"

#include "autostartinterface.h"

namespace
{
constexpr auto s_autostart = PlatformServiceName::Autostart;
}

AutostartClient::AutostartClient(QObject *parent)
    : QObject(parent)
{
}

void AutostartClient::fetchEnabled(uint uid, const ListHandler &handler)
{
    fetch<QStringList>(s_autostart, proxy()->asyncCall(QStringLiteral("GetEnabled"), int(uid)), parent(),
                       QString::fromLatin1(Messages::AutostartListFailed).arg(uid), handler);
}

void AutostartClient::setEnabled(uint uid, const QString &application, bool enable,
                                 const std::function<void()> &succeeded)
{
    whenFinished(s_autostart, proxy()->SetEnabled(int(uid), application, enable), parent(),
                 [succeeded](const QDBusPendingCall &reply) {
                     if (!reply.isError()) {
                         succeeded();
                     }
                 });
}

ComKeloAmAutostartInterface *AutostartClient::proxy()
{
    if (!m_proxy) {
        m_proxy = new ComKeloAmAutostartInterface(Constants::AutostartService, Constants::AutostartPath,
                                                  QDBusConnection::systemBus(), parent());
    }
    return m_proxy;
}

#include "moc_autostartclient.cpp"
