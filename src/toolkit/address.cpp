// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "toolkit/address.h"

#include <QByteArray>
#include <QRegularExpression>
#include <QStringList>
#include <QUrl>

#include <algorithm>
#include <optional>

namespace
{
const QString s_scheme = QStringLiteral("velka-settings:");

bool hasControls(const QString &text)
{
    return std::any_of(text.cbegin(), text.cend(),
                       [](QChar character) { return character.category() == QChar::Other_Control; });
}

bool isDots(const QString &name)
{
    return name == QLatin1String(".") || name == QLatin1String("..");
}

/// Returns the decoded text. Nothing if an escape is broken or stands for a slash, or if the bytes are no UTF-8.
std::optional<QString> decoded(const QString &encoded)
{
    static const QRegularExpression bad(QStringLiteral("%(?![0-9A-Fa-f]{2})|%2[Ff]"));
    if (encoded.contains(bad) || !encoded.isValidUtf16()) {
        return {};
    }
    const QByteArray bytes = QByteArray::fromPercentEncoding(encoded.toUtf8());
    const QString text = QString::fromUtf8(bytes.constData(), bytes.size()); // also what follows a null
    return text.toUtf8() == bytes ? std::make_optional(text) : std::nullopt;
}

Address refused(const char *error)
{
    return {{}, QLatin1String(error)};
}

/// Reads a path without escapes.
Address ofDecoded(const QString &path)
{
    if (hasControls(path)) {
        return refused("it has control characters");
    }
    const QStringList names = path.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    if (names.isEmpty()) {
        return refused("it names no entry");
    }
    if (std::any_of(names.cbegin(), names.cend(), isDots)) {
        return refused(R"("." and ".." are no names)");
    }
    return {names.join(QLatin1Char('/')), {}};
}

bool hasScheme(const QString &text)
{
    static const QRegularExpression scheme(QStringLiteral("^[^/]*:"));
    return text.contains(scheme);
}
}

Address Address::ofUrl(const QString &url)
{
    static const QRegularExpression otherParts(QStringLiteral("^(?!/)|^//[^/]|[?#]"));
    if (url.size() > MaxLength) {
        return refused("it is too long");
    }
    if (!url.startsWith(s_scheme, Qt::CaseInsensitive)) {
        return refused("it is no velka-settings: URL");
    }
    const QString path = url.mid(s_scheme.size());
    if (path.contains(otherParts)) {
        return refused("it has other parts than /PATH");
    }
    const std::optional<QString> names = decoded(path);
    return names ? ofDecoded(*names) : refused("it is wrongly encoded");
}

Address Address::of(const QString &text)
{
    if (text.size() > MaxLength) {
        return refused("it is too long");
    }
    if (!text.isValidUtf16()) {
        return refused("it is wrongly encoded");
    }
    return ofUrl(hasScheme(text) ? text : urlOf(text));
}

QString Address::urlOf(const QString &path)
{
    const QString names = path.split(QLatin1Char('/'), Qt::SkipEmptyParts).join(QLatin1Char('/'));
    return s_scheme + QLatin1Char('/') + QLatin1String(QUrl::toPercentEncoding(names, "/"));
}
