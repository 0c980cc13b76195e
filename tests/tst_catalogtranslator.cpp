// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "growth.h"
#include "registry/catalogtranslator.h"
#include "text.h"
#include "world.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLocale>
#include <QRandomGenerator>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>
#include <QTranslator>
#include <QtEndian>

#include <functional>
#include <memory>

namespace
{
const QByteArray s_magic = QByteArray::fromHex("3cb86418caef9c95cd211cbf60a1bddd");
constexpr quint32 NullText = 0xffffffff;
constexpr int MaxFiles = 64;

QByteArray number16(quint16 number)
{
    QByteArray bytes(sizeof(number), '\0');
    qToBigEndian(number, bytes.data());
    return bytes;
}

QByteArray number32(quint32 number)
{
    QByteArray bytes(sizeof(number), '\0');
    qToBigEndian(number, bytes.data());
    return bytes;
}

QByteArray utf16(const char *latin1)
{
    QByteArray bytes;
    for (; *latin1 != '\0'; ++latin1) {
        bytes += '\0';
        bytes += *latin1;
    }
    return bytes;
}

/// A section, or a part of a message: they look the same.
QByteArray part(int tag, quint32 length, const QByteArray &content = {})
{
    return char(tag) + number32(length) + content;
}

QByteArray part(int tag, const QByteArray &content)
{
    return part(tag, quint32(content.size()), content);
}

// Sections
QByteArray contexts(const QByteArray &content)
{
    return part(0x2f, content);
}

QByteArray hashes(const QByteArray &content)
{
    return part(0x42, content);
}

QByteArray messages(const QByteArray &content)
{
    return part(0x69, content);
}

QByteArray numerusRules(const QByteArray &content)
{
    return part(0x88, content);
}

QByteArray dependencySection(const QByteArray &content)
{
    return part(0x96, content);
}

QByteArray dependencies(const QList<QByteArray> &names)
{
    QByteArray content;
    for (const QByteArray &name : names) {
        content += number32(quint32(name.size() * 2)) + utf16(name.constData());
    }
    return dependencySection(content);
}

// Parts of messages
const QByteArray s_end = "\1";

QByteArray translation(const char *latin1)
{
    return part(3, utf16(latin1));
}

QByteArray source(const char *latin1)
{
    return part(6, QByteArray(latin1));
}

constexpr quint32 HashOfA = 'a';
constexpr quint32 HashOfB = 'b';

QByteArray entry(quint32 hash, quint32 offset)
{
    return number32(hash) + number32(offset);
}

/// A catalog with one message, "a", which is @p message.
QByteArray withMessage(const QByteArray &message)
{
    return s_magic + hashes(entry(HashOfA, 0)) + messages(message);
}

const QByteArray s_message = translation("A") + source("a") + s_end;
const QByteArray s_sound = withMessage(s_message);

QByteArray withDependencies(const QList<QByteArray> &names)
{
    return s_sound + dependencies(names);
}

/// What the same look-ups return, many of them for texts that no catalog has.
QStringList lookUp(const QTranslator &translator)
{
    static const char *const contexts[] = {nullptr, "Menu", "Dialog", "Page", "Menus"};
    static const char *const sources[] = {nullptr,  "",      "a",    "b",    "Open",       "Close",    "%n day(s)",
                                          "Cancel", "Print", "Back", "Next", "test-files", "test-both"};
    static const char *const comments[] = {nullptr, "", "state", "page", "other"};
    QStringList texts;
    for (const char *context : contexts) {
        for (const char *source : sources) {
            for (const char *comment : comments) {
                for (int n : {-1, 0, 1, 2, 5, 22}) {
                    const QString text = translator.translate(context, source, comment, n);
                    texts.append(text.isNull() ? QStringLiteral("null") : QLatin1Char('=') + text);
                }
            }
        }
    }
    return texts;
}

bool findsNothing(const QTranslator &translator)
{
    const QStringList texts = lookUp(translator);
    return texts.count(QStringLiteral("null")) == texts.size();
}
}

class CatalogTranslatorTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void sameTexts_data();
    void sameTexts();
    void unusualCatalogs_data();
    void unusualCatalogs();
    void sameNumerusRules();

    void sameSearchByName();
    void sameSearchByLocale();
    void resources();

    void damage_data();
    void damage();
    void everyLength();
    void badDependencies_data();
    void badDependencies();
    void manyDependencies();
    void sizeLimit();
    void timeIsLinear();

    void changedFiles();
    void otherCatalog();
    void deletion();

private:
    QString path(const QString &name) const;
    void write(const QString &name, const QByteArray &content) const;
    void scatter(const QStringList &names, QRandomGenerator *random) const;
    void expectSame(const QString &name) const;
    void expectRefusal(const QString &name, const char *reason) const;

    std::unique_ptr<QTemporaryDir> m_directory;
};

void CatalogTranslatorTest::init()
{
    m_directory = std::make_unique<QTemporaryDir>();
    const QDir compiled(text(VELKA_TEST_CATALOGS));
    const QStringList names = compiled.entryList(QDir::Files);
    for (const QString &name : names) {
        QVERIFY(QFile::copy(compiled.filePath(name), path(name)));
    }
}

QString CatalogTranslatorTest::path(const QString &name) const
{
    return m_directory->filePath(name);
}

void CatalogTranslatorTest::write(const QString &name, const QByteArray &content) const
{
    World::writeFile(path(name), content);
}

/// Writes catalogs under some of @p names, and removes the others.
void CatalogTranslatorTest::scatter(const QStringList &names, QRandomGenerator *random) const
{
    for (const QString &name : names) {
        QFile::remove(path(name));
        if (random->bounded(4) == 0) {
            write(name, s_sound);
        }
    }
}

/// Only for a catalog that is sound.
void CatalogTranslatorTest::expectSame(const QString &name) const
{
    QTranslator expected;
    QVERIFY(expected.load(name, m_directory->path()));
    CatalogTranslator translator;
    QVERIFY2(translator.load(name, m_directory->path()), qPrintable(translator.error()));
    QCOMPARE(translator.error(), QString());
    QCOMPARE(translator.filePath(), expected.filePath());
    QCOMPARE(translator.language(), expected.language());
    QCOMPARE(translator.isEmpty(), expected.isEmpty());
    QCOMPARE(lookUp(translator), lookUp(expected));
}

void CatalogTranslatorTest::expectRefusal(const QString &name, const char *reason) const
{
    CatalogTranslator translator;
    QVERIFY(!translator.load(name, m_directory->path()));
    const QString start = QLatin1Char('"') + path(name + text(".qm")) + text("\" because ");
    QCOMPARE(translator.error(), start + text(reason).replace(text("DIR"), m_directory->path()));
    QCOMPARE(translator.filePath(), QString());
    QVERIFY(translator.isEmpty());
    QVERIFY(findsNothing(translator));
}

void CatalogTranslatorTest::sameTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("sample-fi") << text("=Molemmat");
    QTest::newRow("plural-pl") << text("=%n pliki");
    QTest::newRow("menu-pl") << text("=Otwarte");
    QTest::newRow("dependent-pl") << text("=Anuluj");
    QTest::newRow("compressed-pl") << text("=Drukuj");
    QTest::newRow("collection-pl") << text("=Wstecz");
}

void CatalogTranslatorTest::sameTexts()
{
    QFETCH(QString, text);
    const QString name = QString::fromLatin1(QTest::currentDataTag());
    expectSame(name);
    CatalogTranslator translator;
    translator.load(name, m_directory->path());
    QVERIFY(lookUp(translator).contains(text));
}

void CatalogTranslatorTest::unusualCatalogs_data()
{
    QTest::addColumn<QByteArray>("catalog");
    QTest::newRow("nothing but the magic number") << s_magic;
    QTest::newRow("plain") << s_sound;
    QTest::newRow("unknown section") << s_sound + part(0x11, "anything");
    QTest::newRow("sections in another order")
        << s_magic + messages(s_message) + hashes(entry(HashOfA, 0)) + part(0xa7, "fi");
    QTest::newRow("messages without hashes") << s_magic + messages("anything");
    QTest::newRow("form without a text") << withMessage(part(3, NullText) + s_message);
    QTest::newRow("form without a text at the end")
        << withMessage(translation("A") + part(3, NullText) + source("a") + s_end);
    QTest::newRow("hash in a message") << withMessage(translation("A") + source("a") + char(5) + number32(1)
                                                      + s_end);
    QTest::newRow("message without translations") << withMessage(source("a") + s_end);
    QTest::newRow("two messages with one hash")
        << s_magic + hashes(entry(HashOfA, 0) + entry(HashOfA, quint32(s_message.size())))
               + messages(translation("B") + source("b") + s_end + s_message);
    QTest::newRow("messages that nothing refers to")
        << s_magic + hashes(entry(HashOfA, 3)) + messages("xyz" + s_message + "xyz");
    QTest::newRow("contexts with zeros at their ends")
        << s_sound + contexts(number16(1) + number16(1) + number16(0) + QByteArray("\5Menu\0\0", 7));
    QTest::newRow("contexts that are all empty") << s_sound + contexts(number16(1) + number16(0));
    QTest::newRow("buckets with the same end")
        << s_sound
               + contexts(number16(2) + number16(1) + number16(2) + number16(0) + QByteArray("\1x\4Menu\0", 8));
}

void CatalogTranslatorTest::unusualCatalogs()
{
    QFETCH(QByteArray, catalog);
    write(text("unusual.qm"), catalog);
    expectSame(text("unusual"));
    write(text("unusual.qm"), catalog + dependencies({"menu-pl"}));
    expectSame(text("unusual"));
}

void CatalogTranslatorTest::sameNumerusRules()
{
    static const char bytes[] = "\x00\x01\x02\x03\x04\x05\x09\x0a\x13\x22\x44\x81\xfc\xfd\xfe\xff";
    QRandomGenerator random(1);
    int sound = 0;
    for (int i = 0; i < 3000; ++i) {
        QByteArray rules;
        for (int length = random.bounded(1, 10); length > 0; --length) {
            rules += bytes[random.bounded(int(sizeof(bytes)) - 1)];
        }
        const QByteArray catalog = s_sound + numerusRules(rules);
        write(text("rules.qm"), catalog);
        QTranslator expected;
        CatalogTranslator translator;
        QCOMPARE(translator.load(text("rules"), m_directory->path()),
                 expected.load(text("rules"), m_directory->path()));
        sound += expected.isEmpty() ? 0 : 1;
    }
    QVERIFY(sound > 100);
}

/// Which of many names is found, when others are missing.
void CatalogTranslatorTest::sameSearchByName()
{
    QVERIFY(QDir(m_directory->path()).mkpath(text("sub")));
    const QStringList names{text("a_b.c"), text("a_b.c.qm"), text("a_b"),  text("a_b.qm"), text("a"),
                            text("a.qm"),  text("_x.qm"),    text("x.qm"), text(".qm"),    text("sub/a.qm")};
    QRandomGenerator random(1);
    QSet<QString> found;
    for (int i = 0; i < 300; ++i) {
        scatter(names, &random);
        for (const char *name :
             {"a_b.c", "a_b.c.qm", "a_b_c", "_x", "", ".", "sub/a_b", "./a_b", "a_", "no_such"}) {
            for (const QString &directory : {m_directory->path(), path(QString()), QString()}) {
                const QString searched = directory.isEmpty() ? path(text(name)) : text(name);
                QTranslator expected;
                expected.load(searched, directory);
                CatalogTranslator translator;
                translator.load(searched, directory);
                QCOMPARE(translator.filePath(), expected.filePath());
                found.insert(expected.filePath());
            }
        }
    }
    QVERIFY(found.size() > names.size());
}

void CatalogTranslatorTest::sameSearchByLocale()
{
    const QStringList names{text("a-zh_Hant_TW.qm"),
                            text("a-zh_hant_tw"),
                            text("a-zh_TW.qm"),
                            text("a-zh_Hant"),
                            text("a-zh.qm"),
                            text("a-zh"),
                            text("a-.qm"),
                            text("a-"),
                            text("a.qm"),
                            text("a")};
    QRandomGenerator random(1);
    QSet<QString> found;
    for (int i = 0; i < 300; ++i) {
        scatter(names, &random);
        for (const char *locale : {"zh_TW", "zh_Hant_TW", "zh", "de_AT", "C"}) {
            QTranslator expected;
            expected.load(QLocale(text(locale)), text("a"), text("-"), m_directory->path());
            CatalogTranslator translator;
            translator.load(QLocale(text(locale)), text("a"), text("-"), m_directory->path());
            QCOMPARE(translator.filePath(), expected.filePath());
            found.insert(expected.filePath());
        }
    }
    QVERIFY(found.size() > 6);
}

/// A program can have catalogs of its own inside.
void CatalogTranslatorTest::resources()
{
    QTranslator expected;
    QVERIFY(expected.load(text("sample"), text(":/catalogs")));
    CatalogTranslator translator;
    QVERIFY(translator.load(text("sample"), text(":/catalogs")));
    QCOMPARE(translator.filePath(), expected.filePath());
    QCOMPARE(lookUp(translator), lookUp(expected));
    QVERIFY(!findsNothing(translator));
}

void CatalogTranslatorTest::damage_data()
{
    QTest::addColumn<QByteArray>("catalog");
    const auto row = [](const char *name, const QByteArray &catalog) { QTest::newRow(name) << catalog; };
    row("empty file", {});
    row("text", "no catalog at all\n");
    row("zeros", QByteArray(4096, '\0'));
    row("part of the magic number", s_magic.left(15));
    row("other magic number", QByteArray(s_sound).replace(0, 1, "<x"));

    row("rest of 1 byte", s_sound + '\x69');
    row("rest of 5 bytes", s_sound + part(0x11, 0));
    row("section of tag 0", s_sound + part(0, "x"));
    row("empty section", s_sound + part(0x11, 0) + part(0x12, "x"));
    row("section beyond the end", s_sound + part(0x11, 2, "x"));
    row("section of 4 GB", s_sound + part(0x11, 0xffffffff, "x"));
    row("section of 2 GB", s_sound + part(0x11, 0x80000000, "x"));
    row("section twice", s_sound + messages(s_message));

    row("half a hash", s_magic + hashes(entry(HashOfA, 0) + number32(HashOfA)) + messages(s_message));
    row("hashes that are not sorted", s_magic
                                          + hashes(entry(HashOfB, 0) + entry(HashOfA, quint32(s_message.size())))
                                          + messages(s_message + s_message));
    row("hashes without messages", s_magic + hashes(entry(HashOfA, 0)));
    row("offset at the end of the messages",
        s_magic + hashes(entry(HashOfA, quint32(s_message.size()))) + messages(s_message));
    row("offset beyond the messages", s_magic + hashes(entry(HashOfA, 0x7fffffff)) + messages(s_message));
    row("offset of 4 GB", s_magic + hashes(entry(HashOfA, 0xffffffff)) + messages(s_message));
    row("two hashes for one message",
        s_magic + hashes(entry(HashOfA, 0) + entry(HashOfB, 0)) + messages(s_message));
    row("message within a message", s_magic + hashes(entry(HashOfA, 0) + entry(HashOfB, 7)) + messages(s_message));

    row("message without an end", withMessage(translation("A") + source("a")));
    row("tag 0", withMessage(translation("A") + '\0' + s_end));
    row("unknown tag", withMessage(part(2, utf16("x")) + s_message));
    row("translation of 3 bytes", withMessage(part(3, "abc") + source("a") + s_end));
    row("translation beyond the end", withMessage(part(3, 1000, utf16("A")) + source("a") + s_end));
    row("translation of 2 GB", withMessage(part(3, 0x7ffffffe, utf16("A")) + source("a") + s_end));
    row("translation of -2 bytes", withMessage(part(3, 0xfffffffe, utf16("A")) + source("a") + s_end));
    row("translation back to its start", withMessage(part(3, quint32(-5)) + s_message));
    row("length of a translation cut off", withMessage(translation("A") + QByteArray("\3\0\0", 3)));
    row("source text beyond the end", withMessage(translation("A") + part(6, 1000, "a") + s_end));
    row("source text of 4 GB", withMessage(translation("A") + part(6, NullText) + s_end));
    row("source text of 2 GB", withMessage(translation("A") + part(6, 0x7fffffff, "a") + s_end));
    row("context beyond the end", withMessage(translation("A") + part(7, 1000, "Menu") + source("a") + s_end));
    row("context of 4 GB", withMessage(translation("A") + part(7, NullText) + source("a") + s_end));
    row("comment beyond the end", withMessage(translation("A") + part(8, 1000, "x") + source("a") + s_end));
    row("comment of 4 GB", withMessage(translation("A") + part(8, NullText) + source("a") + s_end));
    row("hash in a message cut off", withMessage(translation("A") + QByteArray("\5\0\0", 3)));

    row("table of 1 byte", s_sound + contexts("\1"));
    row("table of no context", s_sound + contexts(number16(0) + number16(0)));
    row("table beyond the end", s_sound + contexts(number16(2) + number16(0)));
    row("contexts beyond the end", s_sound + contexts(number16(1) + number16(1000)));
    row("context of the table beyond the end",
        s_sound + contexts(number16(1) + number16(1) + number16(0) + QByteArray("\5Menu", 5)));
    row("contexts without an end", s_sound + contexts(number16(1) + number16(1) + number16(0) + "\4Menu"));

    row("rule without an operator", s_sound + numerusRules(QByteArray("\0\1", 2)));
    row("rule of an unknown operator", s_sound + numerusRules("\5\1"));
    row("rule without an operand", s_sound + numerusRules("\1"));
    row("range without an end", s_sound + numerusRules("\4\1"));
    row("nothing between two rules", s_sound + numerusRules("\1\1\1\1"));
    row("nothing after the last rule", s_sound + numerusRules("\1\1\xff"));

    row("name of a dependency beyond the end", s_sound + dependencySection(number32(100) + utf16("menu-pl")));
    row("name of a dependency of 3 bytes", s_sound + dependencySection(number32(3) + "abc"));
    row("name of a dependency of 4 GB", s_sound + dependencySection(number32(0xfffffffe) + utf16("menu-pl")));
    row("length of a dependency cut off", s_sound + dependencySection(QByteArray(3, '\0')));
}

void CatalogTranslatorTest::damage()
{
    QFETCH(QByteArray, catalog);
    write(text("damaged.qm"), catalog);
    expectRefusal(text("damaged"), "it is damaged, or no compiled catalog");

    write(text("dependent.qm"), withDependencies({"menu-pl", "damaged"}));
    expectRefusal(text("dependent"), "its dependency \"DIR/damaged.qm\" is damaged, or no compiled catalog");
}

/// A file that is still being copied
void CatalogTranslatorTest::everyLength()
{
    for (const char *name : {"sample-fi", "menu-pl", "plural-pl", "compressed-pl"}) {
        QFile file(path(text(name) + text(".qm")));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray catalog = file.readAll();
        int sound = 0;
        for (int length = 0; length < catalog.size(); ++length) {
            write(text("cut.qm"), catalog.left(length));
            CatalogTranslator translator;
            const bool isLoaded = translator.load(text("cut"), m_directory->path());
            QCOMPARE(translator.error().isEmpty(), isLoaded);
            sound += isLoaded ? 1 : 0;
            if (!isLoaded) {
                QVERIFY(translator.isEmpty());
                continue;
            }
            QTranslator expected;
            QVERIFY(expected.load(text("cut"), m_directory->path()));
            QCOMPARE(lookUp(translator), lookUp(expected));
        }
        // Only between two sections
        QVERIFY2(sound <= 5, name);
    }
}

void CatalogTranslatorTest::badDependencies_data()
{
    QTest::addColumn<QByteArrayList>("dependenciesOfA");
    QTest::addColumn<QByteArrayList>("dependenciesOfB");
    QTest::addColumn<QByteArray>("reason");
    const auto row = [](const char *name, const QByteArrayList &ofA, const QByteArrayList &ofB,
                        const char *reason) { QTest::newRow(name) << ofA << ofB << QByteArray(reason); };
    row("itself", {"a"}, {}, "it depends on itself");
    row("itself under a longer name", {"a_b_c"}, {}, "it depends on itself");
    row("itself through another one", {"b"}, {"a"}, "it depends on itself");
    row("one that depends on itself", {"b"}, {"b"}, "its dependency \"DIR/b.qm\" depends on itself");
    row("itself, by another path", {"./a"}, {}, "its dependency \"DIR/./a.qm\" depends on itself");
    row("missing", {"no-such"}, {}, "its dependency \"no-such\" is missing");
    row("missing further down", {"b"}, {"menu-pl", "no-such"}, "its dependency \"no-such\" is missing");
    row("no name", {""}, {}, "its dependency \"\" is missing");
    row("directory", {"sub"}, {}, "its dependency \"sub\" is missing");
    row("text", {"text.txt"}, {}, "its dependency \"DIR/text.txt\" is damaged, or no compiled catalog");
    row("directory above", {"../../../../../../../proc/self/status"}, {},
        "its dependency \"DIR/../../../../../../../proc/self/status\" is in another directory");
    row("absolute path", {"/proc/self/status"}, {},
        "its dependency \"/proc/self/status\" is in another directory");
    row("resource", {":/catalogs/sample"}, {}, "its dependency \":/catalogs/sample.qm\" is in another directory");
    row("name with a line break", {"no\nsuch"}, {}, "its dependency \"no\\nsuch\" is missing");
}

void CatalogTranslatorTest::badDependencies()
{
    QFETCH(QByteArrayList, dependenciesOfA);
    QFETCH(QByteArrayList, dependenciesOfB);
    QFETCH(QByteArray, reason);
    QVERIFY(QDir(m_directory->path()).mkpath(text("sub")));
    write(text("text.txt"), "text");
    write(text("a.qm"), withDependencies(dependenciesOfA));
    write(text("b.qm"), withDependencies(dependenciesOfB));
    expectRefusal(text("a"), reason.constData());
}

/// Each of few files that depend on the next one twice doubles what there is to load.
void CatalogTranslatorTest::manyDependencies()
{
    const auto name = [](int number) { return QByteArray::number(number); };
    for (int i = 0; i < 40; ++i) {
        write(QString::number(i) + text(".qm"), withDependencies({name(i + 1), name(i + 1)}));
    }
    write(text("40.qm"), s_sound);
    QByteArrayList names;
    for (int i = 0; i < MaxFiles - 1; ++i) {
        names.append("40");
    }
    expectRefusal(text("0"), "its dependency \"DIR/39.qm\" is one of too many dependencies");

    write(text("most.qm"), withDependencies(names));
    expectSame(text("most"));
    write(text("more.qm"), withDependencies(names + QByteArrayList{"40"}));
    expectRefusal(text("more"), "its dependency \"DIR/40.qm\" is one of too many dependencies");
}

void CatalogTranslatorTest::sizeLimit()
{
    constexpr int MaxSize = 16 << 20;
    const int room = MaxSize - s_sound.size() - part(0x11, "").size();
    write(text("largest.qm"), s_sound + part(0x11, QByteArray(room, 'x')));
    expectSame(text("largest"));
    write(text("larger.qm"), s_sound + part(0x11, QByteArray(room + 1, 'x')));
    expectRefusal(text("larger"), "it cannot be read: larger than 16777216 bytes");

    const QByteArray dependent = withDependencies({"largest"});
    write(text("dependent.qm"), dependent);
    const QByteArray reason = "its dependency \"DIR/largest.qm\" cannot be read: larger than "
                              + QByteArray::number(MaxSize - dependent.size()) + " bytes";
    expectRefusal(text("dependent"), reason.constData());
}

/// Whatever refers to what: the same bytes are not checked again and again.
void CatalogTranslatorTest::timeIsLinear()
{
    // Each message ends with all that follow, each bucket of contexts with all the others.
    const auto overlapping = [](int count) {
        QByteArray entries;
        QByteArray content;
        for (int i = 0; i < count; ++i) {
            entries += entry(HashOfA, quint32(5 * (count - 1 - i)));
            content += char(5) + number32(0);
        }
        return s_magic + hashes(entries) + messages(content + s_end);
    };
    const auto nested = [](int count) {
        QByteArray table = number16(quint16(count));
        for (int i = 0; i < count; ++i) {
            table += number16(quint16(1 + i));
        }
        return s_sound + contexts(table + number16(0) + QByteArray("\1x").repeated(count) + number16(0));
    };
    for (const std::function<QByteArray(int)> &make :
         {std::function<QByteArray(int)>(overlapping), std::function<QByteArray(int)>(nested)}) {
        QVERIFY(Growth::isLinear(
            [&](int count) {
                write(text("slow.qm"), make(count));
                CpuTimer timer;
                timer.start();
                CatalogTranslator translator;
                translator.load(text("slow"), m_directory->path());
                return timer.nsecsElapsed();
            },
            5000));
    }
}

/// Of what is loaded nothing depends on the files any more.
void CatalogTranslatorTest::changedFiles()
{
    CatalogTranslator translator;
    QVERIFY(translator.load(text("compressed-pl"), m_directory->path()));
    const QStringList before = lookUp(translator);
    const QStringList names = QDir(m_directory->path()).entryList(QDir::Files);
    for (const QString &name : names) {
        QVERIFY(QFile::resize(path(name), 0));
    }
    QCOMPARE(lookUp(translator), before);
    for (const QString &name : names) {
        write(name, QByteArray(4096, '\xff'));
    }
    QCOMPARE(lookUp(translator), before);
    QVERIFY(m_directory->remove());
    QCOMPARE(lookUp(translator), before);
}

void CatalogTranslatorTest::otherCatalog()
{
    CatalogTranslator translator;
    QVERIFY(translator.load(text("collection-pl"), m_directory->path()));
    QVERIFY(translator.load(text("sample-fi"), m_directory->path()));
    QTranslator expected;
    expected.load(text("sample-fi"), m_directory->path());
    QCOMPARE(lookUp(translator), lookUp(expected));

    write(text("damaged.qm"), "x");
    expectRefusal(text("damaged"), "it is damaged, or no compiled catalog");
    QVERIFY(!translator.load(text("damaged"), m_directory->path()));
    QVERIFY(!translator.error().isEmpty());
    QVERIFY(findsNothing(translator));
    QVERIFY(!translator.load(text("no-such"), m_directory->path()));
    QCOMPARE(translator.error(), QString());
    QVERIFY(translator.isEmpty());
}

void CatalogTranslatorTest::deletion()
{
    auto translator = std::make_unique<CatalogTranslator>();
    QVERIFY(translator->load(text("collection-pl"), m_directory->path()));
    QCoreApplication::installTranslator(translator.get());
    QCOMPARE(QCoreApplication::translate("Page", "Back"), text("Wstecz"));
    translator.reset();
    QCOMPARE(QCoreApplication::translate("Page", "Back"), text("Back"));
}

QTEST_GUILESS_MAIN(CatalogTranslatorTest)
#include "tst_catalogtranslator.moc"
