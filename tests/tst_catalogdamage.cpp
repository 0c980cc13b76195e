// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "catalogbytes.h"
#include "growth.h"
#include "registry/catalogtranslator.h"
#include "text.h"
#include "world.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QTranslator>

#include <functional>
#include <memory>

using namespace CatalogBytes;

// Catalogs that are not sound: QTranslator would crash with most of them.
class CatalogDamageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void damage_data();
    void damage();
    void everyLength();
    void badDependencies_data();
    void badDependencies();
    void longDependency();
    void manyDependencies();
    void sizeLimit();
    void timeIsLinear();

private:
    QString path(const QString &name) const;
    void write(const QString &name, const QByteArray &content) const;
    void expectTexts(const QString &name) const;
    void expectRefusal(const QString &name, const char *reason) const;

    std::unique_ptr<QTemporaryDir> m_directory;
};

void CatalogDamageTest::init()
{
    m_directory = std::make_unique<QTemporaryDir>(text("/usr/share/translations/XXXXXX")); // in memory
    const QDir compiled(text(VELKA_TEST_CATALOGS));
    const QStringList names = compiled.entryList(QDir::Files);
    for (const QString &name : names) {
        QVERIFY(QFile::link(compiled.filePath(name), path(name)));
    }
}

QString CatalogDamageTest::path(const QString &name) const
{
    return m_directory->filePath(name);
}

void CatalogDamageTest::write(const QString &name, const QByteArray &content) const
{
    World::writeFile(path(name), content);
}

/// Expects the same as QTranslator finds in the catalog, which must be sound.
void CatalogDamageTest::expectTexts(const QString &name) const
{
    QTranslator expected;
    QVERIFY(expected.load(name, m_directory->path()));
    CatalogTranslator translator;
    QVERIFY2(translator.load(name, m_directory->path()), qPrintable(translator.error()));
    QCOMPARE(lookUp(translator), lookUp(expected));
}

void CatalogDamageTest::expectRefusal(const QString &name, const char *reason) const
{
    CatalogTranslator translator;
    QVERIFY(!translator.load(name, m_directory->path()));
    const QString start = QLatin1Char('"') + path(name + text(".qm")) + text("\" because ");
    QCOMPARE(translator.error(), start + text(reason).replace(text("DIR"), m_directory->path()));
    QCOMPARE(translator.filePath(), QString());
    QVERIFY(translator.isEmpty());
    QVERIFY(findsNothing(translator));
}

void CatalogDamageTest::damage_data()
{
    QTest::addColumn<QByteArray>("catalog");
    const auto row = [](const char *name, const QByteArray &catalog) { QTest::newRow(name) << catalog; };
    row("empty file", {});
    row("text", "no catalog at all\n");
    row("zeros", QByteArray(4096, '\0'));
    row("part of the magic number", magic().left(15));
    row("other magic number", QByteArray(sound()).replace(0, 1, "<x"));

    row("rest of 1 byte", sound() + '\x69');
    row("rest of 5 bytes", sound() + part(0x11, ""));
    row("section of tag 0", sound() + part(0, "x"));
    row("empty section", sound() + part(0x11, "") + part(0x12, "x"));
    row("section beyond the end", sound() + part(0x11, 2, "x"));
    row("section of 4 GB", sound() + part(0x11, 0xffffffff, "x"));
    row("section of 2 GB", sound() + part(0x11, 0x80000000, "x"));
    row("section twice", sound() + messages(message()));

    row("half a hash", magic() + hashes(entry(HashOfA, 0) + number32(HashOfA)) + messages(message()));
    row("hashes that are not sorted", magic()
                                          + hashes(entry(HashOfB, 0) + entry(HashOfA, quint32(message().size())))
                                          + messages(message() + message()));
    row("hashes without messages", magic() + hashes(entry(HashOfA, 0)));
    row("offset at the end of the messages",
        magic() + hashes(entry(HashOfA, quint32(message().size()))) + messages(message()));
    row("offset beyond the messages", magic() + hashes(entry(HashOfA, 0x7fffffff)) + messages(message()));
    row("offset of 4 GB", magic() + hashes(entry(HashOfA, 0xffffffff)) + messages(message()));
    row("two hashes for one message",
        magic() + hashes(entry(HashOfA, 0) + entry(HashOfB, 0)) + messages(message()));
    row("message within a message", magic() + hashes(entry(HashOfA, 0) + entry(HashOfB, 7)) + messages(message()));

    row("message without an end", withMessage(translation("A") + source("a")));
    row("tag 0", withMessage(translation("A") + '\0' + end()));
    row("unknown tag", withMessage(part(2, utf16("x")) + message()));
    row("translation of 3 bytes", withMessage(part(3, "abc") + source("a") + end()));
    row("translation beyond the end", withMessage(part(3, 1000, utf16("A")) + source("a") + end()));
    row("translation of 2 GB", withMessage(part(3, 0x7ffffffe, utf16("A")) + source("a") + end()));
    row("translation of -2 bytes", withMessage(part(3, 0xfffffffe, utf16("A")) + source("a") + end()));
    row("translation back to its start", withMessage(part(3, quint32(-5), {}) + message()));
    row("length of a translation cut off", withMessage(translation("A") + QByteArray("\3\0\0", 3)));
    row("source text beyond the end", withMessage(translation("A") + part(6, 1000, "a") + end()));
    row("source text of 4 GB", withMessage(translation("A") + part(6, NullText, {}) + end()));
    row("source text of 2 GB", withMessage(translation("A") + part(6, 0x7fffffff, "a") + end()));
    row("context beyond the end", withMessage(translation("A") + part(7, 1000, "Menu") + source("a") + end()));
    row("context of 4 GB", withMessage(translation("A") + part(7, NullText, {}) + source("a") + end()));
    row("comment beyond the end", withMessage(translation("A") + part(8, 1000, "x") + source("a") + end()));
    row("comment of 4 GB", withMessage(translation("A") + part(8, NullText, {}) + source("a") + end()));
    row("hash in a message cut off", withMessage(translation("A") + QByteArray("\5\0\0", 3)));

    row("table of 1 byte", sound() + contexts("\1"));
    row("table of no context", sound() + contexts(number16(0) + number16(0)));
    row("table beyond the end", sound() + contexts(number16(2) + number16(0)));
    row("contexts beyond the end", sound() + contexts(number16(1) + number16(1000)));
    row("context of the table beyond the end",
        sound() + contexts(number16(1) + number16(1) + number16(0) + QByteArray("\5Menu", 5)));
    row("contexts without an end", sound() + contexts(number16(1) + number16(1) + number16(0) + "\4Menu"));

    row("rule without an operator", sound() + numerusRules(QByteArray("\0\1", 2)));
    row("rule of an unknown operator", sound() + numerusRules("\5\1"));
    row("rule without an operand", sound() + numerusRules("\1"));
    row("range without an end", sound() + numerusRules("\4\1"));
    row("nothing between two rules", sound() + numerusRules("\1\1\1\1"));
    row("nothing after the last rule", sound() + numerusRules("\1\1\xff"));

    row("name of a dependency beyond the end", sound() + dependencySection(number32(100) + utf16("menu-pl")));
    row("name of a dependency of 3 bytes", sound() + dependencySection(number32(3) + "abc"));
    row("name of a dependency of 4 GB", sound() + dependencySection(number32(0xfffffffe) + utf16("menu-pl")));
    row("length of a dependency cut off", sound() + dependencySection(QByteArray(3, '\0')));
}

void CatalogDamageTest::damage()
{
    QFETCH(QByteArray, catalog);
    write(text("damaged.qm"), catalog);
    expectRefusal(text("damaged"), "it is damaged, or no compiled catalog");

    write(text("dependent.qm"), withDependencies({"menu-pl", "damaged"}));
    expectRefusal(text("dependent"), "its dependency \"DIR/damaged.qm\" is damaged, or no compiled catalog");
}

/// A file that is still being copied
void CatalogDamageTest::everyLength()
{
    for (const char *name : {"sample-fi", "menu-pl", "plural-pl", "compressed-pl"}) {
        QFile file(text(VELKA_TEST_CATALOGS "/") + text(name) + text(".qm"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray catalog = file.readAll();
        int accepted = 0;
        for (int length = 0; length < catalog.size(); ++length) {
            write(text("cut.qm"), catalog.left(length));
            CatalogTranslator translator;
            const bool isLoaded = translator.load(text("cut"), m_directory->path());
            QCOMPARE(translator.error().isEmpty(), isLoaded);
            if (!isLoaded) {
                QVERIFY(translator.isEmpty());
                continue;
            }
            ++accepted;
            QTranslator expected;
            QVERIFY(expected.load(text("cut"), m_directory->path()));
            QCOMPARE(lookUp(translator), lookUp(expected));
        }
        // Only between two sections
        QVERIFY2(accepted <= 5, name);
    }
}

void CatalogDamageTest::badDependencies_data()
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
    row("name with a null character", {QByteArray("no\0such", 7)}, {},
        "its dependency \"no\\u0000such\" is missing");
    row("name with a line break", {"no\nsuch"}, {}, "its dependency \"no\\nsuch\" is missing");
}

void CatalogDamageTest::badDependencies()
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

/// QTranslator would look for ever shorter names, for hours.
void CatalogDamageTest::longDependency()
{
    const QByteArray name = QByteArray("_a").repeated(100000);
    write(text("a.qm"), withDependencies({name}));
    const QByteArray reason = "its dependency \"" + name + "\" is missing";
    expectRefusal(text("a"), reason.constData());
}

/// Each of few files that depend on the next one twice doubles what there is to load.
void CatalogDamageTest::manyDependencies()
{
    constexpr int MaxFiles = 64;
    const auto name = [](int number) { return QByteArray::number(number); };
    for (int i = 0; i < 40; ++i) {
        write(QString::number(i) + text(".qm"), withDependencies({name(i + 1), name(i + 1)}));
    }
    write(text("40.qm"), sound());
    QByteArrayList names;
    for (int i = 0; i < MaxFiles - 1; ++i) {
        names.append("40");
    }
    expectRefusal(text("0"), "its dependency \"DIR/39.qm\" is one of too many dependencies");

    write(text("most.qm"), withDependencies(names));
    expectTexts(text("most"));
    write(text("more.qm"), withDependencies(names + QByteArrayList{"40"}));
    expectRefusal(text("more"), "its dependency \"DIR/40.qm\" is one of too many dependencies");
}

void CatalogDamageTest::sizeLimit()
{
    constexpr int MaxSize = 16 << 20;
    const int room = MaxSize - sound().size() - part(0x11, "").size();
    write(text("largest.qm"), sound() + part(0x11, QByteArray(room, 'x')));
    expectTexts(text("largest"));
    write(text("larger.qm"), sound() + part(0x11, QByteArray(room + 1, 'x')));
    expectRefusal(text("larger"), "it cannot be read: larger than 16777216 bytes");

    const QByteArray dependent = withDependencies({"largest"});
    write(text("dependent.qm"), dependent);
    const QByteArray reason = "its dependency \"DIR/largest.qm\" cannot be read: larger than "
                              + QByteArray::number(MaxSize - dependent.size()) + " bytes";
    expectRefusal(text("dependent"), reason.constData());
}

/// Whatever refers to what: the same bytes are not checked again and again.
void CatalogDamageTest::timeIsLinear()
{
    // Each message ends with all that follow, each bucket of contexts with all the others.
    const auto overlapping = [](int count) {
        QByteArray entries;
        QByteArray content;
        for (int i = 0; i < count; ++i) {
            entries += entry(HashOfA, quint32(5 * (count - 1 - i)));
            content += char(5) + number32(0);
        }
        return magic() + hashes(entries) + messages(content + end());
    };
    const auto nested = [](int count) {
        QByteArray table = number16(quint16(count));
        for (int i = 0; i < count; ++i) {
            table += number16(quint16(1 + i));
        }
        return sound() + contexts(table + number16(0) + QByteArray("\1x").repeated(count) + number16(0));
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

QTEST_GUILESS_MAIN(CatalogDamageTest)
#include "tst_catalogdamage.moc"
