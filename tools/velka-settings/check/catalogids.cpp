// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "catalogids.h"

#include <QFile>
#include <QtEndian>

namespace Check
{
namespace
{
constexpr int MagicSize = 16;

// The format of compiled catalogs, as QTranslator reads it
enum Section : uchar { Messages = 0x69 };
enum MessageTag : uchar { End = 1, SourceText = 6 };

/// Reads numbers and texts from the front of bytes. What is behind their end reads as 0 and empty.
class ByteReader
{
public:
    explicit ByteReader(const QByteArray &bytes, int offset = 0)
        : m_bytes(bytes)
        , m_offset(offset)
    {
    }

    bool isAtEnd() const
    {
        return m_offset >= m_bytes.size();
    }

    uchar readByte()
    {
        return isAtEnd() ? 0 : uchar(m_bytes.at(m_offset++));
    }

    QByteArray readBlock()
    {
        if (m_bytes.size() - m_offset < int(sizeof(quint32))) {
            m_offset = m_bytes.size();
            return {};
        }
        const auto size = qFromBigEndian<quint32>(m_bytes.constData() + m_offset);
        m_offset += int(sizeof(quint32));
        const int available = m_bytes.size() - m_offset;
        const int length = size == UINT32_MAX ? 0 : int(qMin(size, quint32(available)));
        QByteArray block = m_bytes.mid(m_offset, length);
        m_offset += length;
        return block;
    }

private:
    const QByteArray &m_bytes;
    int m_offset;
};

bool looksLikeId(const QByteArray &text)
{
    return !text.contains(' ') && (text.contains('-') || text.contains('_'));
}

QByteArray messagesOf(const QByteArray &catalog)
{
    ByteReader sections(catalog, MagicSize);
    while (!sections.isAtEnd()) {
        const uchar section = sections.readByte();
        QByteArray content = sections.readBlock();
        if (section == Messages) {
            return content;
        }
    }
    return {};
}
}

bool lacksIds(const QString &file)
{
    QFile catalog(file);
    if (!catalog.open(QIODevice::ReadOnly)) {
        return false;
    }
    const QByteArray messages = messagesOf(catalog.readAll());
    int ids = 0;
    int others = 0;
    for (ByteReader reader(messages); !reader.isAtEnd();) {
        const uchar tag = reader.readByte();
        if (tag == SourceText) {
            ++(looksLikeId(reader.readBlock()) ? ids : others);
        } else if (tag != End) {
            reader.readBlock();
        }
    }
    return others > ids;
}
}
