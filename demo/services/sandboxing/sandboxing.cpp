// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "sandboxing.h"

#include <QDebug>

namespace
{
const QStringList s_allowed = {
    QStringLiteral("calculator"), QStringLiteral("camera"), QStringLiteral("gallery"),
    QStringLiteral("maps"),       QStringLiteral("clock"),
};
const QStringList s_alwaysAllowed = {QStringLiteral("contacts"), QStringLiteral("phone")};
const QStringList s_sandboxed = {
    QStringLiteral("browser"),
    QStringLiteral("camera"),
    QStringLiteral("maps"),
    QStringLiteral("tools-recorder"),
};
}

QStringList Sandboxing::GetAllowlist(uint uid)
{
    return isSpoiled() ? QStringList() : m_allowlists.value(uid, s_allowed);
}

void Sandboxing::SetAllowlist(uint uid, const QStringList &applications)
{
    if (!isSpoiled()) {
        m_allowlists.insert(uid, applications);
    }
}

int Sandboxing::GetAllowlistEnabled(uint uid)
{
    return isSpoiled() ? 0 : m_enabled.value(uid, 1);
}

void Sandboxing::SetAllowlistEnabled(uint uid, int enabled)
{
    if (!isSpoiled()) {
        m_enabled.insert(uid, enabled);
    }
}

QStringList Sandboxing::GetAlwaysAllowedApplications()
{
    return isSpoiled() ? QStringList() : s_alwaysAllowed;
}

QVariantMap Sandboxing::GetAppInfo(const QString &application)
{
    if (isSpoiled()) {
        return {};
    }
    const bool sandboxed = s_sandboxed.contains(application);
    return {{QStringLiteral("Mode"), sandboxed ? QStringLiteral("Normal") : QStringLiteral("None")}};
}

void Sandboxing::SetShowPrompt(uint uid, const QString &application, int show)
{
    if (isSpoiled()) {
        return;
    }
    if (show != 0) {
        m_unprompted.remove({uid, application});
    } else {
        m_unprompted.insert({uid, application});
    }
}

void Sandboxing::SetGrantedPermissions(uint uid, const QString &application, const QStringList &permissions)
{
    if (isSpoiled()) {
        return;
    }
    if (!m_unprompted.contains({uid, application})) {
        sendErrorReply(QDBusError::AccessDenied, QStringLiteral("The user is still to be asked"));
        return;
    }
    m_granted.insert({uid, application}, permissions);
    qInfo().noquote() << "Granted to" << application << "of user" << uid << permissions.join(QLatin1Char(' '));
}

#include "moc_sandboxing.cpp"
