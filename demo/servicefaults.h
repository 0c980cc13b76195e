// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QObject>
#include <QStringList>
#include <QVariantMap>

/// Lets the platform's services of the demo reply slowly, with errors or with wrong values.
class ServiceFaults : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QStringList services READ services CONSTANT)
    Q_PROPERTY(QVariantMap faults READ faults NOTIFY faultsChanged)

public:
    explicit ServiceFaults(QObject *parent = nullptr);

    QStringList services() const;
    QVariantMap faults() const; ///< "none", "slow", "fail" or "nonsense", by service
    /// The fault is set when faultsChanged() is emitted.
    Q_INVOKABLE void setFault(const QString &id, const QString &fault);

Q_SIGNALS:
    void faultsChanged();

private:
    QVariantMap m_faults;
};
