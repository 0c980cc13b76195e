// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "notifications.h"

Notifications::Notifications()
    : m_enabled({
        {QStringLiteral("org.example.Calendar"), true},
        {QStringLiteral("org.example.Browser"), false},
        {QStringLiteral("org.example.Weather"), false},
    })
{
}

QVariantMap Notifications::getConfig(const QString &appId)
{
    return isSpoiled() ? QVariantMap() : configOf(appId);
}

QVariantMap Notifications::getList()
{
    return isSpoiled() ? QVariantMap() : m_enabled;
}

void Notifications::setEnabled(const QString &appId, bool enable)
{
    if (isSpoiled()) {
        return;
    }
    m_enabled.insert(appId, enable);
    Q_EMIT configChanged(appId, configOf(appId));
}

QVariantMap Notifications::configOf(const QString &appId) const
{
    return {{QStringLiteral("enabled"), m_enabled.value(appId, true)}};
}

#include "moc_notifications.cpp"
