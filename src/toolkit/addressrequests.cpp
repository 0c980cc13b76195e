// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "toolkit/addressrequests.h"

#include "toolkit/applicationobject.h"

#include <QPointer>

AddressRequests::AddressRequests(QObject *parent)
    : QObject(parent)
{
}

AddressRequests::~AddressRequests() = default;

QString AddressRequests::service() const
{
    return m_service;
}

void AddressRequests::setService(const QString &service)
{
    if (service == m_service) {
        return;
    }
    m_service = service;
    const QPointer<AddressRequests> self(this);
    Q_EMIT serviceChanged();
    if (self && m_isComplete) {
        publish();
    }
}

bool AddressRequests::isActive() const
{
    return m_isActive;
}

void AddressRequests::setActive(bool isActive)
{
    if (isActive != m_isActive) {
        m_isActive = isActive;
        deliverLater();
        Q_EMIT activeChanged();
    }
}

bool AddressRequests::isOwned() const
{
    return m_object && m_object->isOwned();
}

void AddressRequests::classBegin()
{
    m_isComplete = false;
}

void AddressRequests::componentComplete()
{
    m_isComplete = true;
    publish();
}

/// Replaces the name on the bus.
void AddressRequests::publish()
{
    const bool wasOwned = isOwned();
    m_object.reset();
    if (!m_service.isEmpty()) {
        m_object = std::make_unique<ApplicationObject>(m_service,
                                                       [this](const auto &requests) { return take(requests); });
        connect(m_object.get(), &ApplicationObject::ownedChanged, this, &AddressRequests::ownedChanged);
    }
    if (wasOwned) {
        Q_EMIT ownedChanged();
    }
}

bool AddressRequests::take(const QVector<AddressRequest> &requests)
{
    if (m_waiting.size() + requests.size() > AddressRequest::MaxWaiting) {
        return false;
    }
    m_waiting += requests;
    deliverLater();
    return true;
}

/// The caller has its reply before, and pages that are being created are complete.
void AddressRequests::deliverLater()
{
    QMetaObject::invokeMethod(this, &AddressRequests::deliver, Qt::QueuedConnection);
}

void AddressRequests::deliver()
{
    const QPointer<AddressRequests> self(this);
    while (self && m_isActive && !m_waiting.isEmpty()) {
        const AddressRequest request = m_waiting.takeFirst();
        if (request.path.isEmpty()) {
            Q_EMIT activateRequested(request.activationToken);
        } else {
            Q_EMIT openRequested(request.path, request.activationToken);
        }
    }
}

#include "moc_addressrequests.cpp"
