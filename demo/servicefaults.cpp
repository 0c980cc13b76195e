// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "servicefaults.h"

#include "faultsinterface.h"

#include <QDBusPendingCallWatcher>
#include <QDebug>

#include <algorithm>
#include <iterator>

namespace
{
struct Service {
    const char *id;
    const char *name;
    const char *path;
    QDBusConnection (*bus)();
};

const Service s_services[] = {
    {"sandboxing", "org.orvantaos.tarnholdd1", "/org/orvantaos/tarnholdd1", QDBusConnection::systemBus},
    {"autostart", "com.kelo.RuntimeManager", "/com/kelo/am", QDBusConnection::systemBus},
    {"notifications", "com.kelo.NotificationsConfig1", "/com/kelo/NotificationsConfig1",
     QDBusConnection::sessionBus},
};
}

ServiceFaults::ServiceFaults(QObject *parent)
    : QObject(parent)
{
    for (const Service &service : s_services) {
        m_faults.insert(QLatin1String(service.id), QStringLiteral("none"));
    }
}

QStringList ServiceFaults::services() const
{
    QStringList ids;
    for (const Service &service : s_services) {
        ids.append(QLatin1String(service.id));
    }
    return ids;
}

QVariantMap ServiceFaults::faults() const
{
    return m_faults;
}

void ServiceFaults::setFault(const QString &id, const QString &fault)
{
    const auto hasId = [&id](const Service &service) { return id == QLatin1String(service.id); };
    const auto service = std::find_if(std::begin(s_services), std::end(s_services), hasId);
    if (service == std::end(s_services)) {
        qWarning() << "There is no service" << id;
        return;
    }
    OrgExampleFaultsInterface faults(QLatin1String(service->name), QLatin1String(service->path), service->bus());
    auto *const watcher = new QDBusPendingCallWatcher(faults.setFault(fault), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, id, fault] {
        watcher->deleteLater();
        if (watcher->isError()) {
            qWarning() << "The service" << id << "takes no faults:" << watcher->error();
            return;
        }
        m_faults.insert(id, fault);
        Q_EMIT faultsChanged();
    });
}

#include "moc_servicefaults.cpp"
