// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "maintenance.h"

#include <QDBusMessage>
#include <QDebug>

int Maintenance::calls() const
{
    return m_calls;
}

QString Maintenance::lastCall() const
{
    return m_lastCall;
}

void Maintenance::clearHistory(double)
{
    record(QStringLiteral("done"));
}

void Maintenance::freeSpace(const QString &, double, bool, const QVariantList &, const QVariantMap &)
{
    record(QStringLiteral("done"));
}

void Maintenance::formatCard()
{
    record(QStringLiteral("failed"));
    sendErrorReply(QStringLiteral("org.example.Maintenance.Error.NoCard"), QStringLiteral("There is no card"));
}

void Maintenance::checkForUpdates()
{
    record(QStringLiteral("unanswered"));
    setDelayedReply(true);
}

void Maintenance::record(const QString &outcome)
{
    const QString method = message().member();
    ++m_calls;
    m_lastCall = method + QLatin1Char(' ') + outcome;
    qInfo().noquote() << "Call" << m_calls << method << message().signature() << outcome;
    Q_EMIT called(method, outcome);
}

#include "moc_maintenance.cpp"
