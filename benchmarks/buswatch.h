// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QDBusConnection>
#include <QHash>
#include <QMap>
#include <QProcess>
#include <QSet>
#include <QString>

/// The method calls that this process sends on one bus, as dbus-monitor sees them.
class BusWatch
{
public:
    explicit BusWatch(QDBusConnection::BusType bus);
    ~BusWatch();
    BusWatch(const BusWatch &) = delete;
    BusWatch &operator=(const BusWatch &) = delete;

    /// Takes in all that the bus has passed on until now. Whether nothing of it is this process's, and services have
    /// answered all its calls.
    bool isAtRest();
    /// How often each interface was called since the last time.
    QMap<QString, int> takeCalls();

private:
    void readUntil(const QString &end);
    void take(const QStringList &message);
    bool isOwn(const QString &name);

    QDBusConnection m_control; ///< what is sent here does not count
    QProcess m_monitor;
    QHash<QString, bool> m_own; ///< by name of a connection
    QMap<QString, int> m_calls;
    QSet<QString> m_unanswered;
    int m_messages = 0;
    int m_looks = 0;
};
