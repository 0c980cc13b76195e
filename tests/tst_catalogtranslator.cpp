// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "catalogbytes.h"
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

#include <memory>

using namespace CatalogBytes;

class CatalogTranslatorTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void sameTexts_data();
    void sameTexts();
    void sourceTexts_data();
    void sourceTexts();
    void unusualCatalogs_data();
    void unusualCatalogs();
    void sameNumerusRules();

    void sameSearchByName();
    void sameSearchByLocale();
    void resources();

    void changedFiles();
    void otherCatalog();
    void deletion();

private:
    QString path(const QString &name) const;
    void write(const QString &name, const QByteArray &content) const;
    void scatter(const QStringList &names, QRandomGenerator *random) const;
    void expectSame(const QString &name) const;

    std::unique_ptr<QTemporaryDir> m_directory;
};

void CatalogTranslatorTest::init()
{
    m_directory = std::make_unique<QTemporaryDir>(text("/usr/share/translations/XXXXXX")); // in memory
    const QDir compiled(text(VELKA_TEST_CATALOGS));
    const QStringList names = compiled.entryList(QDir::Files);
    for (const QString &name : names) {
        QVERIFY(QFile::link(compiled.filePath(name), path(name)));
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
            write(name, sound());
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

void CatalogTranslatorTest::sourceTexts_data()
{
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("sample-fi") << QStringList{text("test-both"), text("test-locale")}; // ids
    QTest::newRow("menu-pl") << QStringList{text("%n day(s)"), text("Cancel"), text("Close"),
                                            text("Open"),      text("Open"),   text("Open")};
    QTest::newRow("dependent-pl") << QStringList(text("Print"));
    QTest::newRow("compressed-pl") << QStringList{text("Back"), text("Next"), text("Open")};
    QTest::newRow("collection-pl") << QStringList();
    QTest::newRow("missing") << QStringList();
}

void CatalogTranslatorTest::sourceTexts()
{
    CatalogTranslator translator;
    translator.load(QLatin1String(QTest::currentDataTag()), m_directory->path());
    QStringList found;
    for (const QByteArray &sourceText : translator.sourceTexts()) {
        found.append(QString::fromUtf8(sourceText));
    }
    found.sort();
    QTEST(found, "texts");
}

void CatalogTranslatorTest::unusualCatalogs_data()
{
    QTest::addColumn<QByteArray>("catalog");
    QTest::newRow("nothing but the magic number") << magic();
    QTest::newRow("plain") << sound();
    QTest::newRow("unknown section") << sound() + part(0x11, "anything");
    QTest::newRow("sections in another order")
        << magic() + messages(message()) + hashes(entry(HashOfA, 0)) + part(0xa7, "fi");
    QTest::newRow("messages without hashes") << magic() + messages("anything");
    QTest::newRow("form without a text") << withMessage(part(3, NullText, {}) + message());
    QTest::newRow("form without a text at the end")
        << withMessage(translation("A") + part(3, NullText, {}) + source("a") + end());
    QTest::newRow("hash in a message") << withMessage(translation("A") + source("a") + char(5) + number32(1)
                                                      + end());
    QTest::newRow("message without translations") << withMessage(source("a") + end());
    QTest::newRow("two messages with one hash")
        << magic() + hashes(entry(HashOfA, 0) + entry(HashOfA, quint32(message().size())))
               + messages(translation("B") + source("b") + end() + message());
    QTest::newRow("messages that nothing refers to")
        << magic() + hashes(entry(HashOfA, 3)) + messages("xyz" + message() + "xyz");
    QTest::newRow("contexts with zeros at their ends")
        << sound() + contexts(number16(1) + number16(1) + number16(0) + QByteArray("\5Menu\0\0", 7));
    QTest::newRow("contexts that are all empty") << sound() + contexts(number16(1) + number16(0));
    QTest::newRow("buckets with the same end")
        << sound()
               + contexts(number16(2) + number16(1) + number16(2) + number16(0) + QByteArray("\1x\4Menu\0", 8));
}

void CatalogTranslatorTest::unusualCatalogs()
{
    QFETCH(QByteArray, catalog);
    write(text("unusual.qm"), catalog);
    expectSame(text("unusual"));
    write(text("unusual.qm"), catalog + withDependencies({"menu-pl"}).mid(sound().size()));
    expectSame(text("unusual"));
}

void CatalogTranslatorTest::sameNumerusRules()
{
    static const char bytes[] = "\x00\x01\x02\x03\x04\x05\x09\x0a\x13\x22\x44\x81\xfc\xfd\xfe\xff";
    QRandomGenerator random(1);
    int accepted = 0;
    for (int i = 0; i < 3000; ++i) {
        QByteArray rules;
        for (int length = random.bounded(1, 10); length > 0; --length) {
            rules += bytes[random.bounded(int(sizeof(bytes)) - 1)];
        }
        const QByteArray catalog = sound() + numerusRules(rules);
        write(text("rules.qm"), catalog);
        QTranslator expected;
        CatalogTranslator translator;
        QCOMPARE(translator.load(text("rules"), m_directory->path()),
                 expected.load(text("rules"), m_directory->path()));
        accepted += expected.isEmpty() ? 0 : 1;
    }
    QVERIFY(accepted > 100);
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

/// Of what is loaded nothing depends on the files any more.
void CatalogTranslatorTest::changedFiles()
{
    const QStringList names = QDir(m_directory->path()).entryList(QDir::Files);
    for (const QString &name : names) {
        const QString link = path(name);
        const QString compiled = QFile::symLinkTarget(link);
        QVERIFY(QFile::remove(link) && QFile::copy(compiled, link));
    }
    CatalogTranslator translator;
    QVERIFY(translator.load(text("compressed-pl"), m_directory->path()));
    const QStringList before = lookUp(translator);
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
