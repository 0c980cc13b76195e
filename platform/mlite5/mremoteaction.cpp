// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "mremoteaction.h"

#include <QDataStream>
#include <QIODevice>

namespace
{
QString encoded(const QVariant &argument)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << argument;
    return QString::fromLatin1(bytes.toBase64());
}
}

MRemoteAction::MRemoteAction(const QString &serviceName, const QString &objectPath, const QString &interface,
                             const QString &methodName, const QList<QVariant> &arguments, QObject *parent)
    : QObject(parent)
    , m_names{serviceName, objectPath, interface, methodName}
    , m_arguments(arguments)
{
}

QString MRemoteAction::toString() const
{
    QStringList parts = m_names;
    for (const QVariant &argument : m_arguments) {
        parts.append(encoded(argument));
    }
    return parts.join(QLatin1Char(' '));
}

#include "moc_mremoteaction.cpp"
