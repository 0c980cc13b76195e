// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "contentname.h"

#include <QCryptographicHash>

namespace
{
constexpr int Digits = 6;
const QString s_suffix = QStringLiteral(".json");

QString endWithHash(const QByteArray &content)
{
    const QByteArray hash = QCryptographicHash::hash(content, QCryptographicHash::Sha256).toHex().left(Digits);
    return QLatin1Char('-') + QString::fromLatin1(hash) + s_suffix;
}
}

QString ContentName::of(const QString &name, const QByteArray &content)
{
    const QString end = endWithHash(content);
    return name.endsWith(end) ? name : name.chopped(s_suffix.size()) + end;
}

QString ContentName::withoutHash(const QString &name)
{
    return name.chopped(s_suffix.size() + Digits + 1) + s_suffix;
}

bool ContentName::isOlder(const QString &name, const QByteArray &content, const QString &current)
{
    return name != current && name.endsWith(endWithHash(content)) && withoutHash(name) == withoutHash(current);
}
