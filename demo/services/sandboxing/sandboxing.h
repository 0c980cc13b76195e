// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "faultyservice.h"

#include <QHash>
#include <QPair>
#include <QSet>
#include <QStringList>
#include <QVariantMap>

/// Stores what each user's applications may do, and enforces nothing. All users have the same lists at first.
class Sandboxing : public FaultyService
{
    Q_OBJECT

public Q_SLOTS:
    QStringList GetAllowlist(uint uid);
    void SetAllowlist(uint uid, const QStringList &applications);
    int GetAllowlistEnabled(uint uid);
    void SetAllowlistEnabled(uint uid, int enabled);
    QStringList GetAlwaysAllowedApplications();
    QVariantMap GetAppInfo(const QString &application);
    void SetShowPrompt(uint uid, const QString &application, int show);
    void SetGrantedPermissions(uint uid, const QString &application, const QStringList &permissions);

private:
    using UserApplication = QPair<uint, QString>;

    QHash<uint, QStringList> m_allowlists;
    QHash<uint, int> m_enabled;
    QSet<UserApplication> m_unprompted;
    QHash<UserApplication, QStringList> m_granted;
};
