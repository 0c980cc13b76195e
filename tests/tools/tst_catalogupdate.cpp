// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "kitdirectory.h"
#include "text.h"

#include <QTest>

#include <sys/stat.h>

/// What "translate" carries over into catalogs, and what it refuses so that nothing is lost.
class CatalogUpdateTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void noTemporaryDirectory_data();
    void noTemporaryDirectory();
    void fullDisk_data();
    void fullDisk();
    void refusesIds_data();
    void refusesIds();
    void refusesTwoTextsOfOneId();
    void idWithoutText();
    void controlCharacters();
    void keepsOtherParts_data();
    void keepsOtherParts();
    void keepsIdsOfPrograms();
    void refusesCatalogs_data();
    void refusesCatalogs();
    void languageOfName_data();
    void languageOfName();
    void catalogInAnotherDirectory();
    void fifo();

private:
    QScopedPointer<KitDirectory> m_directory;
};

namespace
{
const char s_lamp[] = R"({"entries": [{"path": "lamp", "translation_id": "lamp-he-lamp", "title": "Lamp"}]})";
const char s_finnish[] = R"(<?xml version="1.0" encoding="utf-8"?>
<!-- A <TS> -->
<!DOCTYPE TS>
<!-- Another -->
<TS version="2.1" language="fi" sourcelanguage="en">
<context>
    <name></name>
    <message id="lamp-he-lamp" numerus="yes">
        <location filename="lamp.json" line="1"/>
        <source>Lamp</source>
        <translation>
            <numerusform>Lamppu</numerusform>
            <numerusform>Lamput</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <location filename="main.cpp" line="4"/>
        <source>Open</source>
        <translation>Avaa</translation>
    </message>
</context>
</TS>
)";

const QStringList s_update{QStringLiteral("translate"), QStringLiteral("update"), QStringLiteral("@lamp.json"),
                           QStringLiteral("@lamp-fi.ts")};
const QStringList s_extract{QStringLiteral("translate"), QStringLiteral("extract"), QStringLiteral("@lamp.json"),
                            QStringLiteral("-o"), QStringLiteral("@lamp-fi.ts")};

/// Returns a registration file with one entry.
QByteArray entry(const QByteArray &id, const QByteArray &title)
{
    return QByteArray(s_lamp).replace("lamp-he-lamp", id).replace("Lamp", title);
}
}

void CatalogUpdateTest::init()
{
    m_directory.reset(new KitDirectory);
    m_directory->write(text("lamp.json"), s_lamp);
    m_directory->write(text("lamp-fi.ts"), s_finnish);
}

void CatalogUpdateTest::noTemporaryDirectory_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("update") << s_update;
    QTest::newRow("extract") << s_extract;
}

void CatalogUpdateTest::noTemporaryDirectory()
{
    QFETCH(QStringList, arguments);
    const Tool::Result result = m_directory->runAfter(text("export TMPDIR=/proc"), arguments);
    QCOMPARE(result.exitCode, 2);
    QVERIFY2(result.errors.contains("cannot create a temporary directory"), result.errors.constData());
    QCOMPARE(m_directory->read(text("lamp.json")), QByteArray(s_lamp));
    QCOMPARE(m_directory->read(text("lamp-fi.ts")), QByteArray(s_finnish));
}

/// A limit for the size of files stands for a full disk: writing fails in the same way.
void CatalogUpdateTest::fullDisk_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("blocks");
    for (const int blocks : {1, 16, 64, 80, 96}) {
        QTest::addRow("update, %d", blocks) << s_update << blocks;
        QTest::addRow("extract, %d", blocks) << s_extract << blocks;
    }
}

void CatalogUpdateTest::fullDisk()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, blocks);
    QByteArray entries = R"({"entries": [)";
    for (int i = 0; i < 300; ++i) {
        entries += QByteArray(R"({"path": "lamp/%1", "translation_id": "lamp-he-%1", "title": "Lamp %1"},)")
                       .replace("%1", QByteArray::number(i));
    }
    m_directory->write(text("lamp.json"), entries + R"({"path": "lamp"}]})");
    const QString limit = text("trap '' XFSZ; ulimit -f %1").arg(blocks);
    const Tool::Result result = m_directory->runAfter(limit, arguments);
    QCOMPARE(result.exitCode, 2);
    QVERIFY(!result.errors.isEmpty());
    QCOMPARE(m_directory->read(text("lamp-fi.ts")), QByteArray(s_finnish));
}

void CatalogUpdateTest::refusesIds_data()
{
    QTest::addColumn<QByteArray>("id");
    for (const char *id : {"lamp-he-a&b", "lamp-he-a<b", "lamp-he-a\\\"b", "lamp-he-a\\u0001b", "lamp-he-a\\nb"}) {
        QTest::newRow(id) << QByteArray(id);
    }
}

void CatalogUpdateTest::refusesIds()
{
    QFETCH(QByteArray, id);
    m_directory->write(text("lamp.json"), entry(id, "Lamp"));
    for (const QStringList &arguments : {s_update, s_extract}) {
        const Tool::Result result = m_directory->run(arguments);
        QCOMPARE(result.exitCode, 2);
        QVERIFY2(result.errors.contains("lamp.json:1: a catalog (*.ts) cannot have the id \"lamp-he-a"),
                 result.errors.constData());
        QCOMPARE(m_directory->read(text("lamp-fi.ts")), QByteArray(s_finnish));
    }
}

void CatalogUpdateTest::refusesTwoTextsOfOneId()
{
    m_directory->write(text("other.json"), entry("lamp-he-lamp", "Light"));
    const Tool::Result result = m_directory->run(s_update + QStringList(text("@other.json")));
    QCOMPARE(result.exitCode, 2);
    QVERIFY2(result.errors.contains("other.json:1: the id \"lamp-he-lamp\" has two texts: \"Lamp\" and \"Light\""),
             result.errors.constData());
}

void CatalogUpdateTest::idWithoutText()
{
    m_directory->write(text("lamp.json"), entry("lamp-he-lamp", ""));
    m_directory->run(s_extract);
    const QStringList check{text("translate"), text("check"), text("@lamp.json"), text("@lamp-fi.ts")};
    const Tool::Result result = m_directory->run(check);
    QVERIFY2(result.output.contains("\"lamp-he-lamp\" has no engineering English"), result.output.constData());
    m_directory->write(text("other.json"), s_lamp);
    QCOMPARE(m_directory->run(s_extract + QStringList(text("@other.json"))).exitCode, 0);
    QCOMPARE(m_directory->run(check + QStringList(text("@other.json"))).exitCode, 0);
}

void CatalogUpdateTest::controlCharacters()
{
    m_directory->write(text("lamp.json"), entry("lamp-he-lamp", "Bell\\u0001 \\uD83C\\uDFB5"));
    QCOMPARE(m_directory->run(s_extract).errors, QByteArray());
    const QByteArray translation = "Bell<byte value=\"x1\"/> \xF0\x9F\x8E\xB5</translation>";
    const QByteArray catalog = m_directory->read(text("lamp-fi.ts"));
    QVERIFY2(catalog.contains(translation), catalog.constData());
    const Tool::Result result = m_directory->run(
        {text("translate"), text("check"), text("@lamp.json"), text("@lamp-fi.ts")});
    QVERIFY2(result.output.contains("1 of 1 texts"), result.errors.constData());
}

void CatalogUpdateTest::keepsOtherParts_data()
{
    QTest::addColumn<QByteArray>("part");
    const QByteArray catalog = s_finnish;
    const int context = catalog.lastIndexOf("<context>");
    QTest::newRow("comments") << catalog.left(catalog.indexOf("<context>"));
    QTest::newRow("plural") << catalog.mid(catalog.indexOf("<translation>"), 140);
    QTest::newRow("context of a program")
        << catalog.mid(context, catalog.indexOf("</context>", context) - context);
}

void CatalogUpdateTest::keepsOtherParts()
{
    QFETCH(QByteArray, part);
    m_directory->write(text("lamp.json"), QByteArray(s_lamp).replace("[{", R"([{"path": "a", "translation_id":
 "lamp-he-a", "title": "A"}, {)"));
    QCOMPARE(m_directory->run(s_update).errors, QByteArray());
    const QByteArray updated = m_directory->read(text("lamp-fi.ts"));
    QVERIFY(updated.contains("lamp-he-a"));
    QVERIFY2(updated.contains(part), updated.constData());
    QCOMPARE(m_directory->run(s_update).errors, QByteArray());
    QCOMPARE(m_directory->read(text("lamp-fi.ts")), updated);
}

void CatalogUpdateTest::keepsIdsOfPrograms()
{
    const QByteArray messages = R"(
    <message id="window-he-open">
        <location filename="main.cpp" line="4"/>
        <source>Open</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="window-he-close" numerus="yes">
        <location line="+2"/>
        <location filename="lamp.json" line="1"/>
        <source>Close</source>
        <extracomment>A button</extracomment>
        <translation>
            <numerusform>Sulje</numerusform>
            <numerusform>Sulje</numerusform>
        </translation>
    </message>)";
    const QByteArray others = R"(
    <message id="lamp-he-gone">
        <location filename="lamp.json" line="1"/>
        <source>Gone</source>
        <translation>Poissa</translation>
    </message>
    <message id="window-he-unplaced">
        <source>Unplaced</source>
        <translation>Paikaton</translation>
    </message>)";
    m_directory->write(text("lamp-fi.ts"),
                       QByteArray(s_finnish).replace("<name></name>", "<name></name>" + messages + others));
    QCOMPARE(m_directory->run(s_update).errors, QByteArray());
    const QByteArray updated = m_directory->read(text("lamp-fi.ts"));
    QVERIFY2(updated.contains(messages), updated.constData());
    QCOMPARE(updated.count("type=\"vanished\""), 2);
    QVERIFY(updated.contains("<translation type=\"vanished\">Poissa<"));
    QVERIFY(updated.contains("<translation type=\"vanished\">Paikaton<"));
    QCOMPARE(m_directory->run(s_update).errors, QByteArray());
    QCOMPARE(m_directory->read(text("lamp-fi.ts")), updated);

    m_directory->write(text("lamp.json"), entry("window-he-open", "Open"));
    QCOMPARE(m_directory->run(s_update).errors, QByteArray());
    const QByteArray shared = m_directory->read(text("lamp-fi.ts"));
    QCOMPARE(shared.count("\"window-he-open\""), 1);
    QVERIFY2(shared.contains("id=\"window-he-open\">\n        <location filename=\"lamp.json\" line=\"1\"/>"),
             shared.constData());
}

void CatalogUpdateTest::refusesCatalogs_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("message");
    const QByteArray latin1 = QByteArray(s_finnish).replace("utf-8", "iso-8859-1").replace("Another", "\xe4");
    QTest::newRow("Latin-1") << text("lamp-fi.ts") << latin1 << QByteArray("is not in UTF-8");
    QTest::newRow("not UTF-8") << text("lamp-fi.ts") << QByteArray(s_finnish).replace("Another", "\xe4")
                               << QByteArray("lamp-fi.ts\" is not in UTF-8");
    QTest::newRow("engineering English")
        << text("lamp_eng_en.ts") << QByteArray(s_finnish) << QByteArray("is not a translation");
}

void CatalogUpdateTest::refusesCatalogs()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    QFETCH(QByteArray, message);
    m_directory->write(name, content);
    const Tool::Result result = m_directory->run(
        {text("translate"), text("update"), text("@lamp.json"), text("@") + name});
    QCOMPARE(result.exitCode, 2);
    QVERIFY2(result.errors.contains(message), result.errors.constData());
    QCOMPARE(m_directory->read(name), content);
}

void CatalogUpdateTest::languageOfName_data()
{
    QTest::addColumn<QByteArray>("language");
    QTest::newRow("lamp-de") << QByteArray("de");
    QTest::newRow("lamp_de") << QByteArray("de");
    QTest::newRow("de") << QByteArray("de");
    QTest::newRow("my-lamp-de") << QByteArray("de");
    QTest::newRow("lamp-sr-Latn") << QByteArray("sr_Latn");
    QTest::newRow("lamp_sr_Latn_RS") << QByteArray("sr_Latn_RS");
    QTest::newRow("lamp-pt_BR") << QByteArray("pt_BR");
    QTest::newRow("org.example.lamp-es_419") << QByteArray("es_419");
    QTest::newRow("lamp") << QByteArray();
    QTest::newRow("lamp-tv") << QByteArray();
    QTest::newRow("lamp-garden") << QByteArray();
}

void CatalogUpdateTest::languageOfName()
{
    QFETCH(QByteArray, language);
    const QString name = text(QTest::currentDataTag()) + text(".ts");
    const Tool::Result result = m_directory->run(
        {text("translate"), text("update"), text("@lamp.json"), text("@") + name});
    QCOMPARE(result.exitCode, language.isEmpty() ? 2 : 0);
    QCOMPARE(result.errors.contains("has no language"), language.isEmpty());
    QCOMPARE(m_directory->read(name).contains("language=\"" + language + '"'), !language.isEmpty());
}

void CatalogUpdateTest::catalogInAnotherDirectory()
{
    m_directory->write(text("translations/lamp-fi.ts"), s_finnish);
    for (const char *name : {"@translations/lamp-fi.ts", "@translations/lamp-de.ts"}) {
        QCOMPARE(m_directory->run({text("translate"), text("update"), text("@lamp.json"), text(name)}).errors,
                 QByteArray());
        QVERIFY(m_directory->read(text(name).mid(1)).contains("filename=\"../lamp.json\""));
    }
}

void CatalogUpdateTest::fifo()
{
    QCOMPARE(mkfifo(m_directory->path(text("pipe-fi.ts")).toUtf8().constData(), 0600), 0);
    for (const char *action : {"update", "check"}) {
        const Tool::Result result = m_directory->run(
            {text("translate"), text(action), text("@lamp.json"), text("@pipe-fi.ts")});
        QCOMPARE(result.exitCode, 2);
        QVERIFY2(result.errors.contains("not a regular file"), result.errors.constData());
    }
}

QTEST_GUILESS_MAIN(CatalogUpdateTest)
#include "tst_catalogupdate.moc"
