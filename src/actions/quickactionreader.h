// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QObject>
#include <QVariantMap>

class QDBusError;
class QDBusMessage;

/**
 * Performs the D-Bus method calls that entries of type "action" describe in their "params", on the session bus and
 * without waiting for an answer. A call that fails is reported with qmlInfo(), as the reader's. When the service is
 * missing, the store client is asked to show the package that the action requires. RemoteCall lists an action's keys.
 */
class QuickActionReader : public QObject
{
    Q_OBJECT

public:
    explicit QuickActionReader(QObject *parent);

    void trigger(const QVariantMap &action);
    /// Sends the call of @p action; an error is delivered to @p errorSlot, a normalised signature of this object.
    void sendRemoteCall(const QVariantMap &action, const char *errorSlot);
    void showStorePage(const QString &packageName);
    /// The call of @p action as MRemoteAction writes it. Sends nothing.
    QString remoteActionString(const QVariantMap &action) const;

private Q_SLOTS:
    void triggerActionError(const QDBusError &error, const QDBusMessage &msg);

private:
    /// Shows the package of the triggered action that made @p call, if it has one.
    void showPackageOf(const QDBusMessage &call);

    QList<QVariantMap> m_triggeredActions; ///< each once; what an error is traced back to
};
