// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QObject>
#include <QVariantMap>

/// The Settings application, on the session bus. It is started if it does not run.
class SettingsApplication : public QObject
{
    Q_OBJECT

public:
    /// @p service is its name on the bus.
    explicit SettingsApplication(const QString &service, QObject *parent = nullptr);

    /// Shows the entry at @p location, a caller's text. @p timestamp is that of the user's input, 0 if it is unknown.
    void open(const QString &location, uint timestamp);
    /// Shows its window as it is.
    void activate(uint timestamp);

private:
    void call(const QString &method, const QVariantList &arguments);

    const QString m_service;
};
