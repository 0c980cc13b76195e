// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "toolkit/applicationpath.h"

#include <QRegularExpression>
#include <QString>

QString applicationPath(const QString &service)
{
    static const QRegularExpression wellKnown(
        QStringLiteral("\\A(?=.{1,255}\\z)[A-Za-z_-][A-Za-z0-9_-]*(\\.[A-Za-z_-][A-Za-z0-9_-]*)+\\z"));
    if (!wellKnown.match(service).hasMatch()) {
        return {};
    }
    QString path = QLatin1Char('/') + service;
    return path.replace(QLatin1Char('.'), QLatin1Char('/')).replace(QLatin1Char('-'), QLatin1Char('_'));
}
