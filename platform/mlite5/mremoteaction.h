// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QObject>
#include <QVariant>

/// A D-Bus method call written as one line of text.
class Q_DECL_EXPORT MRemoteAction : public QObject
{
    Q_OBJECT

public:
    MRemoteAction(const QString &serviceName, const QString &objectPath, const QString &interface,
                  const QString &methodName, const QList<QVariant> &arguments = {}, QObject *parent = nullptr);

    /**
     * Returns service, path, interface and method, then for each argument its QVariant, serialised by QDataStream and
     * in Base64, all separated by single spaces.
     */
    QString toString() const;

private:
    const QStringList m_names;
    const QList<QVariant> m_arguments;
};
