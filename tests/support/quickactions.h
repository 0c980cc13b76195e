// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "dbuspeer.h"

#include <QList>
#include <QString>
#include <QVariantMap>
#include <QVector>

/// Actions, the services that they call, and the messages that QuickActionReader logs.
namespace QuickActions
{
const QString s_service = QStringLiteral("com.velka.service");
const QString s_missing = QStringLiteral("com.velka.missing");
const QString s_path = QStringLiteral("/com/velka/object");
const QString s_interface = QStringLiteral("com.velka.interface");
const QString s_method = QStringLiteral("act");

const QString s_noReply = QStringLiteral("org.freedesktop.DBus.Error.NoReply");
const QString s_serviceUnknown = QStringLiteral("org.freedesktop.DBus.Error.ServiceUnknown");

QVariantMap actionOf(const QString &service);
QVariantMap actionOf(const QString &service, const QString &package);
QVariantMap with(QVariantMap action, const char *key, const QVariant &value);

QString logged(const QString &message);
/// Returns the message for @p action after its call has failed with @p error, a name and a text.
QString failure(const QVariantMap &action, const QString &error);
QString unknownFailure(const QString &service);
/// Returns the message for @p action if its call was not sent.
QString queueFailure(const QVariantMap &action, const QString &message);

/// Returns when the bus has received all messages of this process, and this process the earlier replies.
void settle();
/// Returns when this process has received the errors on the bus, and the bus the calls that they cause.
void settleFailures();

/// Returns Python code that replies with an error.
QString raise(const QString &error, const QString &message);

/// The service that actions call.
class Target : public DBusPeer
{
public:
    explicit Target(const QString &service = s_service, const QString &code = {}, const QString &signature = {},
                    const QString &resultSignature = {});

    QList<QVariantList> calls();
};

class Store : public DBusPeer
{
public:
    Store();

    QList<QVariantList> calls();
};

/// Triggers @p actions with one reader, and returns what it has logged when it has received their errors: those of
/// @p target, and those of the bus.
QStringList messagesOf(const QVector<QVariantMap> &actions, Target *target = nullptr);

QList<QVariantList> noCalls();
QVariantList callFor(const QString &package);
/// Returns @p value in @p depth nested lists.
QVariant inLists(int depth, QVariant value);
}
