// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "knownkeys.h"

#include "schema.h"

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

QStringList action()
{
    return params().filter(QStringLiteral("-"));
}
}
