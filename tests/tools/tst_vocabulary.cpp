// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "text.h"
#include "tool.h"
#include "world.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

/// What the commands do with the vocabulary of a host.
class VocabularyTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void reportsWhatTheHostDoesNotShow();
    void withoutVocabulary();
    void ofTheSystem();
    void besideEntriesWins();
    void optionWins();
    void systemCanBeLeftOut();
    void hostTypesAreNotMisspelt();
    void suggestsHostTypes();
    void unusable_data();
    void unusable();
    void unusableOfTheSystem();
    void fifo();
    void schema();
    void schemaEscapesSyntaxOnly();
    void schemaWithoutVocabulary();

private:
    QString path(const char *name) const;
    QString vocabulary() const;

    QTemporaryDir m_directory;
};

namespace
{
const QString s_system = QStringLiteral("/usr/share/velka-settings/vocabulary.json");
const char s_vocabulary[] = R"({
    "root": "system_settings",
    "depth": 2,
    "types": {
        "page": {"description": "Opens a page.", "params": {"source": {"type": "string"}}},
        "slider": {"params": {"max": {"type": "number"}, "labels": {"type": "array"}}},
        "section": {}
    },
    "ignored_keys": ["controlIcon", "title_short"]
})";
const char s_entries[] = R"({"entries": [
{"path": "system_settings", "title": "Settings"},
{"path": "system_settings/a", "title": "A", "type": "slider", "controlIcon": "a", "params": {"max": "1", "min": 2}},
{"path": "system_settings/b", "title": "B", "type": "rainbow"},
{"path": "system_settings/b/c", "title": "C", "type": "page", "params": {"source": "/c.qml"}},
{"path": "system_settings/b/c/d", "title": "D"},
{"path": "elsewhere", "title": "E"},
{"path": "elsewhere/f", "title": "F"}
]})";
const char s_expected[] = R"(f.json:3:63: note: the host ignores "controlIcon" [host-key]
f.json:3:101: warning: the host reads "max" as a value of the type number, not the string "1" [host-param]
f.json:3:106: warning: the host reads no "min" in "params" of the type "slider" [host-param]
f.json:4:53: warning: the host does not show entries of the type "rainbow", only of page, section, slider [host-type]
f.json:6:10: warning: the host shows only 2 levels below "system_settings", this is level 3 [host-depth]
f.json:7:10: warning: the host shows only entries below "system_settings" [host-place]
f.json:8:10: warning: the host shows only entries below "system_settings" [host-place])";

/// Returns the findings in @p output that depend on the host.
QStringList findingsIn(const QByteArray &output)
{
    return QString::fromUtf8(output).split(QLatin1Char('\n')).filter(text(" [host-"));
}

void write(const QString &path, const QByteArray &content)
{
    QVERIFY(QDir().mkpath(QFileInfo(path).path()));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), qint64(content.size()));
}
}

void VocabularyTest::init()
{
    World::reset();
    write(path("f.json"), s_entries);
    write(path("vocabulary.txt"), s_vocabulary);
    QVERIFY(QDir::setCurrent(m_directory.path()));
}

void VocabularyTest::cleanup()
{
    QFile::remove(s_system);
    QDir(path("host")).removeRecursively();
}

QString VocabularyTest::path(const char *name) const
{
    return m_directory.filePath(text(name));
}

QString VocabularyTest::vocabulary() const
{
    return path("vocabulary.txt");
}

void VocabularyTest::reportsWhatTheHostDoesNotShow()
{
    const Tool::Result result = Tool::run({text("check"), text("--vocabulary"), vocabulary(), text("f.json")});
    QCOMPARE(findingsIn(result.output).join(QLatin1Char('\n')), text(s_expected));
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(
        Tool::run({text("check"), text("--strict"), text("--vocabulary"), vocabulary(), text("f.json")}).exitCode,
        1);
}

void VocabularyTest::withoutVocabulary()
{
    QCOMPARE(findingsIn(Tool::run({text("check"), text("f.json")}).output), QStringList());
}

void VocabularyTest::ofTheSystem()
{
    write(s_system, s_vocabulary);
    QCOMPARE(findingsIn(Tool::run({text("check"), text("f.json")}).output).join(QLatin1Char('\n')),
             text(s_expected));
}

void VocabularyTest::besideEntriesWins()
{
    write(s_system, s_vocabulary);
    write(path("host/entries/f.json"), s_entries);
    write(path("host/vocabulary.json"), R"({"types": {"page": {}, "slider": {}, "section": {}, "rainbow": {}}})");
    const QStringList findings = findingsIn(Tool::run({text("check"), text("host")}).output);
    QCOMPARE(findings.size(), 3); // all of params: this host has none
    QVERIFY(findings.filter(text("[host-param]")).size() == 3);
}

void VocabularyTest::optionWins()
{
    write(s_system, R"({"types": {"nothing": {}}})");
    const Tool::Result result = Tool::run({text("check"), text("--vocabulary"), vocabulary(), text("f.json")});
    QCOMPARE(findingsIn(result.output).join(QLatin1Char('\n')), text(s_expected));
}

void VocabularyTest::systemCanBeLeftOut()
{
    write(s_system, s_vocabulary);
    const QStringList check{text("check"), text("--no-system-vocabulary"), text("f.json")};
    QCOMPARE(findingsIn(Tool::run(check).output), QStringList());
    const QStringList host{text("--vocabulary"), vocabulary()};
    QCOMPARE(findingsIn(Tool::run(check + host).output).join(QLatin1Char('\n')), text(s_expected));
    write(s_system, "{}");
    QCOMPARE(Tool::run(check).errors, QByteArray());
}

void VocabularyTest::hostTypesAreNotMisspelt()
{
    write(text("f.json"), R"({"entries": [{"path": "system_settings", "title": "A", "type": "slider"}]})");
    QVERIFY(Tool::run({text("check"), text("f.json")}).output.contains("did you mean \"integer\"?"));
    QCOMPARE(Tool::run({text("check"), text("--vocabulary"), vocabulary(), text("f.json")}).output,
             QByteArray("1 file: 0 errors, 0 warnings, 0 notes\n"));
}

void VocabularyTest::suggestsHostTypes()
{
    write(text("f.json"), R"({"entries": [{"path": "system_settings", "title": "A", "type": "slidr"}]})");
    const QByteArray output
        = Tool::run({text("check"), text("--vocabulary"), vocabulary(), text("f.json")}).output;
    QVERIFY2(output.contains("unknown type \"slidr\": did you mean \"slider\"? [type-misspelt]"),
             output.constData());
    QCOMPARE(findingsIn(output), QStringList());
}

void VocabularyTest::unusable_data()
{
    QTest::addColumn<QByteArray>("vocabulary");
    QTest::addColumn<QByteArray>("reason");
    QTest::newRow("broken") << QByteArray("{") << QByteArray("unterminated object");
    QTest::newRow("array") << QByteArray("[]") << QByteArray("it is not an object");
    QTest::newRow("no types") << QByteArray("{}") << QByteArray("it has no \"types\"");
    QTest::newRow("types") << QByteArray(R"({"types": []})") << QByteArray("\"types\" must be an object");
    QTest::newRow("root") << QByteArray(R"({"types": {"a": {}}, "root": 5})")
                          << QByteArray("\"root\" must be a string");
    QTest::newRow("depth") << QByteArray(R"({"types": {"a": {}}, "depth": "x"})")
                           << QByteArray("\"depth\" must be a whole number above 0");
    QTest::newRow("negative depth") << QByteArray(R"({"types": {"a": {}}, "depth": -1})")
                                    << QByteArray("\"depth\" must be a whole number above 0");
    QTest::newRow("half a depth") << QByteArray(R"({"types": {"a": {}}, "depth": 2.5})")
                                  << QByteArray("\"depth\" must be a whole number above 0");
    QTest::newRow("type") << QByteArray(R"({"types": {"page": 5}})") << QByteArray("\"page\" must be an object");
    QTest::newRow("description") << QByteArray(R"({"types": {"page": {"description": 5}}})")
                                 << QByteArray("\"description\" must be a string");
    QTest::newRow("params") << QByteArray(R"({"types": {"page": {"params": []}}})")
                            << QByteArray("\"params\" must be an object");
    QTest::newRow("key") << QByteArray(R"({"types": {"a": {}}, "ignored_keys": [1]})")
                         << QByteArray("\"ignored_keys\" must have strings only");
    QTest::newRow("keys") << QByteArray(R"({"types": {"a": {}}, "ignored_keys": "x"})")
                          << QByteArray("\"ignored_keys\" must be an array");
    QTest::newRow("page") << QByteArray(R"({"types": {"a": {"opens_page": "yes"}}})")
                          << QByteArray("\"opens_page\" must be true or false");
    QTest::newRow("param") << QByteArray(R"({"types": {"a": {"params": {"p": {"type": "integer"}}}}})")
                           << QByteArray("\"p\" in the \"params\" of \"a\" needs a \"type\": array, boolean");
}

void VocabularyTest::unusable()
{
    QFETCH(QByteArray, vocabulary);
    QFETCH(QByteArray, reason);
    write(path("bad.txt"), vocabulary);
    for (const QStringList &command :
         {QStringList{text("check"), text("f.json")}, QStringList{text("preview"), text("f.json")},
          QStringList{text("schema")}}) {
        const Tool::Result result = Tool::run(command + QStringList{text("--vocabulary"), path("bad.txt")});
        QCOMPARE(result.exitCode, 2);
        QCOMPARE(result.output, QByteArray());
        QVERIFY2(result.errors.contains("is not used: ") && result.errors.contains(reason),
                 result.errors.constData());
    }
}

void VocabularyTest::unusableOfTheSystem()
{
    write(s_system, "{}");
    const Tool::Result result = Tool::run({text("check"), text("f.json")});
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.errors,
             "velka-settings: the vocabulary \"" + s_system.toUtf8() + "\" is not used: it has no \"types\"\n");
    QCOMPARE(findingsIn(result.output), QStringList());
}

void VocabularyTest::fifo()
{
    QVERIFY(QDir().mkpath(path("host/entries")));
    write(path("host/entries/f.json"), s_entries);
    QCOMPARE(mkfifo(path("host/vocabulary.json").toUtf8().constData(), 0600), 0);
    const Tool::Result result = Tool::run({text("check"), text("host")});
    QVERIFY2(result.errors.contains("is not used: not a regular file"), result.errors.constData());
}

void VocabularyTest::schema()
{
    write(s_system, s_vocabulary);
    const QJsonObject entry
        = Tool::run({text("schema")}).json()[text("definitions")].toObject()[text("entry")].toObject();
    const QJsonObject properties = entry[text("properties")].toObject();
    QCOMPARE(properties[text("type")].toObject()[text("enum")].toArray(),
             (QJsonArray{text("page"), text("section"), text("slider")}));
    QVERIFY(
        properties[text("type")].toObject()[text("description")].toString().contains(text("page: Opens a page.")));
    const QRegularExpression places(properties[text("path")].toObject()[text("pattern")].toString());
    QVERIFY(places.match(text("system_settings/sound")).hasMatch());
    QVERIFY(places.match(text("applications/a.desktop")).hasMatch());
    QVERIFY(!places.match(text("system_settings_of_mine")).hasMatch());
    QVERIFY(properties[text("controlIcon")].toObject()[text("description")].toString().startsWith(
        text("The host ignores this key. ")));
    const QJsonArray conditions = entry[text("allOf")].toArray();
    QCOMPARE(conditions.size(), 3);
    const QByteArray slider = QJsonDocument(conditions.last().toObject()).toJson(QJsonDocument::Compact);
    QCOMPARE(slider, QByteArray(R"({"if":{"properties":{"type":{"const":"slider"}},"required":["type"]},)"
                                R"("then":{"properties":{"params":{"properties":)"
                                R"({"labels":{"type":"array"},"max":{"type":"number"}}}}}})"));
}

void VocabularyTest::schemaEscapesSyntaxOnly()
{
    write(s_system, QByteArray(R"({"root": "a-b/ä.c", "types": {"page": {}}})"));
    const QJsonObject entry
        = Tool::run({text("schema")}).json()[text("definitions")].toObject()[text("entry")].toObject();
    QCOMPARE(entry[text("properties")].toObject()[text("path")].toObject()[text("pattern")].toString(),
             QString::fromUtf8("^(a-b\\/ä\\.c|applications)(/|$)"));
}

void VocabularyTest::schemaWithoutVocabulary()
{
    QFile installed(text(REGISTRATION_SCHEMA));
    QVERIFY(installed.open(QIODevice::ReadOnly));
    QCOMPARE(Tool::run({text("schema")}).json(), QJsonDocument::fromJson(installed.readAll()).object());
}

QTEST_GUILESS_MAIN(VocabularyTest)
#include "tst_vocabulary.moc"
