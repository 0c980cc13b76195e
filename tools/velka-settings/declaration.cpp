// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "declaration.h"

#include "registry/registrationfile.h"

QString Declaration::node() const
{
    return splitPath(path).join(QLatin1Char('/'));
}

QString Declaration::place() const
{
    return QStringLiteral("%1, entry %2").arg(file).arg(index + 1);
}
