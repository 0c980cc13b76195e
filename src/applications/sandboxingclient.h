// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QDBusError>
#include <QObject>
#include <QStringList>

#include <functional>
#include <optional>

class OrgOrvantaosTarnholdd1Interface;
class QDBusPendingCall;

/**
 * The application sandboxing daemon on the system bus: each user's allow-list, what is always allowed, and granted
 * permissions. Handlers get nothing when a call has failed, which is logged.
 *
 * Its proxy, which is created on first use, and the watchers of its calls are children of its parent, as it is itself.
 */
class SandboxingClient : public QObject
{
    Q_OBJECT

public:
    using ListHandler = std::function<void(const std::optional<QStringList> &)>;

    /// While this lives, the daemon may let one call of needsPermissions() and grantPermissions() time out. Those after
    /// it fail with the same error and are not sent.
    class Batch
    {
    public:
        explicit Batch(SandboxingClient *client);
        ~Batch();
        Q_DISABLE_COPY(Batch)

    private:
        friend class SandboxingClient;

        SandboxingClient *const m_client;
        QDBusError m_timeout; ///< valid once a call has timed out
    };

    explicit SandboxingClient(QObject *parent);

    void fetchAllowlist(uint uid, const ListHandler &handler);
    void fetchAlwaysAllowed(const ListHandler &handler);
    /// Failures are not logged.
    void setAllowlist(uint uid, const QStringList &applications, const std::function<void()> &finished);
    void setAllowlistEnabled(uint uid, bool enabled, const std::function<void()> &finished);

    bool isAllowlistEnabled(uint uid); ///< blocks; false on any error
    bool needsPermissions(const QString &application); ///< blocks; false, with a warning, on any error
    /// Grants the permissions in the application's desktop file. Blocks. Returns false, with a warning, on failure.
    bool grantPermissions(uint uid, const QString &application);

private:
    template<typename... Arguments>
    QDBusPendingCall callAndWait(const QString &method, const Arguments &...arguments);
    OrgOrvantaosTarnholdd1Interface *proxy();

    OrgOrvantaosTarnholdd1Interface *m_proxy = nullptr;
    Batch *m_batch = nullptr;
};
