// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "catalogs.h"
#include "text.h"
#include "tool.h"
#include "world.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QTemporaryDir>
#include <QTest>

namespace
{
const char s_good[] = R"({"entries": [{"path": "page/sound", "title": "Sound"}]})";
const QStringList s_mask{text("--masked"), text("page/sound")};
}

class WhyTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void reasons_data();
    void reasons();
    void unreadableFile();
    void noFile_data();
    void noFile();
    void maskOfTheKey();
    void maskOnTheBlacklist();
    void nodeWithoutEntry();
    void suggestions_data();
    void suggestions();
    void brokenFilesAreNamed_data();
    void brokenFilesAreNamed();
    void spellingOfMasksAndBlacklist();
    void fileInSubdirectory();
    void severalObstacles();
    void groupsOfAnotherUser();
    void titles_data();
    void titles();
    void complementaryCatalog();
    void unusableCatalog();
    void favorites_data();
    void favorites();

private:
    Tool::Result why(const QStringList &options = {}) const;

    QTemporaryDir m_temporary;
    const QString m_directory = m_temporary.filePath(text("entries"));
};

void WhyTest::init()
{
    World::reset();
}

Tool::Result WhyTest::why(const QStringList &options) const
{
    return Tool::run(QStringList{text("why"), text("--format"), text("json"), text("--root"), m_directory}
                     + options + QStringList{text("page/sound")});
}

void WhyTest::reasons_data()
{
    QTest::addColumn<Tool::Files>("files");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("reason");
    QTest::addColumn<Tool::Files>("undone");
    const QString file = text("sound.json");
    const auto row = [&](const char *kind, const char *name, const Tool::Files &files, const QString &reason) {
        QTest::newRow(name) << files << QStringList() << text(kind) << reason << Tool::Files{{file, s_good}};
    };
    row("undeclared", "no entries", {{file, "{}"}}, text("no file declares it"));
    row("undeclared", "other entries", {{file, R"({"entries": [{"path": "page/sounds"}]})"}},
        text("no file declares it; did you mean \"page/sounds\"?"));
    row("file-name", "fake", {{text("fakesound.json"), s_good}},
        text("fakesound.json is never loaded because its name begins with \"fake\""));
    row("file-name", "suffix", {{text("sound.JSON"), s_good}},
        text("sound.JSON is never loaded because its name does not end in \".json\""));
    row("file-name", "hidden", {{text(".sound.json"), s_good}},
        text(".sound.json is never loaded because its name begins with a dot"));
    row("broken", "syntax error", {{file, "{\n  \"entries\": [\n    {\"path\": \"page/sound\"},\n  ]\n}"}},
        text("sound.json is broken at line 3, column 27: remove this comma: nothing follows it"));
    row("broken", "carriage returns",
        {{file, "{\r\n  \"entries\": [\r\n    {\"path\": \"page/sound\"},\r\n  ]\r\n}"}},
        text("sound.json is broken at line 3, column 27: remove this comma: nothing follows it"));
    row("broken", "end is missing", {{file, R"({"entries": [{"path": "\u0070age/sound"}])"}},
        text(
            "sound.json is broken at line 1, column 41: the file ends too early: the \"{\" at 1:1 is not closed"));
    row("no-object", "array", {{file, R"([{"path": "page/sound"}])"}},
        text("the top level of sound.json is not an object"));
    row("required-group", "required group",
        {{file, R"({"required_group": "velka-strangers", "entries": [{"path": "page/sound"}]})"}},
        text("the user 0 does not belong to the group \"velka-strangers\", the \"required_group\" of sound.json"));
    row("disabled-group", "disabled group",
        {{file, R"({"disabled_group": "root", "entries": [{"path": "page/sound"}]})"}},
        text("the user 0 belongs to the group \"root\", the \"disabled_group\" of sound.json"));

    const Tool::Files good{{file, s_good}};
    QTest::newRow("masked")
        << good << s_mask << text("masked")
        << text("masked by the value \"page/sound\" of the key /apps/velka-settings/maskedSettings") << good;
}

void WhyTest::reasons()
{
    QFETCH(Tool::Files, files);
    QFETCH(QStringList, options);
    Tool::writeFiles(m_directory, files);
    const Tool::Result absent = why(options);
    QCOMPARE(absent.exitCode, 1);
    QCOMPARE(absent.errors, QByteArray());
    QCOMPARE(absent.json().value(text("present")).toBool(true), false);
    QTEST(absent.json().value(text("kind")).toString(), "kind");
    QTEST(absent.json().value(text("reason")).toString(), "reason");

    QFETCH(Tool::Files, undone);
    Tool::writeFiles(m_directory, undone);
    const Tool::Result present = why();
    QCOMPARE(present.exitCode, 0);
    QCOMPARE(present.json().value(text("reason")).toString(), text("declared by sound.json, entry 1"));
    QCOMPARE(present.json().value(text("title")).toString(), text("Sound"));
}

void WhyTest::unreadableFile()
{
    Tool::writeFiles(m_directory, {{text("sound.json"), s_good}});
    QFile file(m_directory + text("/sound.json"));
    QVERIFY(file.setPermissions({}));
    const Tool::Result absent = why();
    QCOMPARE(absent.exitCode, 1);
    QCOMPARE(absent.json().value(text("kind")).toString(), text("unreadable"));
    QCOMPARE(absent.json().value(text("reason")).toString(),
             text("no file declares it, except possibly one that cannot be read: sound.json"));
    QVERIFY(file.setPermissions(QFile::ReadOwner));
    QCOMPARE(why().exitCode, 0);
}

void WhyTest::noFile_data()
{
    QTest::addColumn<bool>("isDirectory");
    QTest::newRow("directory") << true;
    QTest::newRow("link that leads nowhere") << false;
}

void WhyTest::noFile()
{
    Tool::writeFiles(m_directory, {{text("other.json"), "{}"}});
    const QString name = m_directory + text("/sound.json");
    QFETCH(bool, isDirectory);
    QVERIFY(isDirectory ? QDir().mkdir(name) : QFile::link(text("/nowhere/sound.json"), name));
    QCOMPARE(why().json().value(text("kind")).toString(), text("unreadable"));
    Tool::writeFiles(m_directory, {{text("sound.json"), s_good}});
    QCOMPARE(why().exitCode, 0);
}

void WhyTest::maskOfTheKey()
{
    World::writeEntries(text("sound.json"), s_good);
    World::setMasked({text("page/other"), text("page/sound")});
    const QStringList command{text("why"), text("/page//sound")};
    QTRY_COMPARE(Tool::run(command).exitCode, 1);
    QVERIFY(Tool::run(command).output.startsWith(
        "page/sound is not in the tree: masked by the value \"page/sound\" of the key "));
    // Another spelling does not mask the entry.
    World::setMasked({text("page/sound/")});
    QTRY_COMPARE(Tool::run(command).exitCode, 0);
}

void WhyTest::maskOnTheBlacklist()
{
    World::writeEntries(text("sound.json"), s_good);
    World::writeBlacklist(R"(["page/sound"])");
    const Tool::Result result = Tool::run(QStringList{text("why")} + s_mask + QStringList{text("page/sound")});
    QCOMPARE(result.exitCode, 1);
    QVERIFY(result.output.contains("running programs show it after the next change of the key"));
}

void WhyTest::nodeWithoutEntry()
{
    Tool::writeFiles(m_directory, {{text("sound.json"), R"({"entries": [{"path": "page/sound/volume"}]})"}});
    QCOMPARE(why().exitCode, 1);
    QCOMPARE(why().json().value(text("kind")).toString(), text("undeclared"));
    QVERIFY(why().json().value(text("node")).toBool());
    const Tool::Result result = Tool::run({text("why"), text("--root"), m_directory, text("page/sound")});
    QVERIFY(result.output.contains("The tree has a node for the entries below it, titled \"!!sound\"."));
}

void WhyTest::suggestions_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("reason");
    const QByteArray good = R"({"entries": [{"path": "page/sound"}, {"path": "page/sound/volume"}]})";
    const auto meant = [](const char *path) {
        return text("no file declares it; did you mean \"%1\"?").arg(text(path));
    };
    QTest::newRow("wrong case") << good << text("Page/Sound") << meant("page/sound");
    QTest::newRow("transposed letters") << good << text("page/suond") << meant("page/sound");
    QTest::newRow("two names misspelt") << good << text("pgae/sound/volum") << meant("page/sound/volume");
    QTest::newRow("last name alone") << good << text("volume") << meant("page/sound/volume");
    QTest::newRow("a name left out") << good << text("page/volume") << meant("page/sound/volume");
    QTest::newRow("another root") << good << text("settings/page/sound") << meant("page/sound");
    QTest::newRow("another path") << good << text("page/light") << text("no file declares it");
    const QString unread = text(
        "no file declares it; but it is at a place that is not read, because it is not the "
        "\"path\" of an element of \"entries\": sound.json, ");
    QTest::newRow("misspelt key") << QByteArray(R"({"entries": [{"paht": "page/sound"}]})") << text("page/sound")
                                  << unread + text("entries[0].paht");
    QTest::newRow("misspelt entries") << QByteArray(R"({"entires": [{"path": "page/sound"}]})")
                                      << text("page/sound") << unread + text("entires[0].path");
    QTest::newRow("nested") << QByteArray(R"({"entries": [{"path": "page", "entries": [{"path": "sound"}]}]})")
                            << text("page/sound") << unread + text("entries[0].entries[0].path");
}

void WhyTest::suggestions()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, path);
    Tool::writeFiles(m_directory, {{text("sound.json"), json}});
    const Tool::Result result = Tool::run(
        {text("why"), text("--format"), text("json"), text("--root"), m_directory, path});
    QCOMPARE(result.exitCode, 1);
    QTEST(result.json().value(text("reason")).toString(), "reason");
}

void WhyTest::brokenFilesAreNamed_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("reason");
    QTest::newRow("empty")
        << QByteArray()
        << text("no file declares it, except possibly one that cannot be read: sound.json (line 1, "
                "column 1: the file is empty)");
    QTest::newRow("without a path")
        << QByteArray("{")
        << text("no file declares it, except possibly one that cannot be read: sound.json "
                "(line 1, column 1: the file ends too early: the \"{\" at 1:1 is not "
                "closed)");
    QByteArray utf16("\xff\xfe");
    for (const char c : QByteArray(s_good)) {
        utf16 += c;
        utf16 += '\0';
    }
    QTest::newRow("UTF-16")
        << utf16 << text("sound.json is broken at line 1, column 1: the file is UTF-16: save it as UTF-8");
}

void WhyTest::brokenFilesAreNamed()
{
    QFETCH(QByteArray, content);
    Tool::writeFiles(m_directory, {{text("sound.json"), content}});
    QTEST(why().json().value(text("reason")).toString(), "reason");
}

void WhyTest::spellingOfMasksAndBlacklist()
{
    World::writeEntries(text("sound.json"), s_good);
    World::writeBlacklist(R"(["/page/sound"])");
    const Tool::Result result = Tool::run({text("why"), text("--masked"), text("page/Sound"), text("page/sound")});
    QCOMPARE(result.exitCode, 0);
    QVERIFY2(result.output.contains("the mask \"page/Sound\" has no effect on it: it is not spelled like the "
                                    "declaration\n"),
             result.output.constData());
    QVERIFY(result.output.contains("\"/page/sound\" in the favourites blacklist has no effect on it: "));
    QVERIFY(!Tool::run(QStringList{text("why")} + s_mask + QStringList{text("page/sound")})
                 .output.contains("the mask \"page/sound\" has no effect"));
}

void WhyTest::fileInSubdirectory()
{
    Tool::writeFiles(m_directory, {{text("other.json"), "{}"}});
    Tool::writeFiles(m_directory + text("/more"), {{text("sound.json"), s_good}});
    QCOMPARE(why().json().value(text("reason")).toString(),
             text("more/sound.json is never loaded because its name is that of a file in a subdirectory"));
}

void WhyTest::severalObstacles()
{
    const QByteArray excluded = R"({"required_group": "velka-strangers", "disabled_group": "root",
        "entries": [{"path": "page/sound"}, {"path": "/page/sound"}]})";
    Tool::writeFiles(m_directory,
                     {{text("a.json"), excluded}, {text("b.json"), s_good}, {text("c.json"), s_good}});
    const QJsonArray declarations = why().json().value(text("declarations")).toArray();
    const auto kinds = [&](int declaration) {
        QStringList kinds;
        const QJsonArray obstacles = declarations.at(declaration).toObject().value(text("obstacles")).toArray();
        for (const QJsonValue &obstacle : obstacles) {
            kinds.append(obstacle.toObject().value(text("kind")).toString());
        }
        return kinds.join(QLatin1Char(' '));
    };
    QCOMPARE(declarations.size(), 4);
    QCOMPARE(kinds(0), text("required-group disabled-group replaced"));
    QCOMPARE(kinds(1), text("required-group disabled-group replaced"));
    QCOMPARE(kinds(2), text("replaced"));
    QCOMPARE(kinds(3), text(""));
    const QJsonObject replaced = declarations.at(0).toObject().value(text("obstacles")).toArray().at(2).toObject();
    QCOMPARE(replaced.value(text("text")).toString(),
             text("replaced by c.json, entry 1; b.json, entry 1; a.json, entry 2"));
}

void WhyTest::groupsOfAnotherUser()
{
    Tool::writeFiles(m_directory,
                     {{text("sound.json"), R"({"required_group": "root", "entries": [{"path": "page/sound"}]})"}});
    QCOMPARE(why().exitCode, 0);
    const Tool::Result result = why({text("--uid"), text("1")});
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.json().value(text("reason")).toString(),
             text("the user 1 does not belong to the group \"root\", the \"required_group\" of sound.json"));
}

void WhyTest::titles_data()
{
    QTest::addColumn<QByteArray>("keys");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QStringList>("origin");
    const QString noId = text("no catalog has the translation id \"test-none\"");
    const QStringList asked{noId, text("/usr/share/translations/sample_eng_en.qm does not have it"),
                            text("/usr/share/translations/sample-fi.qm does not have it")};
    QTest::newRow("locale") << QByteArray(R"("translation_id": "test-both", "title": "Plain")") << text("Molemmat")
                            << QStringList{
                                   text("the text of \"test-both\" in /usr/share/translations/sample-fi.qm")};
    QTest::newRow("engineering English")
        << QByteArray(R"("translation_id": "test-engineering")") << text("Engineering")
        << QStringList{text("the text of \"test-engineering\" in /usr/share/translations/sample_eng_en.qm")};
    QTest::newRow("framework") << QByteArray(R"("translation_id": "test-extra")") << text("Muu")
                               << QStringList{text(
                                      "the text of \"test-extra\" in /usr/share/translations/settings-fi.qm")};
    QTest::newRow("plain text") << QByteArray(R"("translation_id": "test-none", "title": "Plain")")
                                << text("Plain") << QStringList{text("\"title\" of the entry")} + asked;
    QTest::newRow("no id") << QByteArray(R"("title": "Plain")") << text("Plain")
                           << QStringList{text("\"title\" of the entry")};
    QTest::newRow("name of the node") << QByteArray(R"("translation_id": "test-none")") << text("!!sound")
                                      << QStringList{text("\"!!\" and the name, because there is no text")}
                                             + asked;
}

void WhyTest::titles()
{
    QFETCH(QByteArray, keys);
    Catalogs::install("sample_eng_en", "sample_eng_en");
    Catalogs::install("sample-fi", "sample-fi");
    Catalogs::install("extra-fi", "settings-fi");
    World::writeEntries(text("sound.json"),
                        R"({"translation_catalog": "sample", "entries": [{"path": "page/sound", )" + keys + "}]}");
    const QJsonObject json = Tool::run({text("why"), text("--locale"), text("fi_FI"), text("--format"),
                                        text("json"), text("page/sound")})
                                 .json();
    QTEST(json.value(text("title")).toString(), "title");
    QStringList origin;
    const QJsonArray lines = json.value(text("titleOrigin")).toArray();
    for (const QJsonValue &line : lines) {
        origin.append(line.toString());
    }
    QTEST(origin, "origin");
}

void WhyTest::complementaryCatalog()
{
    Catalogs::install("sample-fi", "sample-fi");
    Catalogs::install("extra-fi", "extra-fi");
    World::writeEntries(text("sound.json"), R"({"translation_catalog": "sample",
        "complementary_translation_catalog": "extra",
        "entries": [{"path": "page/sound", "translation_id": "test-both", "translation_id_short": "test-none"}]})");
    const QByteArray output = Tool::run({text("why"), text("--locale"), text("fi"), text("page/sound")}).output;
    QVERIFY(output.contains("Title \"Muuten molemmat\"\n"
                            "  the text of \"test-both\" in /usr/share/translations/extra-fi.qm\n"));
    QVERIFY(output.contains("Short title \"\"\n  the entry has none\n"
                            "  no catalog has the translation id \"test-none\"\n"
                            "  no file of the catalog \"sample_eng_en\" could be loaded\n"));
}

void WhyTest::unusableCatalog()
{
    World::writeFile(Catalogs::path("sample-fi"), "damaged");
    World::writeEntries(text("sound.json"), R"({"translation_catalog": "sample",
        "entries": [{"path": "page/sound", "translation_id": "test-both", "title": "Sound"}]})");
    const Tool::Result result = Tool::run({text("why"), text("--locale"), text("fi"), text("page/sound")});
    QVERIFY(result.output.contains("  the library cannot use the catalog \"/usr/share/translations/sample-fi.qm\" "
                                   "because it is damaged, or no compiled catalog\n"));
    QCOMPARE(result.errors, QByteArray());
}

void WhyTest::favorites_data()
{
    QTest::addColumn<QByteArray>("keys");
    QTest::addColumn<QString>("kind");
    QTest::addColumn<bool>("admitted");
    QTest::addColumn<QString>("rule");
    const auto row = [](const char *keys, const char *kind, bool admitted, const char *rule) {
        QTest::addRow("%s %s", kind, keys) << QByteArray(keys) << text(kind) << admitted << text(rule);
    };
    row(R"("type": "page")", "grid_favorites", true, "it admits the type \"page\"");
    row(R"("type": "page")", "list_favorites", false, "it does not admit the type \"page\"");
    row(R"("type": "enum")", "list_favorites", true, "it admits the type \"enum\"");
    row(R"("type": "page")", "grid_favorites_page", true,
        "a page that neither the blacklist nor its \"params\" exclude");
    row(R"("type": "page", "params": {"allow_favorite": false})", "grid_favorites_page", false,
        "\"allow_favorite\" in its \"params\" excludes it");
    row(R"("type": "action")", "action", true, "an action that the blacklist does not exclude");
    row(R"("type": "custom", "params": {"type": "list"})", "list_favorites", true,
        "the \"type\" in its \"params\" is \"list\"");
    row(R"("type": "custom", "params": {"type": "grid"})", "grid_favorites", true,
        "the \"type\" in its \"params\" is \"grid\"");
    row(R"("type": "custom", "params": {"type": "grid"})", "grid_favorites_simple", true,
        "the \"type\" in its \"params\" is \"grid\", and \"simpleGrid\" does not exclude it");
    row(R"("type": "custom", "params": {"type": "grid", "simpleGrid": false})", "grid_favorites_simple", false,
        "\"simpleGrid\" in its \"params\" excludes it");
    row(R"("type": "custom")", "grid_favorites", false, "the \"type\" in its \"params\" is another or missing");
}

void WhyTest::favorites()
{
    QFETCH(QByteArray, keys);
    QFETCH(QString, kind);
    World::writeEntries(text("sound.json"), R"({"entries": [{"path": "page/sound", )" + keys + "}]}");
    const QStringList command{text("why"), text("--format"), text("json"), text("page/sound")};
    const QJsonObject answer
        = Tool::run(command).json().value(text("favorites")).toObject().value(kind).toObject();
    QTEST(answer.value(text("admitted")).toBool(), "admitted");
    QTEST(answer.value(text("rule")).toString(), "rule");

    if (kind == text("grid_favorites_page") || kind == text("action")) {
        World::writeBlacklist(R"(["page/sound"])");
        const QJsonObject blacklisted
            = Tool::run(command).json().value(text("favorites")).toObject().value(kind).toObject();
        QCOMPARE(blacklisted.value(text("admitted")).toBool(true), false);
        QCOMPARE(blacklisted.value(text("rule")).toString(), text("the favourites blacklist contains its path"));
    }
}

QTEST_GUILESS_MAIN(WhyTest)
#include "tst_why.moc"
