// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "catalogbytes.h"
#include "catalogs.h"
#include "checker.h"
#include "schema.h"
#include "tags.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QXmlStreamReader>

using namespace Check;

/// The command "check": the findings of each tag, the output of the program and its exit status.
class CheckTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tagsAreInOrder();
    void fixtures_data();
    void fixtures();
    void schemaHasNoOtherKeywords();
    void checksTheRestOfANotPortableFile();
    void places_data();
    void places();
    void exitCodes_data();
    void exitCodes();
    void textOfFinding();
    void longPathIsWhole();
    void unlikelyCatalogNames_data();
    void unlikelyCatalogNames();
    void catalogsWithoutIds_data();
    void catalogsWithoutIds();
    void explainsEachTag();
    void listsEachTag();
    void json();
    void sarif();
    void junit();
    void overridesSeverity();
    void outputHasNoControlCharacters();
    void helpFitsAScreen();
};

namespace
{
const QDir s_fixtures(QStringLiteral(CHECK_FIXTURES));
const QString s_catalogs = QStringLiteral(VELKA_TEST_CATALOGS);

/// Additional tags of a fixture.
const QHash<QString, QStringList> s_companions{
    {QStringLiteral("path-spelling"), {QStringLiteral("path-slashes")}},
    {QStringLiteral("keywords-id-alone"), {QStringLiteral("missing-catalog")}},
    {QStringLiteral("schema"), {QStringLiteral("missing-catalog")}}};

struct Finished {
    int exitCode;
    QByteArray output;
    QByteArray errors;
};

Finished check(const QStringList &arguments)
{
    QProcess process;
    process.setWorkingDirectory(s_fixtures.path());
    process.start(QStringLiteral(VELKA_TOOL), QStringList(QStringLiteral("check")) + arguments);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit) {
        return {-1, {}, process.errorString().toUtf8()};
    }
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

QSet<QString> tagsIn(const QString &path)
{
    QSet<QString> tags;
    for (const FileFindings &file : Checker(s_catalogs, [](int, int) {}).check({path})) {
        for (const Finding &finding : file.findings) {
            tags.insert(QLatin1String(info(finding.tag).name));
        }
    }
    return tags;
}

QStringList fixtureNames(const QDir &directory, const QString &kind)
{
    return directory.entryList({QLatin1Char('*') + kind + QLatin1Char('*')},
                               QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}
}

void CheckTest::tagsAreInOrder()
{
    QVERIFY(tags().size() >= 30);
    for (int i = 0; i < tags().size(); ++i) {
        QCOMPARE(int(tags().at(i).tag), i);
    }
    QCOMPARE(int(Tag::WrongType), tags().size() - 1);
    QCOMPARE(s_fixtures.entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(), tags().size());
}

void CheckTest::fixtures_data()
{
    QTest::addColumn<QString>("tag");
    for (const TagInfo &tag : tags()) {
        QTest::newRow(tag.name) << QString::fromLatin1(tag.name);
    }
}

void CheckTest::fixtures()
{
    QFETCH(QString, tag);
    const QDir directory(s_fixtures.filePath(tag));
    const QStringList bad = fixtureNames(directory, QStringLiteral("bad"));
    const QStringList good = fixtureNames(directory, QStringLiteral("good"));
    QVERIFY(!bad.isEmpty());
    QVERIFY(!good.isEmpty());
    const QStringList companions = s_companions.value(tag);
    const QSet<QString> others(companions.cbegin(), companions.cend());
    for (const QString &name : bad) {
        QCOMPARE(tagsIn(directory.filePath(name)), others + QSet<QString>{tag});
    }
    for (const QString &name : good) {
        QVERIFY2((tagsIn(directory.filePath(name)) - others).isEmpty(), qPrintable(name));
    }
}

/// The checker reads types and lengths from the schema. Other keywords are checked separately or do not restrict files.
void CheckTest::schemaHasNoOtherKeywords()
{
    const QSet<QString> known{
        QStringLiteral("$schema"),     QStringLiteral("title"),    QStringLiteral("description"),
        QStringLiteral("type"),        QStringLiteral("default"),  QStringLiteral("examples"),
        QStringLiteral("properties"),  QStringLiteral("items"),    QStringLiteral("$ref"),
        QStringLiteral("definitions"), QStringLiteral("required"), QStringLiteral("maxLength"),
        QStringLiteral("if"),          QStringLiteral("then")};
    QList<QJsonObject> schemas{registrationSchema(), schemaDefinition(QStringLiteral("entry")),
                               schemaDefinition(QStringLiteral("params"))};
    for (int i = 0; i < 3; ++i) {
        const QJsonObject properties = schemaProperties(schemas.at(i));
        for (const QJsonValue &property : properties) {
            schemas.append(property.toObject());
        }
    }
    QVERIFY(schemas.size() > 20);
    for (const QJsonObject &schema : std::as_const(schemas)) {
        const QStringList keywords = schema.keys();
        QVERIFY2(known.contains(QSet<QString>(keywords.cbegin(), keywords.cend())),
                 qPrintable(keywords.join(QLatin1Char(' '))));
    }
    const QJsonObject definitions = registrationSchema().value(QStringLiteral("definitions")).toObject();
    QCOMPARE(definitions.keys(), (QStringList{QStringLiteral("entry"), QStringLiteral("params")}));
}

void CheckTest::checksTheRestOfANotPortableFile()
{
    const QTemporaryDir directory;
    QFile file(directory.filePath(QStringLiteral("a.json")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(R"({"entries": [{"path": "a", "title": "A", "order": .5}, {"title": "B"}]})");
    file.close();
    QCOMPARE(tagsIn(file.fileName()),
             (QSet<QString>{QStringLiteral("not-portable"), QStringLiteral("order-rounded"),
                            QStringLiteral("path-missing")}));
}

void CheckTest::places_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("tag");
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("column");

    QTest::newRow("value") << QByteArray("{\n \"entries\":\n  5}") << "value-lost" << 3 << 3;
    QTest::newRow("key") << QByteArray("{\"entries\": [{\"path\": \"a\", \"title\": \"A\",\n\"Icon\"  :  \"a\"}]}")
                         << "key-misspelt" << 2 << 1;
    QTest::newRow("key with quotes") << QByteArray(R"({"entries": [{"path": "a", "title": "A", "a\"\\\"": 1}]})")
                                     << "key-unknown" << 1 << 42;
    QTest::newRow("after other letters")
        << QByteArray(u8"{\"entries\": [{\"title\": \"\u00e9\U0001F600\", \"path\": \"/\"}]}") << "path-empty" << 1
        << 39;
    QTest::newRow("after a byte order mark")
        << QByteArray("\xef\xbb\xbf{\"entries\": 5}") << "value-lost" << 1 << 13;
    QTest::newRow("lines of another system") << QByteArray("{\r\n\"entries\":\r\n  5}") << "value-lost" << 3 << 3;
    QTest::newRow("not JSON") << QByteArray("{\n\"entries\": [\n{\"path\": tru}]}") << "json-syntax" << 3 << 10;
    QTest::newRow("doubled key, once escaped")
        << QByteArray("{\"entries\": [{\"path\": \"a\", \"title\": \"A\",\n \"\\u0070ath\": \"b\"}]}")
        << "doubled-key" << 2 << 2;
}

void CheckTest::places()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, tag);
    QFETCH(int, line);
    QFETCH(int, column);
    const QTemporaryDir directory;
    QFile file(directory.filePath(QStringLiteral("a.json")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(json);
    file.close();
    const std::vector<FileFindings> report = Checker(s_catalogs, [](int, int) {}).check({file.fileName()});
    QCOMPARE(int(report.size()), 1);
    for (const Finding &finding : report.front().findings) {
        if (QLatin1String(info(finding.tag).name) == tag) {
            QCOMPARE(finding.place.line, line);
            QCOMPARE(finding.place.column, column);
            return;
        }
    }
    QFAIL("The tag was not found");
}

void CheckTest::exitCodes_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("exitCode");

    const QString error = QStringLiteral("order-lost/bad.json");
    const QString warning = QStringLiteral("order-rounded/bad.json");
    const QString note = QStringLiteral("key-unknown/bad.json");
    const QString strict = QStringLiteral("--strict");
    const auto override = [](const char *value) { return QStringLiteral("--override=") + QLatin1String(value); };
    QTest::newRow("nothing") << QStringList{QStringLiteral("order-lost/good.json")} << 0;
    QTest::newRow("error") << QStringList{error} << 1;
    QTest::newRow("directory") << QStringList{QStringLiteral("order-lost")} << 1;
    QTest::newRow("warning") << QStringList{warning} << 0;
    QTest::newRow("strict warning") << QStringList{strict, warning} << 1;
    QTest::newRow("strict note") << QStringList{strict, note} << 0;
    QTest::newRow("ignored") << QStringList{override("order-lost=ignore"), error} << 0;
    QTest::newRow("less") << QStringList{override("order-lost=warning"), error} << 0;
    QTest::newRow("more") << QStringList{override("key-unknown=error"), note} << 1;
    QTest::newRow("no file") << QStringList{} << 2;
    QTest::newRow("missing file") << QStringList{QStringLiteral("nowhere.json")} << 2;
    QTest::newRow("unknown option") << QStringList{QStringLiteral("--fast"), error} << 2;
    QTest::newRow("unknown format") << QStringList{QStringLiteral("--format=yaml"), error} << 2;
    QTest::newRow("unknown tag") << QStringList{override("order=error"), error} << 2;
    QTest::newRow("unknown severity") << QStringList{override("order-lost=fatal"), error} << 2;
    QTest::newRow("explain an unknown tag") << QStringList{QStringLiteral("--explain=order")} << 2;
    for (const char *format : {"text", "json", "sarif", "junit"}) {
        QTest::addRow("%s with errors", format)
            << QStringList{QStringLiteral("--format"), QLatin1String(format), error} << 1;
    }
}

void CheckTest::exitCodes()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, exitCode);
    const Finished finished = check(arguments);
    QCOMPARE(finished.exitCode, exitCode);
    QCOMPARE(finished.errors.isEmpty(), exitCode != 2);
}

void CheckTest::textOfFinding()
{
    QCOMPARE(check({QStringLiteral("order-lost/bad.json")}).output,
             QByteArray("order-lost/bad.json:3:54: error: the library reads this order as -1294967296 "
                        "[order-lost]\n"
                        "    {\"path\": \"sound\", \"title\": \"Sound\", \"order\": 3e9}\n"
                        "                                                 ^\n"
                        "1 file: 1 error, 0 warnings, 0 notes\n"));
    QCOMPARE(check({QStringLiteral("order-lost/good.json")}).output,
             QByteArray("1 file: 0 errors, 0 warnings, 0 notes\n"));
}

void CheckTest::longPathIsWhole()
{
    const QTemporaryDir directory;
    const QString folder = directory.filePath(QString(100, QLatin1Char('d')));
    QVERIFY(QDir().mkdir(folder));
    const QString path = folder + QLatin1String("/a.json");
    QVERIFY(QFile::copy(s_fixtures.filePath(QStringLiteral("order-lost/bad.json")), path));
    QVERIFY(check({path}).output.startsWith(path.toUtf8() + ":3:54: error: "));
}

void CheckTest::unlikelyCatalogNames_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("longest") << QByteArray(255 - int(qstrlen("_eng_en")), 'a');
    QTest::newRow("too long") << QByteArray(5000, 'a');
    QTest::newRow("elsewhere") << QByteArray("../elsewhere/a");
    QTest::newRow("null character") << QByteArray("a\\u0000b");
}

void CheckTest::unlikelyCatalogNames()
{
    QFETCH(QByteArray, name);
    const QTemporaryDir directory;
    QFile file(directory.filePath(QStringLiteral("a.json")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(R"({"translation_catalog": ")" + name + R"(", "entries": [{"path": "a", "title": "A"}]})");
    file.close();
    const Finished finished = check({file.fileName()});
    QCOMPARE(finished.errors, QByteArray());
    QVERIFY2(finished.output.contains(" [missing-catalog]\n"), finished.output.constData());
}

void CheckTest::catalogsWithoutIds_data()
{
    using namespace CatalogBytes;
    QTest::addColumn<QByteArray>("message");
    QTest::addColumn<bool>("isFound");
    const QByteArray oldHash = '\5' + number32(0x0badcafe);
    QTest::newRow("source text") << translation("A") + source("a b") + end() << true;
    QTest::newRow("id") << translation("A") + source("test-a") + end() << false;
    QTest::newRow("source text behind an old hash") << oldHash + source("a b") + translation("A") + end() << true;
    QTest::newRow("id behind an old hash") << oldHash + source("test-a") + translation("A") + end() << false;
    QTest::newRow("source text behind a null translation")
        << part(3, NullText, {}) + translation("A") + source("a b") + end() << true;
    QTest::newRow("no source text") << translation("A") + end() << false;
}

void CheckTest::catalogsWithoutIds()
{
    QFETCH(QByteArray, message);
    const QTemporaryDir directory;
    QFile file(directory.filePath(QStringLiteral("a-fi.qm")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(CatalogBytes::withMessage(message));
    file.close();
    const Catalog catalog(QStringLiteral("a"), directory.path());
    QCOMPARE(catalog.locales(), QStringList(QStringLiteral("fi")));
    QTEST(!catalog.filesWithoutIds().isEmpty(), "isFound");
}

void CheckTest::explainsEachTag()
{
    for (const TagInfo &tag : tags()) {
        const Finished finished = check({QStringLiteral("--explain"), QLatin1String(tag.name)});
        QCOMPARE(finished.exitCode, 0);
        QVERIFY2(finished.output.contains(tag.explanation), tag.name);
    }
}

void CheckTest::listsEachTag()
{
    const QList<QByteArray> lines = check({QStringLiteral("--list-tags")}).output.trimmed().split('\n');
    QCOMPARE(lines.size(), tags().size());
    for (int i = 0; i < lines.size(); ++i) {
        QVERIFY2(lines.at(i).startsWith(tags().at(i).name), lines.at(i).constData());
    }
}

void CheckTest::json()
{
    const QByteArray output
        = check({QStringLiteral("--format=json"), QStringLiteral("order-lost/bad.json")}).output;
    const QJsonArray findings = QJsonDocument::fromJson(output).array();
    QCOMPARE(findings.size(), 1);
    const QJsonObject expected{
        {QStringLiteral("file"), QStringLiteral("order-lost/bad.json")},
        {QStringLiteral("line"), 3},
        {QStringLiteral("column"), 54},
        {QStringLiteral("severity"), QStringLiteral("error")},
        {QStringLiteral("tag"), QStringLiteral("order-lost")},
        {QStringLiteral("text"), QStringLiteral("the library reads this order as -1294967296")}};
    QCOMPARE(findings.first().toObject(), expected);
}

void CheckTest::sarif()
{
    const QByteArray output
        = check({QStringLiteral("--format=sarif"), QStringLiteral("order-lost/bad.json")}).output;
    const QJsonObject log = QJsonDocument::fromJson(output).object();
    QCOMPARE(log.value(QStringLiteral("version")).toString(), QStringLiteral("2.1.0"));
    const QJsonObject run = log.value(QStringLiteral("runs")).toArray().first().toObject();
    const QJsonObject driver
        = run.value(QStringLiteral("tool")).toObject().value(QStringLiteral("driver")).toObject();
    const QJsonArray rules = driver.value(QStringLiteral("rules")).toArray();
    QCOMPARE(rules.size(), tags().size());
    const QJsonObject result = run.value(QStringLiteral("results")).toArray().first().toObject();
    const QJsonValue rule = rules.at(result.value(QStringLiteral("ruleIndex")).toInt());
    QCOMPARE(rule.toObject().value(QStringLiteral("id")), result.value(QStringLiteral("ruleId")));
    QCOMPARE(result.value(QStringLiteral("ruleId")).toString(), QStringLiteral("order-lost"));
    QCOMPARE(result.value(QStringLiteral("level")).toString(), QStringLiteral("error"));
    const QJsonObject place = result.value(QStringLiteral("locations"))
                                  .toArray()
                                  .first()
                                  .toObject()
                                  .value(QStringLiteral("physicalLocation"))
                                  .toObject();
    QCOMPARE(place.value(QStringLiteral("artifactLocation")).toObject().value(QStringLiteral("uri")).toString(),
             QStringLiteral("order-lost/bad.json"));
    QCOMPARE(place.value(QStringLiteral("region")).toObject().value(QStringLiteral("startLine")).toInt(), 3);
}

void CheckTest::junit()
{
    QXmlStreamReader xml(check({QStringLiteral("--format=junit"), QStringLiteral("order-lost/bad.json"),
                                QStringLiteral("order-rounded/good.json")})
                             .output);
    int cases = 0;
    int failures = 0;
    while (!xml.atEnd()) {
        if (xml.readNext() == QXmlStreamReader::StartElement) {
            cases += xml.name() == QLatin1String("testcase") ? 1 : 0;
            failures += xml.name() == QLatin1String("failure") ? 1 : 0;
        }
    }
    QVERIFY2(!xml.hasError(), qPrintable(xml.errorString()));
    QCOMPARE(cases, 2);
    QCOMPARE(failures, 1);
}

void CheckTest::overridesSeverity()
{
    const Finished finished = check(
        {QStringLiteral("--override=order-lost=note"), QStringLiteral("order-lost/bad.json")});
    QVERIFY2(finished.output.contains(": note: "), finished.output.constData());
}

void CheckTest::outputHasNoControlCharacters()
{
    const QTemporaryDir directory;
    QFile file(directory.filePath(QStringLiteral("a.json")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(R"({"entries": [{"path": "a", "title": "A", "\u001b[31m\u0000\n\uffff": 1}]})");
    file.close();
    for (const char *format : {"text", "json", "sarif", "junit"}) {
        const QByteArray output
            = check({QStringLiteral("--format"), QLatin1String(format), file.fileName()}).output;
        QVERIFY(output.contains("[31m"));
        QVERIFY(!output.contains('\x1b'));
        QVERIFY(!output.contains('\0'));
    }
}

void CheckTest::helpFitsAScreen()
{
    const Finished finished = check({QStringLiteral("--help")});
    QCOMPARE(finished.exitCode, 0);
    const QList<QByteArray> lines = finished.output.split('\n');
    QVERIFY(lines.size() <= 25);
    for (const QByteArray &line : lines) {
        QVERIFY2(line.size() <= 80, line.constData());
    }
}

QTEST_GUILESS_MAIN(CheckTest)
#include "tst_check.moc"
