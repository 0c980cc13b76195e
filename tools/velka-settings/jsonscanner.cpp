// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "jsonscanner.h"

#include "blank.h"
#include "place.h"
#include "printable.h"

#include <QRegularExpression>

#include <algorithm>

namespace
{
bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == '$' || uchar(c) >= 0x80;
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

QString shown(const QByteArray &text)
{
    constexpr int MaxShown = 40;
    const QString all = QString::fromUtf8(text);
    return printable(all.size() > MaxShown ? all.left(MaxShown) + QStringLiteral("…") : all);
}

/// Returns how to write @p word, a value without quotation marks.
QString correctionOf(const QByteArray &word)
{
    const QByteArray lower = word.toLower();
    if (lower == "true" || lower == "false" || lower == "null") {
        return QStringLiteral("write %1 in lower case: %2").arg(shown(word), shown(lower));
    }
    if (lower == "none" || lower == "nil" || lower == "undefined") {
        return QStringLiteral("JSON has no %1: remove the key").arg(shown(word));
    }
    if (lower == "yes" || lower == "on") {
        return QStringLiteral("JSON has no %1: write true").arg(shown(word));
    }
    if (lower == "no" || lower == "off") {
        return QStringLiteral("JSON has no %1: write false").arg(shown(word));
    }
    if (lower == "nan" || lower == "infinity" || lower == "inf") {
        return QStringLiteral("JSON has no number %1").arg(shown(word));
    }
    return QStringLiteral("a text needs quotation marks: write \"%1\"").arg(shown(word));
}

/// Returns how to write @p number. Empty when Qt reads it.
QString correctionOfNumber(const QByteArray &number)
{
    static const QRegularExpression valid(QStringLiteral(R"(\A-?(?:0|[1-9]\d*)?(?:\.\d*)?(?:[eE][-+]?\d+)?\z)"));
    const QString text = QString::fromUtf8(number);
    const QString digits = text.mid(text.startsWith(QLatin1Char('+')) || text.startsWith(QLatin1Char('-')) ? 1
                                                                                                           : 0);
    bool isHexadecimal = false;
    const qlonglong value = digits.startsWith(QLatin1String("0x"), Qt::CaseInsensitive)
                                ? digits.toLongLong(&isHexadecimal, 16)
                                : 0;
    if (isHexadecimal) {
        return QStringLiteral("JSON has no hexadecimal numbers: write %1").arg(value);
    }
    if (text.startsWith(QLatin1Char('+'))) {
        return QStringLiteral("a JSON number has no plus sign: write %1").arg(shown(number.mid(1)));
    }
    if (digits.size() > 1 && digits.at(0) == QLatin1Char('0') && digits.at(1).isDigit()) {
        const QString sign = text.left(text.size() - digits.size());
        QString plain = digits;
        while (plain.size() > 1 && plain.at(0) == QLatin1Char('0') && plain.at(1).isDigit()) {
            plain.remove(0, 1);
        }
        return QStringLiteral("a JSON number has no leading zeros: write %1").arg(sign + printable(plain));
    }
    const bool hasDigit = std::any_of(number.cbegin(), number.cend(), isDigit);
    if (!hasDigit || !valid.match(text).hasMatch()) {
        return QStringLiteral("%1 is not a number: a text needs quotation marks").arg(shown(number));
    }
    return {};
}
}

JsonScanner::JsonScanner(const QByteArray &text)
    : m_text(text)
    , m_offset(startOf(text))
{
}

std::optional<JsonMistake> JsonScanner::scan()
{
    while (!m_mistake) {
        skipBlanks();
        if (m_offset >= m_text.size()) {
            readEnd();
            break;
        }
        if (!failComment()) {
            step();
        }
    }
    return m_mistake;
}

char JsonScanner::at(int offset) const
{
    return offset < m_text.size() ? m_text.at(offset) : '\0';
}

void JsonScanner::skipBlanks()
{
    while (m_offset < m_text.size() && isBlank(m_text.at(m_offset))) {
        ++m_offset;
    }
}

QByteArray JsonScanner::wordAt(int offset) const
{
    int end = offset;
    while (end < m_text.size() && (isLetter(at(end)) || isDigit(at(end)) || at(end) == '-' || at(end) == '.')) {
        ++end;
    }
    return m_text.mid(offset, end - offset);
}

bool JsonScanner::isInObject() const
{
    return !m_open.isEmpty() && m_open.last().bracket == '{';
}

void JsonScanner::step()
{
    switch (m_expected) {
    case Value:
    case FirstElement:
        readValue();
        break;
    case FirstKey:
    case Key:
        readKey();
        break;
    case Colon:
        readColon();
        break;
    case Next:
        m_open.isEmpty() ? readAfterEnd() : readNext();
        break;
    }
}

void JsonScanner::readValue()
{
    const char c = at(m_offset);
    if (m_open.isEmpty() && c != '{' && c != '[') {
        fail(m_offset, QStringLiteral("a registration file begins with \"{\""));
    } else if (c == '{' || c == '[') {
        open();
    } else if (c == ']' && m_expected == FirstElement) {
        close();
    } else if (c == '"') {
        readString(Next);
    } else if (isDigit(c) || c == '-' || c == '+' || c == '.') {
        readNumber();
    } else if (failForeignQuotes()) {
        return;
    } else if (isLetter(c)) {
        readWord();
    } else if (c == ',' || c == '}' || c == ']') {
        const bool followsComma = at(m_lastStart) == ',';
        fail(followsComma && c != ',' ? m_lastStart : m_offset,
             followsComma && c != ','
                 ? QStringLiteral("remove this comma: nothing follows it")
                 : QStringLiteral("a value is missing before this \"%1\"").arg(QLatin1Char(c)));
    } else {
        fail(m_offset, QStringLiteral("a value is expected here"));
    }
}

void JsonScanner::readKey()
{
    const char c = at(m_offset);
    if (c == '"') {
        readString(Colon);
    } else if (c == '}' && m_expected == FirstKey) {
        close();
    } else if (c == '}') {
        fail(m_lastStart, QStringLiteral("remove this comma: nothing follows it"));
    } else if (c == '{' || c == '[') {
        fail(m_lastStart,
             m_expected == FirstKey
                 ? QStringLiteral("a key is missing after this \"{\"; an array of objects begins with \"[\"")
                 : QStringLiteral("a \"}\" is missing before this comma: the object is not closed"));
    } else if (c == ']') {
        failWrongBracket();
    } else if (failForeignQuotes()) {
        return;
    } else if (c == ',') {
        fail(m_offset, QStringLiteral("this comma is one too many"));
    } else if (isLetter(c) || isDigit(c)) {
        fail(m_offset, QStringLiteral("a key needs quotation marks: write \"%1\"").arg(shown(wordAt(m_offset))));
    } else {
        fail(m_offset, QStringLiteral("a key in quotation marks is expected here"));
    }
}

void JsonScanner::readColon()
{
    const char c = at(m_offset);
    if (c == ':') {
        m_lastStart = m_offset++;
        m_lastEnd = m_offset;
        m_expected = Value;
    } else if (c == '=') {
        fail(m_offset, QStringLiteral("write \":\" in place of \"=\""));
    } else if (m_offset == m_lastEnd && isLetter(c)) {
        failAfterValue();
    } else {
        fail(m_lastEnd, QStringLiteral("a colon and a value are missing after the key %1")
                            .arg(shown(m_text.mid(m_lastStart, m_lastEnd - m_lastStart))));
    }
}

void JsonScanner::readNext()
{
    const char c = at(m_offset);
    if (c == ',') {
        m_lastStart = m_offset++;
        m_lastEnd = m_offset;
        m_expected = isInObject() ? Key : Value;
    } else if (c == '}' || c == ']') {
        if (c == (isInObject() ? '}' : ']')) {
            close();
        } else {
            failWrongBracket();
        }
    } else if (c == ';') {
        fail(m_offset, QStringLiteral("write \",\" in place of \";\""));
    } else if (c == ':' && !isInObject()) {
        fail(m_open.last().offset, QStringLiteral("keys need an object: write \"{\" in place of \"[\""));
    } else {
        failAfterValue();
    }
}

void JsonScanner::failAfterValue()
{
    const bool isText = at(m_lastStart) == '"' && m_offset == m_lastEnd;
    if (isText) {
        fail(m_lastStart, QStringLiteral("a quotation mark is missing or one too many: the text ends before %1")
                              .arg(shown(m_text.mid(m_offset, 1) + wordAt(m_offset + 1))));
    } else {
        fail(m_lastEnd, QStringLiteral("a comma is missing here"));
    }
}

void JsonScanner::readAfterEnd()
{
    const char c = at(m_offset);
    if (c == '{' || c == '[') {
        fail(m_offset,
             QStringLiteral("a second document begins here, but a file has one: join their \"entries\""));
    } else if (c == '}' || c == ']') {
        fail(m_offset, QStringLiteral("this \"%1\" is one too many").arg(QLatin1Char(c)));
    } else {
        fail(m_offset, QStringLiteral("nothing may follow the end of the object"));
    }
}

void JsonScanner::readString(Expected next)
{
    const int start = m_offset++;
    for (; m_offset < m_text.size() && at(m_offset) != '"'; ++m_offset) {
        if (at(m_offset) == '\n') {
            fail(start, QStringLiteral("the quotation mark that ends this text is missing"));
            return;
        }
        if (at(m_offset) != '\\') {
            continue;
        }
        ++m_offset;
        static const QRegularExpression fourDigits(QStringLiteral("\\A[0-9A-Fa-f]{4}\\z"));
        const QString digits = QString::fromLatin1(m_text.mid(m_offset + 1, 4));
        if (at(m_offset) == 'u' && !fourDigits.match(digits).hasMatch()) {
            fail(m_offset - 1, QStringLiteral("\\u needs four hexadecimal digits"));
            return;
        }
    }
    if (m_offset >= m_text.size()) {
        fail(start, QStringLiteral("the quotation mark that ends this text is missing"));
        return;
    }
    ++m_offset;
    m_lastStart = start;
    m_lastEnd = m_offset;
    m_expected = next;
}

void JsonScanner::readNumber()
{
    const int start = m_offset;
    while (isLetter(at(m_offset)) || isDigit(at(m_offset)) || at(m_offset) == '-' || at(m_offset) == '+'
           || at(m_offset) == '.') {
        ++m_offset;
    }
    const QString correction = correctionOfNumber(m_text.mid(start, m_offset - start));
    if (!correction.isEmpty()) {
        fail(start, correction);
    }
    m_lastStart = start;
    m_lastEnd = m_offset;
    m_expected = Next;
}

void JsonScanner::readWord()
{
    const QByteArray word = wordAt(m_offset);
    if (word != "true" && word != "false" && word != "null") {
        fail(m_offset, correctionOf(word));
    }
    m_lastStart = m_offset;
    m_offset += word.size();
    m_lastEnd = m_offset;
    m_expected = Next;
}

void JsonScanner::open()
{
    m_open.append({at(m_offset), m_offset});
    m_expected = isInObject() ? FirstKey : FirstElement;
    m_lastStart = m_offset++;
    m_lastEnd = m_offset;
}

void JsonScanner::close()
{
    m_open.removeLast();
    m_lastStart = m_offset++;
    m_lastEnd = m_offset;
    m_expected = Next;
}

void JsonScanner::readEnd()
{
    if (!m_open.isEmpty()) {
        fail(qMax(0, m_lastEnd - 1),
             QStringLiteral("the file ends too early: %1 is not closed").arg(placeOf(m_open.last())));
    }
}

/// Reports quotation marks that JSON does not have.
bool JsonScanner::failForeignQuotes()
{
    if (at(m_offset) == '\'' || at(m_offset) == '`') {
        fail(m_offset, QStringLiteral("write \" in place of %1").arg(QLatin1Char(at(m_offset))));
        return true;
    }
    for (const char *quote : {"\u201c", "\u201d", "\u201e", "\u201f", "\u2018", "\u2019", "\u00ab", "\u00bb"}) {
        if (m_text.mid(m_offset, int(qstrlen(quote))) == quote) {
            fail(m_offset,
                 QStringLiteral("write \" in place of the typographic %1").arg(QString::fromUtf8(quote)));
            return true;
        }
    }
    return false;
}

bool JsonScanner::failComment()
{
    const bool isComment = at(m_offset) == '#'
                           || (at(m_offset) == '/' && (at(m_offset + 1) == '/' || at(m_offset + 1) == '*'));
    if (isComment) {
        fail(m_offset, QStringLiteral("remove this comment: JSON has none"));
    }
    return isComment;
}

void JsonScanner::failWrongBracket()
{
    const QLatin1String expected(isInObject() ? "}" : "]");
    fail(m_offset, QStringLiteral("a \"%1\" is missing before this \"%2\": %3 is not closed")
                       .arg(expected, QString(QLatin1Char(at(m_offset))), placeOf(m_open.last())));
}

void JsonScanner::fail(int offset, const QString &text)
{
    if (!m_mistake) {
        m_mistake = JsonMistake{offset, text, JsonMistake::Syntax};
    }
}

QString JsonScanner::placeOf(const Open &open) const
{
    const Place place = PlaceFinder(m_text).at(open.offset);
    return QStringLiteral("the \"%1\" at %2:%3").arg(QLatin1Char(open.bracket)).arg(place.line).arg(place.column);
}
