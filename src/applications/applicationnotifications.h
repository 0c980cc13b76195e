// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QHash>
#include <QObject>
#include <QVariantMap>

#include <optional>

class ApplicationRows;
class NotificationsClient;

/// The applications' notification settings, as far as the service has sent them. The rest is enabled.
class ApplicationNotifications : public QObject
{
    Q_OBJECT

public:
    /// @p rows, which is not owned, is to have each application that is changed.
    ApplicationNotifications(ApplicationRows *rows, QObject *parent);

    bool isEnabled(const QString &applicationId) const;
    void fetch(); ///< those of all applications
    void setEnabled(const QString &applicationId, bool enabled);

Q_SIGNALS:
    void rowChanged(int row);
    void changed(); ///< emitted after each reply, and after rowChanged()

private:
    void replace(const std::optional<QVariantMap> &enabled);
    void takeConfig(const QString &applicationId, const QVariantMap &config);
    void takeEnabled(const QString &applicationId, bool enabled);
    int rowOf(const QString &applicationId) const;
    void store(int row, const QString &applicationId, bool enabled);

    ApplicationRows *const m_rows;
    NotificationsClient *const m_client;
    QHash<QString, bool> m_enabled; ///< by application id
};
