// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QObject>
#include <QStringList>

#include <functional>
#include <optional>

class ComKeloAmAutostartInterface;

/// The autostart service on the system bus. Its proxy, created on first use, and the watchers of its calls are
/// children of its parent, as it is itself.
class AutostartClient : public QObject
{
    Q_OBJECT

public:
    using ListHandler = std::function<void(const std::optional<QStringList> &)>;

    explicit AutostartClient(QObject *parent);

    /// The handler gets nothing when the call has failed, which is logged.
    void fetchEnabled(uint uid, const ListHandler &handler);
    /// A failure is not logged.
    void setEnabled(uint uid, const QString &application, bool enable, const std::function<void()> &succeeded);

private:
    ComKeloAmAutostartInterface *proxy();

    ComKeloAmAutostartInterface *m_proxy = nullptr;
};
