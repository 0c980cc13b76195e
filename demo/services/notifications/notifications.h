// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "faultyservice.h"

#include <QVariantMap>

/// Stores which applications may notify.
class Notifications : public FaultyService
{
    Q_OBJECT

public:
    Notifications();

public Q_SLOTS:
    QVariantMap getConfig(const QString &appId);
    QVariantMap getList();
    void setEnabled(const QString &appId, bool enable);

Q_SIGNALS:
    void configChanged(const QString &appId, const QVariantMap &config);

private:
    QVariantMap configOf(const QString &appId) const;

    QVariantMap m_enabled; ///< by application id; true for other applications
};
