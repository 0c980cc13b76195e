// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "knownkeys.h"

#include "nearest.h"
#include "schema.h"

#include <QHash>

namespace Check::KnownKeys
{
const QStringList &topLevel()
{
    static const QStringList names = schemaProperties(registrationSchema()).keys();
    return names;
}

const QStringList &entry()
{
    static const QStringList names = schemaProperties(schemaDefinition(QStringLiteral("entry"))).keys();
    return names;
}

const QStringList &params()
{
    static const QStringList names = schemaProperties(schemaDefinition(QStringLiteral("params"))).keys();
    return names;
}

QString meantBy(const QString &key, const Written &object, const QStringList &known)
{
    static const QHash<QString, QString> others{{QStringLiteral("parameters"), QStringLiteral("params")},
                                                {QStringLiteral("name"), QStringLiteral("title")},
                                                {QStringLiteral("label"), QStringLiteral("title")},
                                                {QStringLiteral("entry"), QStringLiteral("entries")},
                                                {QStringLiteral("items"), QStringLiteral("entries")}};
    const QString meant = nearest(key, known);
    const QString other = others.value(key);
    const bool isOther = meant.isEmpty() && known.contains(other)
                         && !object.member(QLatin1String(other.toLatin1()));
    return isOther ? other : meant;
}

QStringList action()
{
    return params().filter(QStringLiteral("-"));
}
}
