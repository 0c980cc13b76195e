// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QString>

#include <cstdio>

class QJsonObject;

/// Writes text in UTF-8, with colours if the stream is a terminal that shows them, and JSON.
class Terminal
{
public:
    explicit Terminal(std::FILE *stream);

    bool hasColours() const;
    void writeLine(const QString &line) const;
    void writeJson(const QJsonObject &object) const;

    QString strong(const QString &text) const;
    QString faint(const QString &text) const;
    QString good(const QString &text) const;
    QString bad(const QString &text) const;
    QString notable(const QString &text) const;

private:
    QString styled(const char *code, const QString &text) const;

    std::FILE *const m_stream;
    const bool m_hasColours;
};
