// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "place.h"

#include "blank.h"

#include <QJsonParseError>

namespace
{
constexpr char ByteOrderMark[] = "\xEF\xBB\xBF";

bool isContinuation(char c)
{
    return (uchar(c) & 0xC0U) == 0x80U;
}

int columnsOf(char c)
{
    if (isContinuation(c)) {
        return 0;
    }
    return uchar(c) >= 0xF0U ? 2 : 1; // a surrogate pair
}

/// Returns whether the offset of @p error is that of the byte itself, and not of one after it.
bool isExact(QJsonParseError::ParseError error)
{
    return error == QJsonParseError::GarbageAtEnd || error == QJsonParseError::IllegalNumber
           || error == QJsonParseError::IllegalUTF8String || error == QJsonParseError::IllegalEscapeSequence;
}
}

PlaceFinder::PlaceFinder(const QByteArray &text)
    : m_text(text)
    , m_offset(startOf(text))
{
}

Place PlaceFinder::at(int offset)
{
    if (offset < m_offset) {
        m_offset = startOf(m_text);
        m_place = {};
    }
    for (; m_offset < offset; ++m_offset) {
        if (m_text.at(m_offset) == '\n') {
            m_place = {m_place.line + 1, 1};
        } else {
            m_place.column += columnsOf(m_text.at(m_offset));
        }
    }
    return m_place;
}

int startOf(const QByteArray &text)
{
    return text.startsWith(ByteOrderMark) ? int(qstrlen(ByteOrderMark)) : 0;
}

int offsetOfError(const QByteArray &text, const QJsonParseError &error)
{
    int offset = qMin(error.offset, text.size());
    if (isExact(error.error)) {
        return offset;
    }
    // The parser has passed the byte, and in some cases the white space after it.
    do {
        --offset;
    } while (offset > 0 && isBlank(text.at(offset)));
    return qMax(0, offset);
}
