// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QString>
#include <QTest>

/// Returns a dconf key that no other test function or data row uses.
inline QString testKey()
{
    QString key = QStringLiteral("/test/") + QLatin1String(QTest::currentTestFunction());
    if (QTest::currentDataTag()) {
        key += QLatin1Char('/') + QString::fromLatin1(QByteArray(QTest::currentDataTag()).toHex());
    }
    return key;
}
