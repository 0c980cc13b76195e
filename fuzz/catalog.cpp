// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

// The input is a compiled catalog, after two bytes with its length, and another one that it may depend on. It is loaded,
// and texts are looked up that it has, and some that it does not have.

#include "harness.h"
#include "input.h"

#include "registry/catalogtranslator.h"
#include "registry/compiledcatalog.h"

#include <QTranslator>
#include <QVector>
#include <QtEndian>

#include <sys/mman.h>

#include <algorithm>

#include <unistd.h>

namespace
{
const QString s_name = QStringLiteral("sample-pl");
const QString s_otherFile = QStringLiteral("menu-pl.qm");
constexpr int HeaderLength = 16;
constexpr int SectionHeaderLength = 5;
constexpr int MaxKeys = 32;

struct Key {
    QByteArray context;
    QByteArray source;
    QByteArray comment;
};

const QVector<Key> &knownKeys()
{
    static const QVector<Key> keys{
        {"", "test-both", ""},     {"", "test-files", ""},    {"", "", ""},
        {"Menu", "Open", ""},      {"Menu", "Open", "state"}, {"Menu", "Close", "verb"},
        {"Menu", "%n day(s)", ""}, {"Dialog", "Open", ""},    {"Dialog", "Cancel", "other"},
        {"Page", "Back", ""},      {"Page", "Next", "page"},  {"Nowhere", "Open", ""},
    };
    return keys;
}

/// Returns a text that has @p hash: its digits to the base of 16, from 1 to 16.
QByteArray textWithHash(quint32 hash)
{
    QByteArray text;
    for (; hash > 0; hash = (hash - 1) / 16) {
        text.prepend(char((hash - 1) % 16 + 1));
    }
    return text;
}

/// Keys that lead to the first entries of the table of hashes in @p catalog.
QVector<Key> keysOf(const QByteArray &catalog)
{
    QVector<Key> keys;
    const char *bytes = catalog.constData();
    for (int section = HeaderLength; section + SectionHeaderLength < catalog.size();) {
        const int content = section + SectionHeaderLength;
        const int end = content + int(qFromBigEndian<quint32>(bytes + section + 1));
        for (int entry = content; bytes[section] == '\x42' && entry < end && keys.size() < MaxKeys; entry += 8) {
            const auto hash = qFromBigEndian<quint32>(bytes + entry);
            keys.append({"Menu", textWithHash(hash % (1U << 28U)), ""});
        }
        section = end;
    }
    return keys;
}

QVector<QString> lookUp(const QTranslator &translator, const QVector<Key> &keys)
{
    QVector<QString> texts;
    for (const Key &key : keys) {
        for (int n : {-1, 0, 1, 3, 22, 1000000}) {
            texts.append(
                translator.translate(key.context.constData(), key.source.constData(), key.comment.constData(), n));
        }
        texts.append(translator.translate(nullptr, key.source.constData()));
    }
    return texts;
}

bool areEqual(const QString &a, const QString &b)
{
    return a == b && a.isNull() == b.isNull();
}

bool areEqual(const QVector<QString> &a, const QVector<QString> &b)
{
    return std::equal(a.cbegin(), a.cend(), b.cbegin(), b.cend(),
                      [](const QString &x, const QString &y) { return areEqual(x, y); });
}

/// Memory that can be read to its end and no further. Only so it shows when Qt, which is not sanitized, reads too much.
class GuardedMemory
{
public:
    GuardedMemory()
        : m_start(static_cast<uchar *>(
            mmap(nullptr, Size + std::size_t(getpagesize()), PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0)))
    {
        require(mprotect(m_start, Size, PROT_READ | PROT_WRITE) == 0, "there is memory");
    }

    const uchar *hold(const QByteArray &bytes)
    {
        require(std::size_t(bytes.size()) <= Size, "an input is not too large");
        return std::copy(bytes.cbegin(), bytes.cend(), m_start + Size - bytes.size()) - bytes.size();
    }

private:
    static constexpr std::size_t Size = 1 << 18;
    uchar *const m_start;
};

void lookAt(const CatalogTranslator &translator, const QByteArray &catalog, const QString &directory)
{
    const std::optional<CompiledCatalog> parsed = parseCompiledCatalog(catalog);
    require(parsed.has_value(), "a catalog that can be loaded can be parsed");
    const QVector<Key> keys = knownKeys() + keysOf(parsed->image);
    QTranslator expected;
    require(expected.load(s_name, directory), "a sound catalog can be loaded by Qt");
    require(areEqual(lookUp(translator, keys), lookUp(expected, keys)), "texts are the same as Qt's");

    static GuardedMemory memory;
    QTranslator guarded;
    require(guarded.load(memory.hold(parsed->image), parsed->image.size()), "Qt can load the image of a catalog");
    lookUp(guarded, keys);
}
}

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const Scratch scratch;
    Input input(data, size);
    const int length = 256 * input.byte();
    const QByteArray catalog = input.take(length + input.byte());
    scratch.write(s_name + QStringLiteral(".qm"), catalog);
    if (input.atEnd()) {
        scratch.remove(s_otherFile);
    } else {
        scratch.write(s_otherFile, input.rest());
    }

    CatalogTranslator translator;
    const bool isLoaded = translator.load(s_name, scratch.path());
    require(translator.error().isEmpty() == isLoaded, "what is found is loaded, or there is an error");
    require(isLoaded || translator.isEmpty(), "an error leaves no texts");
    if (isLoaded) {
        lookAt(translator, catalog, scratch.path());
    }
    return 0;
}
