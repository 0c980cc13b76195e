// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "common/logtext.h"

#include "printable.h"

QDebug operator<<(QDebug debug, const LogText &text)
{
    const QDebugStateSaver saver(debug);
    debug.noquote() << text.text;
    return debug;
}

LogText quoted(const QString &value)
{
    return quoted<QString>(value);
}

LogText quoted(const QStringList &list)
{
    QStringList texts;
    for (const QString &element : list) {
        texts.append(quoted(element).text);
    }
    return {QLatin1Char('(') + texts.join(QStringLiteral(", ")) + QLatin1Char(')')};
}

LogText toLogText(const QString &printed)
{
    return {printable(printed)};
}
