// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QDBusContext>
#include <QObject>
#include <QVariantMap>

/// The service that actions of the demo call. It does nothing but count, log and announce each call.
class Maintenance : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_PROPERTY(int calls READ calls)
    Q_PROPERTY(QString lastCall READ lastCall)

public:
    int calls() const;
    QString lastCall() const; ///< the method and its outcome

public Q_SLOTS:
    void clearHistory(double days);
    void freeSpace(const QString &volume, double megabytes, bool emptiesTrash, const QVariantList &apps,
                   const QVariantMap &options);
    void formatCard();
    void checkForUpdates();

Q_SIGNALS:
    void called(const QString &method, const QString &outcome);

private:
    void record(const QString &outcome);

    int m_calls = 0;
    QString m_lastCall;
};
