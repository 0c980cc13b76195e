// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QString>
#include <QStringList>

inline QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

/// Returns the names of a path that is written with slashes.
inline QStringList path(const char *joined)
{
    return text(joined).split(QLatin1Char('/'), Qt::SkipEmptyParts);
}

/// Returns names that are written with spaces between them.
inline QStringList names(const char *spaced)
{
    return text(spaced).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}
