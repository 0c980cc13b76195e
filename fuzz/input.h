// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QByteArray>

#include <cstddef>
#include <cstdint>

/// Reads numbers and bytes from the start of an input. Reads zeros after its end.
class Input
{
public:
    Input(const std::uint8_t *data, std::size_t size)
        : m_bytes(QByteArray::fromRawData(reinterpret_cast<const char *>(data), int(size)))
    {
    }

    bool atEnd() const
    {
        return m_position == m_bytes.size();
    }

    int byte()
    {
        return atEnd() ? 0 : std::uint8_t(m_bytes.at(m_position++));
    }

    /// Returns a number from 0 up to, but not including, @p limit, which is at most 256.
    int below(int limit)
    {
        return byte() % limit;
    }

    bool flag()
    {
        return byte() % 2 != 0;
    }

    QByteArray take(int size)
    {
        const QByteArray bytes = m_bytes.mid(m_position, size);
        m_position += bytes.size();
        return bytes;
    }

    QByteArray rest()
    {
        return take(m_bytes.size());
    }

private:
    QByteArray m_bytes;
    int m_position = 0;
};
