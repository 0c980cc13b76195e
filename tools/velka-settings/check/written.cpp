// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "written.h"

#include "document.h"
#include "place.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

namespace Check
{
namespace
{
bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// Returns whether there are digits on both sides of the point of @p number, if it has one. Qt does not ask for them.
bool isStandardNumber(const QByteArray &number)
{
    const int point = number.indexOf('.');
    if (point < 0) {
        return true;
    }
    return point > 0 && isDigit(number.at(point - 1)) && point + 1 < number.size()
           && isDigit(number.at(point + 1));
}

QString nameOfControl(char c)
{
    switch (c) {
    case '\t':
        return QStringLiteral("raw tab");
    case '\n':
        return QStringLiteral("raw line break");
    case '\a':
        return QStringLiteral("raw bell character");
    default:
        return QStringLiteral("raw control character");
    }
}

QString escapeOfControl(char c)
{
    if (c == '\t') {
        return QStringLiteral("\\t");
    }
    return c == '\n' ? QStringLiteral("\\n") : QStringLiteral("\\u%1").arg(int(c), 4, 16, QLatin1Char('0'));
}

QString decoded(const QByteArray &literal)
{
    if (!literal.contains('\\')) {
        return QString::fromUtf8(literal.constData() + 1, literal.size() - 2);
    }
    return QJsonDocument::fromJson('[' + literal + ']').array().at(0).toString();
}

/// Reads values from the front of a text. Qt's reader has limited the recursion to 1,024 levels.
class Reader
{
public:
    Reader(const QByteArray &text, Findings *findings)
        : m_text(text)
        , m_findings(findings)
        , m_offset(startOf(text))
    {
    }

    Written readValue();

private:
    char peek() const;
    bool take(char c);
    void skipBlanks();
    QByteArray literalFrom(int start) const;

    void readElements(Written *array);
    void readMembers(Written *object);
    void readString();
    void readNumber(Written *number);

    const QByteArray &m_text;
    Findings *const m_findings;
    int m_offset;
};

char Reader::peek() const
{
    return m_offset < m_text.size() ? m_text.at(m_offset) : '\0';
}

bool Reader::take(char c)
{
    skipBlanks();
    const bool isNext = peek() == c;
    m_offset += isNext ? 1 : 0;
    return isNext;
}

void Reader::skipBlanks()
{
    while (peek() == ' ' || peek() == '\t' || peek() == '\n' || peek() == '\r') {
        ++m_offset;
    }
}

QByteArray Reader::literalFrom(int start) const
{
    return m_text.mid(start, m_offset - start);
}

Written Reader::readValue()
{
    skipBlanks();
    Written value{Written::Null, m_offset, m_offset, -1, {}, {}};
    switch (peek()) {
    case '{':
        value.kind = Written::Object;
        readMembers(&value);
        break;
    case '[':
        value.kind = Written::Array;
        readElements(&value);
        break;
    case '"':
        value.kind = Written::String;
        readString();
        break;
    case 'n':
        m_offset += int(qstrlen("null"));
        break;
    case 't':
    case 'f':
        value.kind = Written::Boolean;
        m_offset += int(peek() == 't' ? qstrlen("true") : qstrlen("false"));
        break;
    default:
        readNumber(&value);
    }
    value.end = m_offset;
    return value;
}

void Reader::readElements(Written *array)
{
    take('[');
    if (take(']')) {
        return;
    }
    do {
        array->children.push_back(readValue());
    } while (take(','));
    take(']');
}

void Reader::readMembers(Written *object)
{
    take('{');
    if (take('}')) {
        return;
    }
    QHash<QString, std::size_t> places;
    do {
        skipBlanks();
        const int keyStart = m_offset;
        readString();
        const QString key = decoded(literalFrom(keyStart));
        take(':');
        Written value = readValue();
        value.keyStart = keyStart;
        value.key = key;
        const auto earlier = places.constFind(key);
        if (earlier == places.cend()) {
            places.insert(key, object->children.size());
            object->children.push_back(std::move(value));
        } else {
            m_findings->atOffset(
                Tag::DoubledKey, keyStart,
                QStringLiteral("this object has the key %1 already: its earlier value is lost").arg(quoted(key)));
            object->children[*earlier] = std::move(value);
        }
    } while (take(','));
    take('}');
}

void Reader::readString()
{
    static const QByteArray escapes = "\"\\/bfnrtu";
    const int start = m_offset;
    bool hasCharacterCode = false;
    bool hasRawControl = false;
    ++m_offset;
    while (m_offset < m_text.size() && peek() != '"') {
        if (peek() == '\\') {
            ++m_offset;
            hasCharacterCode = hasCharacterCode || peek() == 'u';
            if (!escapes.contains(peek())) {
                m_findings->atOffset(
                    Tag::NotPortable, m_offset - 1,
                    QStringLiteral("JSON has no such escape sequence: other readers refuse the file; "
                                   "write \\\\ for a backslash"));
            }
        } else if (uchar(peek()) < ' ' && !hasRawControl) {
            hasRawControl = true;
            m_findings->atOffset(
                Tag::NotPortable, m_offset,
                QStringLiteral("JSON allows no %1 in a text: the library reads it, other readers refuse the file; "
                               "write %2")
                    .arg(nameOfControl(peek()), escapeOfControl(peek())));
        }
        ++m_offset;
    }
    ++m_offset;
    if (hasCharacterCode && !decoded(literalFrom(start)).isValidUtf16()) {
        m_findings->atOffset(Tag::NotPortable, start,
                             QStringLiteral("this text has an unpaired surrogate, which is no character"));
    }
}

void Reader::readNumber(Written *number)
{
    static const QByteArray characters = "+-.0123456789eE";
    while (characters.contains(peek())) {
        ++m_offset;
    }
    const QByteArray literal = literalFrom(number->start);
    const bool isInteger = std::all_of(literal.cbegin(), literal.cend(),
                                       [](char c) { return c == '-' || isDigit(c); });
    number->kind = isInteger ? Written::Integer : Written::Fraction;
    if (!isStandardNumber(literal)) {
        m_findings->atOffset(
            Tag::NotPortable, number->start,
            QStringLiteral("JSON requires digits on both sides of the decimal point: other readers refuse "
                           "the file"));
    }
}
}

bool Written::isNumber() const
{
    return kind == Integer || kind == Fraction;
}

const Written *Written::member(QLatin1String key) const
{
    const auto found = std::find_if(children.cbegin(), children.cend(), [key](const Written &child) {
        return child.keyStart >= 0 && child.key == key;
    });
    return found == children.cend() ? nullptr : &*found;
}

Written readWritten(const QByteArray &text, Findings *findings)
{
    return Reader(text, findings).readValue();
}
}
