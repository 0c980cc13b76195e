// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "terminal.h"

#include "printable.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <unistd.h>

namespace
{
/// See https://no-color.org.
bool wantsColours(std::FILE *stream)
{
    return isatty(fileno(stream)) != 0 && qEnvironmentVariableIsEmpty("NO_COLOR") && qgetenv("TERM") != "dumb";
}
}

Terminal::Terminal(std::FILE *stream)
    : m_stream(stream)
    , m_hasColours(wantsColours(stream))
{
}

bool Terminal::hasColours() const
{
    return m_hasColours;
}

void Terminal::writeLine(const QString &line) const
{
    const QByteArray utf8 = line.toUtf8() + '\n';
    std::fwrite(utf8.constData(), 1, size_t(utf8.size()), m_stream);
}

void Terminal::writeJson(const QJsonObject &object) const
{
    const QByteArray json = printableJson(QJsonDocument(object).toJson());
    std::fwrite(json.constData(), 1, size_t(json.size()), m_stream);
}

QString Terminal::strong(const QString &text) const
{
    return styled("1", text);
}

QString Terminal::faint(const QString &text) const
{
    return styled("2", text);
}

QString Terminal::good(const QString &text) const
{
    return styled("32", text);
}

QString Terminal::bad(const QString &text) const
{
    return styled("31", text);
}

QString Terminal::notable(const QString &text) const
{
    return styled("33", text);
}

QString Terminal::styled(const char *code, const QString &text) const
{
    return m_hasColours ? QStringLiteral("\x1b[%1m%2\x1b[0m").arg(QLatin1String(code), text) : text;
}
