// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/compiledcatalog.h"

#include <QBitArray>
#include <QDataStream>
#include <QMap>
#include <QtEndian>

namespace
{
// The format of Qt Linguist's lrelease: a magic number, then sections of a tag, a length and content, all in big endian.
constexpr char CatalogMagic[] = "\x3c\xb8\x64\x18\xca\xef\x9c\x95\xcd\x21\x1c\xbf\x60\xa1\xbd\xdd";
constexpr int MagicLength = sizeof(CatalogMagic) - 1;

enum SectionTag : quint8 {
    ContextsTag = 0x2f,
    HashesTag = 0x42,
    MessagesTag = 0x69,
    NumerusRulesTag = 0x88,
    DependenciesTag = 0x96,
};
using Sections = QMap<quint8, QByteArray>;

enum MessageTag : quint8 {
    EndTag = 1,
    TranslationTag = 3,
    HashTag = 5, ///< in old catalogs
    SourceTextTag = 6,
    ContextTag = 7,
    CommentTag = 8,
};
constexpr quint32 NullText = 0xffffffff; ///< the length that lrelease writes for a form that has no text

enum NumerusOperator : quint8 {
    EqualOperator = 1,
    LessOperator = 2,
    LessOrEqualOperator = 3,
    BetweenOperator = 4,
    OperatorMask = 7,
    NoOperator = 0x80,
    FirstJoint = 0xfd, ///< the lowest of what joins two conditions: and, or, new rule
};

/// Reads from the front of bytes that it does not copy. What lies outside of them is 0 and makes it invalid.
class Cursor
{
public:
    explicit Cursor(const QByteArray &bytes, qint64 position = 0)
        : m_bytes(bytes)
        , m_position(position)
    {
    }

    bool isValid() const
    {
        return m_position <= m_bytes.size();
    }

    bool atEnd() const
    {
        return m_position >= m_bytes.size();
    }

    qint64 position() const
    {
        return m_position;
    }

    void skip(qint64 length)
    {
        m_position += length;
    }

    template<typename Number>
    Number number()
    {
        const qint64 start = m_position;
        m_position += qint64(sizeof(Number));
        return isValid() ? qFromBigEndian<Number>(m_bytes.constData() + start) : Number(0);
    }

    QByteArray take(qint64 length)
    {
        const qint64 start = m_position;
        m_position += length;
        return isValid() ? m_bytes.mid(int(start), int(length)) : QByteArray();
    }

private:
    const QByteArray &m_bytes;
    qint64 m_position;
};

/// Returns the sections of @p file, or nothing unless they fill it, none empty and none twice.
std::optional<Sections> readSections(const QByteArray &file)
{
    if (!file.startsWith(CatalogMagic)) {
        return {};
    }
    Sections sections;
    Cursor cursor(file, MagicLength);
    while (!cursor.atEnd()) {
        const auto tag = cursor.number<quint8>();
        const QByteArray content = cursor.take(cursor.number<quint32>());
        if (tag == 0 || content.isEmpty() || sections.contains(tag)) {
            return {};
        }
        sections.insert(tag, content);
    }
    return sections;
}

QByteArray writeSections(const Sections &sections)
{
    QByteArray file(CatalogMagic, MagicLength);
    for (auto it = sections.cbegin(); it != sections.cend(); ++it) {
        uchar length[sizeof(quint32)];
        qToBigEndian(quint32(it.value().size()), length);
        file += char(it.key());
        file.append(reinterpret_cast<const char *>(length), sizeof(length));
        file += it.value();
    }
    return file;
}

std::optional<QStringList> readDependencies(const QByteArray &section)
{
    QStringList names;
    QDataStream stream(section);
    while (!stream.atEnd()) {
        QString name;
        stream >> name;
        names.append(name);
    }
    return stream.status() == QDataStream::Ok ? std::make_optional(names) : std::nullopt;
}

bool skipTranslation(Cursor *cursor)
{
    const auto length = cursor->number<quint32>();
    if (length == NullText) {
        return true;
    }
    cursor->skip(length);
    return length % sizeof(QChar) == 0;
}

/// Skips what follows @p tag in a message. Returns whether that is sound.
bool skipPart(Cursor *cursor, quint8 tag)
{
    switch (tag) {
    case TranslationTag:
        return skipTranslation(cursor);
    case HashTag:
        cursor->skip(sizeof(quint32));
        return true;
    case SourceTextTag:
    case ContextTag:
    case CommentTag:
        cursor->skip(cursor->number<quint32>());
        return true;
    default:
        return false;
    }
}

/// Skips the message at @p cursor, and marks its parts in @p visited. Returns whether it is sound and all of it is new:
/// if messages could overlap, small catalogs could have huge ones.
bool skipMessage(Cursor cursor, QBitArray *visited)
{
    while (!cursor.atEnd() && !visited->testBit(int(cursor.position()))) {
        visited->setBit(int(cursor.position()));
        const auto tag = cursor.number<quint8>();
        if (tag == EndTag || !skipPart(&cursor, tag)) {
            return tag == EndTag;
        }
    }
    return false;
}

/// Returns the source text of the sound message at @p cursor, null if it has none.
QByteArray sourceTextOf(Cursor cursor)
{
    auto tag = cursor.number<quint8>();
    while (tag != EndTag && tag != SourceTextTag) {
        skipPart(&cursor, tag);
        tag = cursor.number<quint8>();
    }
    return tag == SourceTextTag ? cursor.take(cursor.number<quint32>()) : QByteArray();
}

/// Returns whether @p hashes is sorted, as a binary search needs it, and refers to sound messages.
bool areMessages(const QByteArray &hashes, const QByteArray &messages)
{
    QBitArray visited(messages.size());
    Cursor cursor(hashes);
    quint32 previous = 0;
    while (!cursor.atEnd()) {
        const auto hash = cursor.number<quint32>();
        const auto offset = cursor.number<quint32>();
        if (!cursor.isValid() || hash < previous || !skipMessage(Cursor(messages, offset), &visited)) {
            return false;
        }
        previous = hash;
    }
    return true;
}

/// Returns whether the names in the bucket at @p cursor end within the table. @p visited has those that do.
bool isBucket(Cursor cursor, QBitArray *visited)
{
    while (!cursor.atEnd() && !visited->testBit(int(cursor.position()))) {
        visited->setBit(int(cursor.position()));
        const auto length = cursor.number<quint8>();
        if (length == 0) {
            return true;
        }
        cursor.skip(length);
    }
    return !cursor.atEnd();
}

/// Returns the offset of the bucket that @p table refers to, 0 if that is empty.
int readBucket(Cursor *table, int buckets)
{
    const int offset = table->number<quint16>();
    return offset == 0 ? 0 : int(sizeof(quint16)) * (1 + buckets + offset);
}

bool areContexts(const QByteArray &contexts)
{
    if (contexts.isEmpty()) {
        return true;
    }
    QBitArray visited(contexts.size());
    Cursor table(contexts);
    const int buckets = table.number<quint16>();
    for (int i = 0; i < buckets; ++i) {
        const int start = readBucket(&table, buckets);
        if (!table.isValid() || (start != 0 && !isBucket(Cursor(contexts, start), &visited))) {
            return false;
        }
    }
    return buckets > 0;
}

/// Returns how many operands follow @p opcode, 0 if it is not an operator.
int operandCount(quint8 opcode)
{
    const int comparison = opcode & NoOperator ? 0 : opcode & OperatorMask;
    if (comparison == BetweenOperator) {
        return 2;
    }
    return comparison == EqualOperator || comparison == LessOperator || comparison == LessOrEqualOperator ? 1 : 0;
}

/// Returns whether there is a sound condition at @p cursor, which is skipped.
bool skipCondition(Cursor *cursor)
{
    const int operands = operandCount(cursor->number<quint8>());
    cursor->skip(operands);
    return operands > 0 && cursor->isValid();
}

/// Returns whether @p rules are conditions with something between each two of them.
bool areNumerusRules(const QByteArray &rules)
{
    if (rules.isEmpty()) {
        return true;
    }
    Cursor cursor(rules);
    bool areSound = skipCondition(&cursor);
    while (areSound && !cursor.atEnd()) {
        areSound = cursor.number<quint8>() >= FirstJoint && skipCondition(&cursor);
    }
    return areSound;
}

bool areSound(const Sections &sections)
{
    return areMessages(sections.value(HashesTag), sections.value(MessagesTag))
           && areContexts(sections.value(ContextsTag)) && areNumerusRules(sections.value(NumerusRulesTag));
}

/// Returns whether @p context is among the names in the bucket at @p names.
bool bucketHas(Cursor names, const char *context)
{
    for (;;) {
        QByteArray name = names.take(names.number<quint8>());
        if (name.isEmpty()) {
            return false;
        }
        if (name.endsWith('\0')) {
            name.chop(1);
        }
        if (name == context) {
            return true;
        }
    }
}

/// The hash of ELF symbol tables
quint32 elfHash(const char *name)
{
    quint32 hash = 0;
    for (; *name; ++name) {
        hash = (hash << 4) + quint8(*name);
        const quint32 overflow = hash & 0xf0000000;
        hash ^= overflow >> 24;
        hash &= ~overflow;
    }
    return hash != 0 ? hash : 1;
}
}

bool CompiledCatalog::leavesToDependencies(const char *context) const
{
    // QTranslator returns at once when it has messages, but none of the context.
    if (!hasMessages || contexts.isEmpty()) {
        return true;
    }
    Cursor table(contexts);
    const int buckets = table.number<quint16>();
    table.skip(qint64(sizeof(quint16)) * (elfHash(context) % quint32(buckets)));
    const int start = readBucket(&table, buckets);
    return start != 0 && bucketHas(Cursor(contexts, start), context);
}

QList<QByteArray> CompiledCatalog::sourceTexts() const
{
    const Sections sections = readSections(image).value_or(Sections());
    const QByteArray messages = sections.value(MessagesTag);
    const QByteArray hashes = sections.value(HashesTag);
    QList<QByteArray> texts;
    for (Cursor cursor(hashes); !cursor.atEnd();) {
        cursor.skip(sizeof(quint32)); // the hash
        texts.append(sourceTextOf(Cursor(messages, cursor.number<quint32>())));
    }
    return texts;
}

std::optional<CompiledCatalog> parseCompiledCatalog(const QByteArray &file)
{
    std::optional<Sections> sections = readSections(file);
    if (!sections || !areSound(*sections)) {
        return {};
    }
    const std::optional<QStringList> dependencies = readDependencies(sections->take(DependenciesTag));
    if (!dependencies) {
        return {};
    }
    return CompiledCatalog{writeSections(*sections), sections->value(ContextsTag), *dependencies,
                           sections->contains(HashesTag)};
}
