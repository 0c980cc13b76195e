// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QDBusConnection>
#include <QProcess>
#include <QString>
#include <QVariant>

/// A service with one object, in a process of its own. It is on the bus when the constructor returns, until the
/// destructor removes it.
class DBusPeer
{
public:
    DBusPeer(QDBusConnection::BusType bus, const QString &service, const QString &path, const QString &interface);
    ~DBusPeer();
    DBusPeer(const DBusPeer &) = delete;
    DBusPeer &operator=(const DBusPeer &) = delete;

    /// Adds @p method with arguments of @p signature. Its reply is the value to which the Python lines in @p code set
    /// `ret`, or the exception that they raise; empty without code.
    void addMethod(const QString &method, const QString &signature, const QString &code = {},
                   const QString &resultSignature = {});
    /// Returns the calls of @p method that the bus has received so far, each as the signature with which it was sent
    /// and the arguments. Their replies are on the bus, too.
    QList<QVariantList> calls(const QString &method);
    bool isOnBus() const;
    void emitSignal(const QString &signal, const QString &signature, const QVariantList &arguments);
    qint64 processId() const;

    /// Lets all calls wait until resume(), also those of this class.
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

/// Returns @p value with its lists and maps converted to Qt's types. Qt leaves them as D-Bus arguments.
QVariant unwrapped(const QVariant &value);
