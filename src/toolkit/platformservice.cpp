// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "toolkit/platformservice.h"

namespace
{
PlatformService::State stateAfter(const QDBusError &error)
{
    switch (error.type()) {
    case QDBusError::NoError:
        return PlatformService::Working;
    case QDBusError::NoReply:
    case QDBusError::Timeout:
    case QDBusError::TimedOut:
        return PlatformService::Silent;
    case QDBusError::ServiceUnknown:
    case QDBusError::Disconnected:
        return PlatformService::Absent;
    default:
        return PlatformService::Failing;
    }
}
}

PlatformService::PlatformService(PlatformServiceName name, QObject *parent)
    : QObject(parent)
    , m_name(name)
{
    connect(ServiceOutcomes::instance(), &ServiceOutcomes::changed, this, &PlatformService::update);
    update();
}

PlatformService::State PlatformService::state() const
{
    return m_state;
}

QString PlatformService::errorName() const
{
    return m_error.name();
}

QString PlatformService::errorString() const
{
    return m_error.message();
}

void PlatformService::update()
{
    const std::optional<QDBusError> outcome = ServiceOutcomes::instance()->last(m_name);
    const State state = outcome ? stateAfter(*outcome) : Unknown;
    const QDBusError error = outcome.value_or(QDBusError());
    if (state != m_state || error.name() != m_error.name() || error.message() != m_error.message()) {
        m_state = state;
        m_error = error;
        Q_EMIT changed();
    }
}

#include "moc_platformservice.cpp"
