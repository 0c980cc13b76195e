// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications/serviceoutcomes.h"

#include <QMetaMethod>

ServiceOutcomes *ServiceOutcomes::instance()
{
    static auto *const outcomes = new ServiceOutcomes;
    return outcomes;
}

std::optional<QDBusError> ServiceOutcomes::last(PlatformServiceName service) const
{
    return m_last[std::size_t(service)];
}

void ServiceOutcomes::record(PlatformServiceName service, const QDBusError &error)
{
    m_last[std::size_t(service)] = error;
    if (isSignalConnected(QMetaMethod::fromSignal(&ServiceOutcomes::changed))) {
        QMetaObject::invokeMethod(this, &ServiceOutcomes::changed, Qt::QueuedConnection);
    }
}

#include "moc_serviceoutcomes.cpp"
