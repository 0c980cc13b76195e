// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QObject>
#include <QVariantMap>

#include <functional>
#include <optional>

class ComKeloNotificationsConfigProxy;

/// The notifications-configuration service on the session bus. Its proxy, created on first use, and the watchers
/// of its calls are children of its parent, as it is itself.
class NotificationsClient : public QObject
{
    Q_OBJECT

public:
    explicit NotificationsClient(QObject *parent);

    /// Application ids and whether they may notify. The handler gets nothing when the call has failed, which is logged.
    void fetchList(const std::function<void(const std::optional<QVariantMap> &)> &handler);
    /// A failure is logged.
    void setEnabled(const QString &application, bool enabled, const std::function<void()> &succeeded);

Q_SIGNALS:
    void configChanged(const QString &application, const QVariantMap &config);

private:
    ComKeloNotificationsConfigProxy *proxy();

    ComKeloNotificationsConfigProxy *m_proxy = nullptr;
};
