// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QDBusConnection>
#include <QProcess>
#include <QString>
#include <QVariant>

/// A service with one object, in a process of its own: it is on the bus when it is constructed, and gone from the
/// bus when it is destroyed.
class DBusPeer
{
public:
    DBusPeer(QDBusConnection::BusType bus, const QString &service, const QString &path, const QString &interface);
    ~DBusPeer();
    DBusPeer(const DBusPeer &) = delete;
    DBusPeer &operator=(const DBusPeer &) = delete;

    /// Answers @p method, of arguments of @p signature, with what the lines of Python in @p code set `ret` to or with
    /// the exception that they raise; with nothing when there are none.
    void addMethod(const QString &method, const QString &signature, const QString &code = {},
                   const QString &resultSignature = {});
    /// The calls of @p method that the bus has taken so far, each as the signature that it was sent with and the
    /// arguments. Their answers are on the bus by then, too.
    QList<QVariantList> calls(const QString &method);
    bool isOnBus() const;
    void emitSignal(const QString &signal, const QString &signature, const QVariantList &arguments);
    qint64 processId() const;

    /// Calls wait until resume(), those of this class too.
    void suspend();
    void resume();
    void kill();

private:
    QVariantList control(const QString &method, const QVariantList &arguments);

    const QString m_service;
    const QString m_path;
    const QString m_interface;
    QDBusConnection m_bus; ///< not the one that the tested code uses
    QProcess m_process;
};

/// @p value with the lists and maps in it as such, where Qt leaves them as they came over the bus.
QVariant unwrapped(const QVariant &value);
