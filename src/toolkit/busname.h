// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QSharedPointer>
#include <QString>

class QDBusPendingCall;

/**
 * A well-known name of this program on the session bus, shared by all who use it. It is requested by the first of them,
 * and released after the last of them is gone, unless the program had it already.
 */
class BusName : public QObject
{
    Q_OBJECT

public:
    static QSharedPointer<BusName> of(const QString &service);
    ~BusName() override;

    bool isOwned() const; ///< true while this program has the name

    static void warn(const QString &service, const QString &reason); ///< that the program does not have it

Q_SIGNALS:
    void ownedChanged();

private Q_SLOTS:
    void takeDisconnection();
    void takeRegistration(const QString &service);
    void takeLoss(const QString &service);

private:
    explicit BusName(const QString &service);

    void request();
    void takeReply(const QDBusPendingCall &reply);
    void setOwned(bool isOwned);

    const QString m_service;
    QDBusConnection m_bus;
    QSharedPointer<BusName> m_untilReply; ///< to itself: what is to be released is not known before
    bool m_isRequested = false; ///< by this object: it has the name or waits for it
    bool m_isOwned = false;
};
