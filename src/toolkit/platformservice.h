// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "applications/serviceoutcomes.h"

#include <QObject>

/// The state of one of the platform's services, as the last call of this process to it has shown.
class PlatformService : public QObject
{
    Q_OBJECT
    Q_PROPERTY(State state READ state NOTIFY changed)
    /// The name of the last error on D-Bus. Empty if the last call succeeded.
    Q_PROPERTY(QString errorName READ errorName NOTIFY changed)
    Q_PROPERTY(QString errorString READ errorString NOTIFY changed)

public:
    enum State {
        Unknown, ///< it was not called yet, or the first call is running
        Working,
        Silent, ///< it did not reply in time, or died before it did
        Failing, ///< it replied with an error, or with values of other types
        Absent, ///< it is not on the bus, or there is no bus
    };
    Q_ENUM(State)

    PlatformService(PlatformServiceName name, QObject *parent);

    State state() const;
    QString errorName() const;
    QString errorString() const;

Q_SIGNALS:
    void changed();

private:
    void update();

    const PlatformServiceName m_name;
    State m_state = Unknown;
    QDBusError m_error;
};
