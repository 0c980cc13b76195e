// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "jsonmistake.h"

#include <QByteArray>
#include <QVector>

#include <optional>

/// Looks for the first place in a text where it stops to be JSON, without recursion.
class JsonScanner
{
public:
    explicit JsonScanner(const QByteArray &text);
    std::optional<JsonMistake> scan();

private:
    enum Expected { Value, FirstElement, FirstKey, Key, Colon, Next };
    struct Open {
        char bracket;
        int offset;
    };

    char at(int offset) const;
    void skipBlanks();
    QByteArray wordAt(int offset) const;
    bool isInObject() const;

    void step();
    void readValue();
    void readKey();
    void readColon();
    void readNext();
    void readAfterEnd();
    void readString(Expected next);
    void readNumber();
    void readWord();
    void open();
    void close();
    void readEnd();
    bool failForeignQuotes();
    bool failComment();
    void failWrongBracket();
    void failAfterValue();
    void fail(int offset, const QString &text);
    QString placeOf(const Open &open) const;

    const QByteArray &m_text;
    int m_offset;
    Expected m_expected = Value;
    QVector<Open> m_open;
    int m_lastStart = 0; ///< of the last token
    int m_lastEnd = 0; ///< behind it
    std::optional<JsonMistake> m_mistake;
};
