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

    /// Reads all messages that the bus has passed on until now. Returns true if none of them is of this process, and all
    /// calls of this process have their replies.
    bool isAtRest();
    /// Returns how often each interface was called since the previous takeCalls().
    QMap<QString, int> takeCalls();

private:
    void readUntil(const QString &end);
    void take(const QStringList &message);
    bool isOwn(const QString &name);

    QDBusConnection m_control; ///< its calls are not counted
    QProcess m_monitor;
    QHash<QString, bool> m_own; ///< true for the names of this process's connections
    QMap<QString, int> m_calls;
    QSet<QString> m_unanswered;
    int m_messages = 0;
    int m_looks = 0;
};
