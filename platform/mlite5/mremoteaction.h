// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef MREMOTEACTION_H
#define MREMOTEACTION_H

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
     * Service, path, interface and method, then for each argument the Base64 of its QVariant as QDataStream
     * writes it, all separated by single blanks.
     */
    QString toString() const;

private:
    const QStringList m_names;
    const QList<QVariant> m_arguments;
};

#endif
