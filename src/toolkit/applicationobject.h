// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusError>
#include <QObject>
#include <QSharedPointer>
#include <QVariantMap>
#include <QVector>

#include <functional>

class BusName;

/// What another program asks of this one.
struct AddressRequest {
    static constexpr int MaxWaiting = 16; ///< more are refused

    QString path; ///< of the entry to open; empty to show the window as it is
    QString activationToken; ///< of the compositor or the window manager; empty for none
};

/**
 * This program on the session bus, as the Desktop Entry Specification describes applications: it has a well-known name
 * and an object whose path is derived from the name.
 *
 * If another program has the name, or another object of this one has the path, the object waits for it. Calls with anything but addresses are answered with an error and
 * logged.
 */
class ApplicationObject : public QObject, protected QDBusContext
{
    Q_OBJECT

public:
    /// Takes the requests of one call, or returns false if there are too many.
    using Receiver = std::function<bool(const QVector<AddressRequest> &requests)>;

    ApplicationObject(const QString &service, const Receiver &receiver);
    ~ApplicationObject() override;

    bool isOwned() const; ///< true while this program has the name

public Q_SLOTS:
    // The methods of org.freedesktop.Application
    void Activate(const QVariantMap &platformData);
    void Open(const QStringList &uris, const QVariantMap &platformData);
    void ActivateAction(const QString &action, const QVariantList &parameter, const QVariantMap &platformData);

Q_SIGNALS:
    void ownedChanged();

private:
    bool exportObject();
    void publish();
    void publishNext() const;
    void pass(const QVector<AddressRequest> &requests);
    void refuseMany(const QString &address);
    void refuse(const QString &address, const QString &reason,
                QDBusError::ErrorType error = QDBusError::InvalidArgs);

    const QString m_service;
    const Receiver m_receiver;
    QDBusConnection m_bus;
    QSharedPointer<BusName> m_name; ///< null while the object is not on the bus
};
