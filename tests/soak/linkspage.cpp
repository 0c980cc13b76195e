// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "soak/linkspage.h"

#include "soak/soakworld.h"
#include "text.h"
#include "toolkit/address.h"
#include "toolkit/applicationobject.h"
#include "toolkit/applicationpath.h"

#include <QDBusConnection>
#include <QDBusMessage>

LinksPage::LinksPage()
{
    static int pages = 0;
    m_action.setEntry(&m_entry);
    QObject::connect(&m_requests, &AddressRequests::openRequested, &m_entry, [this](const QString &path) {
        m_areInOrder = m_areInOrder && !m_sent.isEmpty() && m_sent.takeFirst() == path;
        m_entry.setPath(path);
    });
    m_requests.setService(text("org.example.Soak%1").arg(++pages));
}

void LinksPage::use(SoakWorld *world)
{
    switch (world->below(4)) {
    case 0:
        m_requests.setActive(!m_requests.isActive());
        break;
    case 1:
        m_action.run();
        break;
    default:
        send(world->somePath());
    }
}

QString LinksPage::violation(const SoakWorld &world) const
{
    if (!m_areInOrder) {
        return text("Addresses arrive in another order");
    }
    const bool hasError = !m_action.errorName().isEmpty();
    if (hasError != (m_action.state() == EntryAction::Failed)) {
        return text("An action has state %1 and error \"%2\"").arg(m_action.state()).arg(m_action.errorName());
    }
    const bool works = m_services.sandboxing()->state() <= PlatformService::Working;
    if (works != m_services.sandboxing()->errorName().isEmpty()) {
        return text("A service works and has an error");
    }
    return m_entry.exists() == world.nodes().contains(m_entry.path())
               ? QString()
               : text("An entry exists or not: %1").arg(m_entry.path());
}

bool LinksPage::isUpToDate(const SoakWorld &) const
{
    return m_requests.isOwned() && (m_sent.isEmpty() || !m_requests.isActive())
           && m_action.state() != EntryAction::Running;
}

void LinksPage::send(const QString &path)
{
    if (path.isEmpty() || !m_requests.isOwned() || m_sent.size() == AddressRequest::MaxWaiting) {
        return;
    }
    QDBusMessage call = QDBusMessage::createMethodCall(m_requests.service(), applicationPath(m_requests.service()),
                                                       text("org.freedesktop.Application"), text("Open"));
    call.setArguments({QStringList(Address::urlOf(path)), QVariantMap()});
    if (QDBusConnection::sessionBus().send(call)) {
        m_sent.append(path);
    }
}
