// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "toolkit/entrypath.h"

QStringList EntryPath::names(const QString &path)
{
    return path.split(QLatin1Char('/'), Qt::SkipEmptyParts);
}

QString EntryPath::joined(const QStringList &names)
{
    return names.join(QLatin1Char('/'));
}

QString EntryPath::normalized(const QString &path)
{
    return joined(names(path));
}
