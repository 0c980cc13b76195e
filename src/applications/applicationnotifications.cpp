// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications/applicationnotifications.h"

#include "applications/applicationrows.h"
#include "applications/idlist.h"
#include "applications/notificationsclient.h"
#include "common/logging.h"
#include "common/logtext.h"
#include "common/messages.h"

#include <QPointer>

ApplicationNotifications::ApplicationNotifications(ApplicationRows *rows, QObject *parent)
    : QObject(parent)
    , m_rows(rows)
    , m_client(new NotificationsClient(parent))
{
    connect(m_client, &NotificationsClient::configChanged, this, &ApplicationNotifications::takeConfig);
}

bool ApplicationNotifications::isEnabled(const QString &applicationId) const
{
    return m_enabled.value(applicationId, true);
}

void ApplicationNotifications::fetch()
{
    m_client->fetchList([this](const auto &enabled) { replace(enabled); });
}

void ApplicationNotifications::setEnabled(const QString &applicationId, bool enabled)
{
    if (canBeSent({applicationId})) {
        m_client->setEnabled(applicationId, enabled,
                             [this, applicationId, enabled] { takeEnabled(applicationId, enabled); });
    }
}

void ApplicationNotifications::replace(const std::optional<QVariantMap> &enabled)
{
    if (!enabled) {
        m_enabled.clear();
    } else {
        // Applications that the service does not mention keep their value.
        for (auto it = enabled->cbegin(); it != enabled->cend(); ++it) {
            m_enabled.insert(it.key(), it.value().toBool());
        }
    }
    Q_EMIT changed();
}

void ApplicationNotifications::takeConfig(const QString &applicationId, const QVariantMap &config)
{
    const QString key = QStringLiteral("enabled");
    const int row = rowOf(applicationId);
    if (row < 0) {
        return;
    }
    if (config.contains(key)) {
        store(row, applicationId, config.value(key).toBool());
    } else {
        qCWarning(lcSettings) << Messages::UnknownConfig << quoted(config);
    }
}

void ApplicationNotifications::takeEnabled(const QString &applicationId, bool enabled)
{
    const int row = rowOf(applicationId);
    if (row >= 0) {
        store(row, applicationId, enabled);
    }
}

/// The first row of the application, -1 with a warning when there is none.
int ApplicationNotifications::rowOf(const QString &applicationId) const
{
    const int row = m_rows->rowOfApplicationId(applicationId);
    if (row < 0) {
        qCWarning(lcSettings).noquote()
            << QString::fromLatin1(Messages::NoApplication).arg(unquoted(applicationId).text);
    }
    return row;
}

void ApplicationNotifications::store(int row, const QString &applicationId, bool enabled)
{
    m_enabled.insert(applicationId, enabled);
    const QPointer<ApplicationNotifications> self(this);
    Q_EMIT rowChanged(row);
    if (self) {
        Q_EMIT changed();
    }
}

#include "moc_applicationnotifications.cpp"
