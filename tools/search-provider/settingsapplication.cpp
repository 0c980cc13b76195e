// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "settingsapplication.h"

#include "bustexts.h"
#include "printable.h"
#include "toolkit/address.h"
#include "toolkit/applicationpath.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDebug>

namespace
{
/// Returns what lets the window manager raise the window, as startup notification has it.
QVariantMap platformData(uint timestamp)
{
    QVariantMap data;
    if (timestamp != 0) {
        data.insert(QStringLiteral("desktop-startup-id"), QStringLiteral("_TIME%1").arg(timestamp));
    }
    return data;
}
}

SettingsApplication::SettingsApplication(const QString &service, QObject *parent)
    : QObject(parent)
    , m_service(service)
{
}

void SettingsApplication::open(const QString &location, uint timestamp)
{
    if (!BusTexts::isIdentifier(location)) {
        qWarning("Can't open an entry: its location is empty, too long or not valid Unicode");
        return;
    }
    call(QStringLiteral("Open"), {QStringList(Address::urlOf(location)), platformData(timestamp)});
}

void SettingsApplication::activate(uint timestamp)
{
    call(QStringLiteral("Activate"), {platformData(timestamp)});
}

void SettingsApplication::call(const QString &method, const QVariantList &arguments)
{
    QDBusMessage message = QDBusMessage::createMethodCall(m_service, applicationPath(m_service),
                                                          QStringLiteral("org.freedesktop.Application"), method);
    message.setArguments(arguments);
    auto *const watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(message), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [watcher] {
        watcher->deleteLater();
        if (watcher->isError()) {
            qWarning("Can't call the Settings application: %s",
                     qUtf8Printable(printable(watcher->error().message())));
        }
    });
}

#include "moc_settingsapplication.cpp"
