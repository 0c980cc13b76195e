// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "common/velkasettings_export.h"

#include <QDebug>
#include <QString>
#include <QStringList>

// Untrusted texts as they are logged: on one line, and without characters that would change how they are shown.

/// How much is logged of a text of any length, in characters.
constexpr int MaxLoggedLength = 100;

/// A text that QDebug prints as it is.
struct LogText {
    QString text;
};

VELKASETTINGS_PRIVATE_EXPORT QDebug operator<<(QDebug debug, const LogText &text);

/// Returns @p value as QDebug prints it.
VELKASETTINGS_PRIVATE_EXPORT LogText quoted(const QString &value);
/// Returns @p list in the form ("a", "b").
LogText quoted(const QStringList &list);
template<typename Value>
LogText quoted(const Value &value);
/// Returns @p value as QDebug prints it after noquote().
template<typename Value>
LogText unquoted(const Value &value);

/// Returns what was printed with escapes where QDebug has left something to escape.
LogText toLogText(const QString &printed);

template<typename Value>
LogText quoted(const Value &value)
{
    QString printed;
    QDebug(&printed).nospace() << value;
    return toLogText(printed);
}

template<typename Value>
LogText unquoted(const Value &value)
{
    QString printed;
    QDebug(&printed).nospace().noquote() << value;
    return toLogText(printed);
}
