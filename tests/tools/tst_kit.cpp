// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "kitdirectory.h"
#include "text.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTest>

#include <sys/stat.h>

/// The commands that package authors build with: install and translate.
class KitTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void installsUnderContentName();
    void upgradeReplacesEarlierVersion();
    void otherFilesStay();
    void copyIsReadableForAll();
    void renamesInPackage();
    void renamesOnce();
    void listChangesNothing();
    void refusesTwoFilesOfOneName();
    void refusesTwoVersionsOfOneFile();
    void renamesInSeveralDirectories();
    void refusesFileGivenTwice();
    void editedFileStays_data();
    void editedFileStays();
    void refusesFifo();
    void reportsUnwritableDirectory();

    void extractsTexts();
    void extractsOddTexts_data();
    void extractsOddTexts();
    void updateKeepsTranslations();
    void updateCreatesCatalog();
    void updateKeepsComments();
    void checkTellsWhatIsMissing();
    void pseudo_data();
    void pseudo();
    void pseudoWritesPlurals_data();
    void pseudoWritesPlurals();
    void missingLupdate();
    void refuses_data();
    void refuses();

private:
    QScopedPointer<KitDirectory> m_directory;
};

namespace
{
const char s_sound[] = R"({
    "translation_catalog": "sound",
    "entries": [
        {"path": "sound", "translation_id": "sound-he-sound", "title": "Sound",
         "translation_id_short": "sound-he-snd", "title_short": "Snd"},
        {"path": "sound/volume", "title": "Volume", "translation_id": "sound-he-volume",
         "keywords_id": "sound-la-loud", "keywords": ["loud", "quiet"]},
        {"path": "sound/plain", "title": "No id"}
    ]
})";
const char s_finnish[] = R"(<?xml version="1.0" encoding="utf-8"?>
<!-- A comment -->
<!DOCTYPE TS>
<TS version="2.1" language="fi" sourcelanguage="en">
<context>
    <name></name>
    <message id="sound-he-sound">
        <source>Sound</source>
        <translation>Ääni</translation>
    </message>
    <message id="sound-he-volume">
        <source>Loudness</source>
        <translation>Voimakkuus</translation>
    </message>
    <message id="sound-he-gone">
        <source>Gone</source>
        <translation>Poissa</translation>
    </message>
</context>
</TS>
)";

QString hashOf(const QByteArray &content)
{
    return QString::fromLatin1(QCryptographicHash::hash(content, QCryptographicHash::Sha256).toHex().left(6));
}

QString soundName(const QByteArray &content)
{
    return text("sound-") + hashOf(content) + text(".json");
}
}

void KitTest::init()
{
    m_directory.reset(new KitDirectory);
    m_directory->write(text("sound.json"), s_sound);
}

void KitTest::installsUnderContentName()
{
    const Tool::Result result = m_directory->run(
        {text("install"), text("--into"), text("@new/entries"), text("@sound.json")});
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.output, soundName(s_sound).toUtf8() + '\n');
    QCOMPARE(QDir(m_directory->path(text("new/entries"))).entryList(QDir::Files), QStringList(soundName(s_sound)));
    QCOMPARE(m_directory->read(text("new/entries/") + soundName(s_sound)), QByteArray(s_sound));
    QCOMPARE(m_directory->read(text("sound.json")), QByteArray(s_sound));
}

void KitTest::upgradeReplacesEarlierVersion()
{
    const QStringList install{text("install"), text("--into"), text("@installed"), text("@sound.json")};
    QCOMPARE(m_directory->run(install).exitCode, 0);
    const QByteArray changed = QByteArray(s_sound).replace("Sound", "Audio");
    m_directory->write(text("sound.json"), changed);
    QCOMPARE(m_directory->run(install).exitCode, 0);
    QCOMPARE(QDir(m_directory->path(text("installed"))).entryList(QDir::Files), QStringList(soundName(changed)));
}

void KitTest::otherFilesStay()
{
    const QByteArray other = R"({"entries": []})";
    const QStringList names{text("sound.json"), text("sound-000000.json"),
                            text("sounds-") + hashOf(other) + text(".json"),
                            text("other-") + hashOf(other) + text(".json")};
    for (const QString &name : names) {
        m_directory->write(text("installed/") + name, other);
    }
    QCOMPARE(m_directory->run({text("install"), text("--into"), text("@installed"), text("@sound.json")}).exitCode,
             0);
    QStringList expected = names + QStringList(soundName(s_sound));
    expected.sort();
    QCOMPARE(QDir(m_directory->path(text("installed"))).entryList(QDir::Files), expected);
}

void KitTest::copyIsReadableForAll()
{
    const QStringList install{text("install"), text("--into"), text("@."), text("@sound.json")};
    QCOMPARE(m_directory->runAfter(text("umask 077"), install).exitCode, 0);
    QVERIFY(QFile::permissions(m_directory->path(soundName(s_sound))).testFlag(QFile::ReadOther));
}

void KitTest::renamesInPackage()
{
    const QString entries = text("root/usr/share/velka-settings/entries");
    m_directory->write(entries + text("/sound.json"), s_sound);
    m_directory->write(entries + text("/fakesound.json"), s_sound);
    m_directory->write(text("root/usr/share/velka-settings/favorites-blacklist.json"), "[]");
    QCOMPARE(m_directory->run({text("install"), text("@root")}).exitCode, 0);
    QCOMPARE(QDir(m_directory->path(entries)).entryList(QDir::Files),
             (QStringList{text("fakesound.json"), soundName(s_sound)}));
    QCOMPARE(m_directory->read(text("root/usr/share/velka-settings/favorites-blacklist.json")), QByteArray("[]"));
}

void KitTest::renamesOnce()
{
    const QString name = soundName(s_sound);
    m_directory->write(name, s_sound);
    QCOMPARE(m_directory->run({text("install"), QLatin1Char('@') + name}).output, name.toUtf8() + '\n');
    QCOMPARE(m_directory->run({text("install"), text("@sound.json")}).exitCode, 0);
    QCOMPARE(QDir(m_directory->path(text("."))).entryList(QDir::Files), QStringList(name));
}

void KitTest::listChangesNothing()
{
    const Tool::Result result = m_directory->run(
        {text("install"), text("--list"), text("--into"), text("@new"), text("@sound.json")});
    QCOMPARE(result.output, soundName(s_sound).toUtf8() + '\n');
    QVERIFY(!QDir(m_directory->path(text("new"))).exists());
}

void KitTest::refusesTwoFilesOfOneName()
{
    m_directory->write(text("other/sound.json"), "{}");
    const Tool::Result result = m_directory->run(
        {text("install"), text("--into"), text("@new"), text("@sound.json"), text("@other/sound.json")});
    QCOMPARE(result.exitCode, 2);
    QVERIFY(result.errors.contains("two files have the name \"sound.json\""));
    QVERIFY(!QDir(m_directory->path(text("new"))).exists());
}

void KitTest::refusesTwoVersionsOfOneFile()
{
    const QByteArray other = R"({"entries": []})";
    m_directory->write(soundName(other), other);
    const Tool::Result result = m_directory->run(
        {text("install"), text("--into"), text("@new"), text("@sound.json"), text("@") + soundName(other)});
    QCOMPARE(result.exitCode, 2);
    QVERIFY2(result.errors.contains("two files have the name \"sound.json\""), result.errors.constData());
    QCOMPARE(result.output, QByteArray());
}

void KitTest::renamesInSeveralDirectories()
{
    m_directory->write(text("other/sound.json"), "{}");
    QCOMPARE(m_directory->run({text("install"), text("@sound.json"), text("@other/sound.json")}).exitCode, 0);
    QCOMPARE(m_directory->read(soundName(s_sound)), QByteArray(s_sound));
    QCOMPARE(m_directory->read(text("other/") + soundName("{}")), QByteArray("{}"));
}

void KitTest::refusesFileGivenTwice()
{
    const Tool::Result result = m_directory->run({text("install"), text("@sound.json"), text("@sound.json")});
    QCOMPARE(result.exitCode, 2);
    QVERIFY(result.errors.contains("is given twice"));
    QCOMPARE(m_directory->read(text("sound.json")), QByteArray(s_sound));
}

void KitTest::editedFileStays_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::newRow("renamed") << QStringList();
    QTest::newRow("copied") << QStringList{text("--into"), text("@.")};
}

void KitTest::editedFileStays()
{
    QFETCH(QStringList, options);
    m_directory->write(soundName(s_sound), "edited");
    const Tool::Result result = m_directory->run(QStringList{text("install"), text("@sound.json")} + options);
    QCOMPARE(result.exitCode, 2);
    QVERIFY2(result.errors.contains("has other content than its name says"), result.errors.constData());
    QCOMPARE(m_directory->read(soundName(s_sound)), QByteArray("edited"));
    QCOMPARE(m_directory->read(text("sound.json")), QByteArray(s_sound));
}

void KitTest::refusesFifo()
{
    QVERIFY(QDir().mkpath(m_directory->path(text("entries"))));
    QCOMPARE(mkfifo(m_directory->path(text("entries/x.json")).toUtf8().constData(), 0600), 0);
    const Tool::Result result = m_directory->run({text("install"), text("--list"), text("@entries")});
    QCOMPARE(result.exitCode, 2);
    QVERIFY2(result.errors.contains("x.json\": not a regular file"), result.errors.constData());
}

void KitTest::reportsUnwritableDirectory()
{
    const Tool::Result result = m_directory->run(
        {text("install"), text("--into"), text("/proc/new"), text("@sound.json")});
    QCOMPARE(result.exitCode, 2);
    QVERIFY2(result.errors.contains("cannot write \"/proc/new/sound-"), result.errors.constData());
}

void KitTest::extractsTexts()
{
    m_directory->write(text("entries/sound.json"), s_sound);
    const Tool::Result result = m_directory->run(
        {text("translate"), text("extract"), text("@entries"), text("-o"), text("@sound_eng_en.ts")});
    QCOMPARE(result.errors, QByteArray());
    QCOMPARE(result.exitCode, 0);
    const QByteArray message = R"(    <message id="%1">
        <location filename="entries/sound.json" line="%2"/>
        <source>%3</source>
        <translation>%3</translation>
    </message>
)";
    const auto expected = [&message](const char *id, const char *line, const char *source) {
        return QByteArray(message).replace("%1", id).replace("%2", line).replace("%3", source);
    };
    const QByteArray catalog = m_directory->read(text("sound_eng_en.ts"));
    for (const QByteArray &part :
         {expected("sound-he-sound", "4", "Sound"), expected("sound-he-snd", "5", "Snd"),
          expected("sound-he-volume", "6", "Volume"), expected("sound-la-loud", "7", "loud; quiet")}) {
        QVERIFY2(catalog.contains(part), (part + "is not in\n" + catalog).constData());
    }
    QVERIFY(catalog.contains(R"(<TS version="2.1" language="en" sourcelanguage="en">)"));
    QCOMPARE(catalog.count("<message "), 4);
}

void KitTest::extractsOddTexts_data()
{
    QTest::addColumn<QString>("title");
    for (const char *title : {"*/ qtTrId(\"x\"); /*", "\"quoted\" \\ back\\n", "100 %", "%1 of %n", "Über ☃ 🎵",
                              "?\?/ 1//2", "tab\there", "<b>&amp;</b>"}) {
        QTest::newRow(title) << QString::fromUtf8(title);
    }
}

void KitTest::extractsOddTexts()
{
    QFETCH(QString, title);
    const QString escaped = QString(title)
                                .replace(text("\\"), text("\\\\"))
                                .replace(text("\""), text("\\\""))
                                .replace(text("\t"), text("\\t"));
    m_directory->write(text("odd.json"),
                       text(R"({"entries": [{"path": "x", "translation_id": "odd-he-x", "title": "%1"}]})")
                           .arg(escaped)
                           .toUtf8());
    QCOMPARE(m_directory
                 ->run({text("translate"), text("extract"), text("@odd.json"), text("-o"), text("@odd_eng_en.ts")})
                 .errors,
             QByteArray());
    const QByteArray catalog = m_directory->read(text("odd_eng_en.ts"));
    QVERIFY2(catalog.contains("<translation>" + title.toHtmlEscaped().toUtf8() + "</translation>")
                 || catalog.contains("<translation>" + title.toUtf8() + "</translation>"),
             catalog.constData());
    QCOMPARE(catalog.count("<message "), 1);
}

void KitTest::updateKeepsTranslations()
{
    m_directory->write(text("sound-fi.ts"), s_finnish);
    QCOMPARE(
        m_directory->run({text("translate"), text("update"), text("@sound.json"), text("@sound-fi.ts")}).exitCode,
        0);
    const QByteArray catalog = m_directory->read(text("sound-fi.ts"));
    const char *const parts[] = {
        "<source>Sound</source>\n        <translation>Ääni</translation>", // finished
        ("<source>Volume</source>\n        <oldsource>Loudness</oldsource>\n"
         "        <translation type=\"unfinished\">Voimakkuus</translation>"), // its source has changed
        "<source>Gone</source>\n        <translation type=\"vanished\">Poissa</translation>",
        "<source>Snd</source>\n        <translation type=\"unfinished\"></translation>", // new
    };
    for (const char *part : parts) {
        QVERIFY2(catalog.contains(part), (QByteArray(part) + "is not in\n" + catalog).constData());
    }
    QCOMPARE(
        m_directory->run({text("translate"), text("update"), text("@sound.json"), text("@sound-fi.ts")}).exitCode,
        0);
    QCOMPARE(m_directory->read(text("sound-fi.ts")), catalog);
}

void KitTest::updateCreatesCatalog()
{
    QCOMPARE(m_directory->run({text("translate"), text("update"), text("@sound.json"), text("@po/sound-de.ts")})
                 .exitCode,
             2);
    QCOMPARE(
        m_directory->run({text("translate"), text("update"), text("@sound.json"), text("@sound-de.ts")}).exitCode,
        0);
    QVERIFY(m_directory->read(text("sound-de.ts")).contains(R"(language="de")"));
    QCOMPARE(m_directory->read(text("sound-de.ts")).count(R"(type="unfinished")"), 4);
}

void KitTest::updateKeepsComments()
{
    m_directory->write(text("sound-fi.ts"), s_finnish);
    m_directory->run({text("translate"), text("update"), text("@sound.json"), text("@sound-fi.ts")});
    QVERIFY(m_directory->read(text("sound-fi.ts")).contains("?>\n<!-- A comment -->\n<!DOCTYPE TS>"));
}

void KitTest::checkTellsWhatIsMissing()
{
    m_directory->write(text("sound-fi.ts"), s_finnish);
    const QStringList check{text("translate"), text("check"), text("@sound.json"), text("@sound-fi.ts"),
                            text("@sound_eng_en.ts")};
    m_directory->run(
        {text("translate"), text("extract"), text("@sound.json"), text("-o"), text("@sound_eng_en.ts")});
    const QByteArray complete = m_directory->path(text("sound_eng_en.ts")).toUtf8()
                                + ": 4 of 4 texts are translated into en\n";
    Tool::Result result = m_directory->run(check);
    const QString place = m_directory->path(text("sound.json"));
    QCOMPARE(QString::fromUtf8(result.output), text("%1: 1 of 4 texts are translated into fi\n"
                                                    "  %2:5: \"sound-he-snd\" is missing\n"
                                                    "  %2:6: \"sound-he-volume\" translates an older text\n"
                                                    "  %2:7: \"sound-la-loud\" is missing\n")
                                                       .arg(m_directory->path(text("sound-fi.ts")), place)
                                                   + QString::fromUtf8(complete));
    QCOMPARE(result.exitCode, 1);
    m_directory->run({text("translate"), text("update"), text("@sound.json"), text("@sound-fi.ts")});
    result = m_directory->run(check);
    QVERIFY2(result.output.contains("\"sound-he-snd\" is not translated"), result.output.constData());
    QCOMPARE(m_directory->run({text("translate"), text("check"), text("@sound.json"), text("@sound_eng_en.ts")})
                 .exitCode,
             0);
}

void KitTest::pseudo_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QByteArray>("language");
    QTest::addColumn<QString>("translation");
    QTest::newRow("accented") << QStringList() << QByteArray("en_XA")
                              << QString::fromUtf8("[%1 óƒ %L2 šóúñđš: %n %3 ~~~~~~~~~]");
    QTest::newRow("mirrored") << QStringList(text("--mirrored")) << QByteArray("ar_XB")
                              << QString::fromUtf8("\u202e[%1 óƒ %L2 šóúñđš: %n %3 ~~~~~~~~~]\u202c");
}

void KitTest::pseudo()
{
    QFETCH(QStringList, options);
    QFETCH(QByteArray, language);
    QFETCH(QString, translation);
    m_directory->write(text("sound-fi.ts"),
                       QByteArray(s_finnish).replace("<source>Sound<", "<source>%1 of %L2 sounds: %n %3<"));
    m_directory->run({text("translate"), text("update"), text("@sound.json"), text("@sound-fi.ts")});
    m_directory->write(
        text("sound-fi.ts"),
        m_directory->read(text("sound-fi.ts")).replace("<source>Sound<", "<source>%1 of %L2 sounds: %n %3<"));
    const Tool::Result result = m_directory->run(
        QStringList{text("translate"), text("pseudo"), text("@sound-fi.ts"), text("-o"), text("@sound-x.ts")}
        + options);
    QCOMPARE(result.errors, QByteArray());
    const QByteArray catalog = m_directory->read(text("sound-x.ts"));
    QVERIFY2(catalog.contains("<translation>" + translation.toUtf8() + "</translation>"), catalog.constData());
    QVERIFY(catalog.contains("language=\"" + language + '"'));
    QVERIFY(catalog.contains("<translation type=\"vanished\">Poissa</translation>"));
    QVERIFY(!catalog.contains("unfinished"));
}

void KitTest::pseudoWritesPlurals_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("form");
    QTest::addColumn<int>("count");
    QTest::newRow("as in English") << QStringList() << QString::fromUtf8("[Šóúñđ ~~]") << 2;
    QTest::newRow("as in Arabic") << QStringList(text("--mirrored")) << QString::fromUtf8("\u202e[Šóúñđ ~~]\u202c")
                                  << 6;
}

void KitTest::pseudoWritesPlurals()
{
    QFETCH(QStringList, options);
    QFETCH(QString, form);
    QFETCH(int, count);
    m_directory->write(text("sound-fi.ts"),
                       QByteArray(s_finnish).replace("he-sound\"", "he-sound\" numerus=\"yes\""));
    m_directory->run(
        QStringList{text("translate"), text("pseudo"), text("@sound-fi.ts"), text("-o"), text("@sound-x.ts")}
        + options);
    const QByteArray catalog = m_directory->read(text("sound-x.ts"));
    const QByteArray forms = QByteArray("<numerusform>" + form.toUtf8() + "</numerusform>").repeated(count);
    QVERIFY2(catalog.contains("<translation>" + forms + "</translation>"), catalog.constData());
    QCOMPARE(catalog.count("<numerusform>"), count);
}

/// The program is copied to a place where it finds no tools of Qt.
void KitTest::missingLupdate()
{
    QVERIFY(QFile::copy(text(VELKA_TOOL), m_directory->path(text("velka-settings"))));
    m_directory->write(text("qt.conf"), "[Paths]\nBinaries=" + m_directory->path(text("nothing")).toUtf8() + '\n');
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(text("PATH"), m_directory->path(text("nothing")));
    process.setProcessEnvironment(environment);
    process.start(m_directory->path(text("velka-settings")),
                  {text("translate"), text("extract"), m_directory->path(text("sound.json")), text("-o"),
                   m_directory->path(text("sound_eng_en.ts"))});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 2);
    const QByteArray errors = process.readAllStandardError();
    QVERIFY2(errors.contains("lupdate is missing: install Qt's linguist tools, such as qttools5-dev-tools"),
             errors.constData());
    QVERIFY(!QFile::exists(m_directory->path(text("sound_eng_en.ts"))));
}

void KitTest::refuses_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("message");
    QTest::newRow("action") << QStringList{text("destroy"), text("@sound.json")}
                            << QByteArray("there is no action \"destroy\"");
    QTest::newRow("no output") << QStringList{text("extract"), text("@sound.json")} << QByteArray("-o is needed");
    QTest::newRow("no catalog") << QStringList{text("update"), text("@sound.json")}
                                << QByteArray("a catalog (*.ts) is needed");
    QTest::newRow("no file") << QStringList{text("check"), text("@sound-fi.ts")}
                             << QByteArray("a registration file is needed");
    QTest::newRow("missing file") << QStringList{text("update"), text("@nothing.json"), text("@sound-fi.ts")}
                                  << QByteArray("there is no file or directory");
    QTest::newRow("broken file") << QStringList{text("extract"), text("@broken.json"), text("-o"), text("@x.ts")}
                                 << QByteArray("broken.json:2: remove this comma");
    QTest::newRow("broken catalog") << QStringList{text("check"), text("@sound.json"), text("@broken.ts")}
                                    << QByteArray("broken.ts:2: ");
    QTest::newRow("broken source of pseudo")
        << QStringList{text("pseudo"), text("@broken.ts"), text("-o"), text("@x.ts")}
        << QByteArray("broken.ts:2: ");
    QTest::newRow("missing catalog") << QStringList{text("check"), text("@sound.json"), text("@missing.ts")}
                                     << QByteArray("missing.ts\": No such file");
    QTest::newRow("broken update") << QStringList{text("update"), text("@sound.json"), text("@broken.ts")}
                                   << QByteArray("broken.ts:2: ");
}

void KitTest::refuses()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, message);
    const QByteArray broken = "<TS>\n<context>";
    m_directory->write(text("broken.json"), "{\"entries\": [\n],}");
    m_directory->write(text("broken.ts"), broken);
    const Tool::Result result = m_directory->run(QStringList(text("translate")) + arguments);
    QCOMPARE(result.exitCode, 2);
    QVERIFY2(result.errors.contains(message), result.errors.constData());
    QCOMPARE(m_directory->read(text("broken.ts")), broken);
    QVERIFY(!QFile::exists(m_directory->path(text("x.ts"))));
}

QTEST_GUILESS_MAIN(KitTest)
#include "tst_kit.moc"
