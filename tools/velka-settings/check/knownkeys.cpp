// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "knownkeys.h"

#include "document.h"
#include "schema.h"

namespace Check::KnownKeys
{
namespace
{
QStringList propertiesOf(const Json::Value &schema)
{
    QStringList names;
    for (const std::string &name : schema["properties"].getMemberNames()) {
        names.append(toText(name));
    }
    return names;
}
}

const QStringList &topLevel()
{
    static const QStringList names = propertiesOf(registrationSchema());
    return names;
}

const QStringList &entry()
{
    static const QStringList names = propertiesOf(registrationSchema()["definitions"]["entry"]);
    return names;
}

const QStringList &params()
{
    static const QStringList names = propertiesOf(registrationSchema()["definitions"]["params"]);
    return names;
}

QStringList action()
{
    return params().filter(QStringLiteral("-"));
}
}
