// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "catalogs.h"
#include "text.h"
#include "tool.h"
#include "world.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

/// What the commands understand as FILE and DIR.
class ArgumentsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void understandsKindsOfDirectories_data();
    void understandsKindsOfDirectories();
    void refusesWhatHasNothing_data();
    void refusesWhatHasNothing();
    void refusesFilesThatAreNeverLoaded();
    void refusesTwoFilesOfOneName();
    void treeOfFiles();
    void otherJsonFilesAreIgnored();
    void brokenFilesAreRegistrationFiles();
    void catalogsOfTheRoot();
    void translations_data();
    void translations();
    void fileNamedTwiceIsOneFile();
    void namesAreWhole();
    void standardInput();
    void comparesWithInstalled();
    void comparesWithTheSystem();
    void olderVersionIsLeftOut();
    void version_data();
    void version();
    void numbersOfArguments_data();
    void numbersOfArguments();
    void suggestsCommands();
    void manyEntriesOfOnePath();
    void deepPath();

private:
    QString path(const char *name) const;

    QTemporaryDir m_temporary;
};

namespace
{
const char s_good[] = R"({"entries": [{"path": "page/sound", "title": "Sound"}]})";
const QString s_entries = text("/usr/share/velka-settings/entries");

QString summaryOf(const Tool::Result &result)
{
    return QString::fromUtf8(result.output.trimmed().split('\n').last());
}
}

void ArgumentsTest::init()
{
    World::reset();
    QDir(m_temporary.path()).removeRecursively();
    Tool::writeFiles(path("files"), {{text("sound.json"), s_good}});
    Tool::writeFiles(path("parent/entries"), {{text("sound.json"), s_good}});
    Tool::writeFiles(path("root") + s_entries, {{text("sound.json"), s_good}});
    Tool::writeFiles(path("empty"), {});
    Tool::writeFiles(path("foreign"), {{text("package.json"), R"({"name": "sound", "files": ["a"]})"}});
    Tool::writeFiles(path("emptyroot") + s_entries, {});
}

QString ArgumentsTest::path(const char *name) const
{
    return m_temporary.filePath(text(name));
}

void ArgumentsTest::understandsKindsOfDirectories_data()
{
    QTest::addColumn<QString>("directory");
    for (const char *directory : {"files", "parent", "parent/entries", "root", "root/usr/share/velka-settings",
                                  "root/usr/share/velka-settings/entries", "files/sound.json"}) {
        QTest::newRow(directory) << path(directory);
    }
}

void ArgumentsTest::understandsKindsOfDirectories()
{
    QFETCH(QString, directory);
    QCOMPARE(summaryOf(Tool::run({text("check"), directory})), text("1 file: 0 errors, 0 warnings, 0 notes"));
    const QByteArray paths = "page\npage/sound\n";
    const QStringList asPaths{text("--format"), text("paths")};
    QCOMPARE(Tool::run(QStringList{text("tree"), directory} + asPaths).output, paths);
    QCOMPARE(Tool::run(QStringList{text("tree"), text("--root"), directory} + asPaths).output, paths);
    QCOMPARE(Tool::run({text("show"), text("--root"), directory, text("page/sound")}).exitCode, 0);
    QCOMPARE(Tool::run({text("why"), text("--root"), directory, text("page/sound")}).exitCode, 0);
    Tool::writeFiles(path("other"), {{text("other.json"), R"({"entries": [{"path": "other"}]})"}});
    QCOMPARE(Tool::run({text("diff"), directory, path("other")}).output, QByteArray("- page/sound\n+ other\n"));
}

void ArgumentsTest::refusesWhatHasNothing_data()
{
    QTest::addColumn<QString>("directory");
    QTest::addColumn<QByteArray>("message");
    QTest::newRow("empty") << path("empty") << QByteArray("there is no registration file in ");
    QTest::newRow("other JSON files") << path("foreign") << QByteArray("there is no registration file in ");
    QTest::newRow("root without entries") << path("emptyroot") << QByteArray("there is no registration file in ");
    QTest::newRow("missing") << path("nowhere") << QByteArray("there is no file or directory ");
}

void ArgumentsTest::refusesWhatHasNothing()
{
    QFETCH(QString, directory);
    QFETCH(QByteArray, message);
    for (const QStringList &command :
         {QStringList{text("check"), directory}, QStringList{text("check"), path("files"), directory},
          QStringList{text("tree"), directory}, QStringList{text("show"), text("--root"), directory, text("x")},
          QStringList{text("why"), text("--root"), directory, text("x")},
          QStringList{text("diff"), directory, path("files")}, QStringList{text("diff"), path("files"), directory},
          QStringList{text("preview"), directory}}) {
        const Tool::Result result = Tool::run(command);
        QCOMPARE(result.exitCode, 2);
        QCOMPARE(result.output, QByteArray());
        QVERIFY2(result.errors.contains(message + '"' + directory.toUtf8()), result.errors.constData());
    }
}

void ArgumentsTest::refusesFilesThatAreNeverLoaded()
{
    Tool::writeFiles(path("files"), {{text("sound.txt"), s_good}});
    const Tool::Result result = Tool::run({text("tree"), path("files/sound.txt")});
    QCOMPARE(result.exitCode, 2);
    QVERIFY(result.errors.endsWith("is never loaded: its name does not end in \".json\"\n"));
}

void ArgumentsTest::refusesTwoFilesOfOneName()
{
    const Tool::Result result = Tool::run(
        {text("tree"), path("files/sound.json"), path("parent/entries/sound.json")});
    QCOMPARE(result.exitCode, 2);
    QVERIFY2(result.errors.contains("two files have the same name: "), result.errors.constData());
}

void ArgumentsTest::treeOfFiles()
{
    Tool::writeFiles(path("more"), {{text("light.json"), R"({"entries": [{"path": "page/light"}]})"}});
    const Tool::Result result = Tool::run(
        {text("tree"), path("more/light.json"), path("files"), text("--format"), text("paths")});
    QCOMPARE(result.output, QByteArray("page\npage/light\npage/sound\n"));
}

void ArgumentsTest::otherJsonFilesAreIgnored()
{
    Tool::writeFiles(path("files"), {{text("sound.json"), s_good},
                                     {text("package.json"), R"({"name": "sound"})"},
                                     {text("list.json"), R"(["a"])"},
                                     {text("comments.json"), "{\n  // no JSON\n  \"a\": 1\n}"}});
    QCOMPARE(summaryOf(Tool::run({text("check"), path("files")})), text("1 file: 0 errors, 0 warnings, 0 notes"));
}

void ArgumentsTest::brokenFilesAreRegistrationFiles()
{
    Tool::writeFiles(path("files"), {{text("sound.json"), R"({"entries": [{"path": "page/sound"},]})"},
                                     {text("package.json"), R"({"name": "sound"})"}});
    QCOMPARE(summaryOf(Tool::run({text("check"), path("files")})), text("1 file: 1 error, 0 warnings, 0 notes"));
    Tool::writeFiles(path("files"), {{text("empty.json"), ""}});
    QCOMPARE(summaryOf(Tool::run({text("check"), path("files")})), text("1 file: 1 error, 0 warnings, 0 notes"));
}

void ArgumentsTest::catalogsOfTheRoot()
{
    Tool::writeFiles(path("root") + s_entries, {{text("sound.json"), R"({"translation_catalog": "sample",
        "entries": [{"path": "page/sound", "title": "Sound", "translation_id": "test-both"}]})"}});
    QCOMPARE(summaryOf(Tool::run({text("check"), path("root")})), text("1 file: 0 errors, 0 warnings, 1 note"));
    const QString catalogs = path("root/usr/share/translations");
    QVERIFY(QDir().mkpath(catalogs));
    QVERIFY(QFile::copy(text(VELKA_TEST_CATALOGS "/sample-fi.qm"), catalogs + text("/sample-fi.qm")));
    QCOMPARE(summaryOf(Tool::run({text("check"), path("root")})), text("1 file: 0 errors, 0 warnings, 0 notes"));
}

void ArgumentsTest::translations_data()
{
    QTest::addColumn<QStringList>("command");
    QTest::newRow("tree") << QStringList{text("tree"), path("files")};
    QTest::newRow("show") << QStringList{text("show"), text("--root"), path("files"), text("page/sound")};
    QTest::newRow("why") << QStringList{text("why"), text("--root"), path("files"), text("page/sound")};
    QTest::newRow("diff") << QStringList{text("diff"), path("parent"), path("files")};
}

void ArgumentsTest::translations()
{
    QFETCH(QStringList, command);
    Tool::writeFiles(path("files"), {{text("sound.json"), R"({"translation_catalog": "sample",
        "entries": [{"path": "page/sound", "translation_id": "test-both"}]})"}});
    command += QStringList{text("--locale"), text("fi")};
    QVERIFY(!Tool::run(command).output.contains("Molemmat"));
    command += QStringList{text("--translations"), text(VELKA_TEST_CATALOGS)};
    const Tool::Result result = Tool::run(command);
    QVERIFY2(result.output.contains("Molemmat"), result.output.constData());
}

void ArgumentsTest::fileNamedTwiceIsOneFile()
{
    const QString file = path("files/sound.json");
    QVERIFY(QFile::link(file, path("link.json")));
    const Tool::Result result = Tool::run(
        {text("check"), path("files"), file, path("files/../files/sound.json"), path("link.json")});
    QCOMPARE(summaryOf(result), text("1 file: 0 errors, 0 warnings, 0 notes"));
}

void ArgumentsTest::namesAreWhole()
{
    const QString name = QString(200, QLatin1Char('n')) + text(".json");
    Tool::writeFiles(path("files"), {{text("a.json"), R"({"entries": [{"path": "a", "title": "A"}]})"},
                                     {name, R"({"entries": [{"path": "a", "title": "B"}]})"},
                                     {name + text(".bak"), s_good}});
    const QByteArray output = Tool::run({text("check"), path("files")}).output;
    QVERIFY2(output.contains("the one in " + name.toUtf8() + ":1:23 has the same path"), output.constData());
    QVERIFY(output.contains("a file named \"" + name.toUtf8() + ".bak\" is never loaded"));
    const QByteArray junit = Tool::run({text("check"), text("--format=junit"), path("files")}).output;
    QVERIFY(junit.contains('/' + name.toUtf8() + '"'));
    QVERIFY(!junit.contains("1 file"));
}

void ArgumentsTest::standardInput()
{
    const QByteArray broken = R"({"entries": [{"path": "a", "titel": "A"}]})";
    const Tool::Result result = Tool::runWithInput({text("check"), text("-")}, broken);
    QVERIFY2(result.output.startsWith("<stdin>:1:28: warning: unknown key \"titel\""), result.output.constData());
    QCOMPARE(summaryOf(result), text("1 file: 0 errors, 1 warning, 0 notes"));
}

void ArgumentsTest::comparesWithInstalled()
{
    Tool::writeFiles(path("installed"), {{text("base.json"), R"({"entries": [{"path": "page", "title": "Page"},
        {"path": "page/top", "title": "Top"}, {"titel": "not reported"}]})"}});
    Tool::writeFiles(path("files"), {{text("sound.json"), R"({"entries": [
        {"path": "page/top/sound", "title": "Sound"}, {"path": "page", "title": "Mine"}]})"}});
    QVERIFY(Tool::run({text("check"), path("files")}).output.contains("[undeclared-parent]"));
    const Tool::Result result = Tool::run({text("check"), text("--with"), path("installed"), path("files")});
    QVERIFY(!result.output.contains("[undeclared-parent]"));
    const QByteArray expected = "this entry has the same path as the one in "
                                + path("installed/base.json").toUtf8() + ":1:23 and replaces it [duplicate-path]";
    QVERIFY2(result.output.contains(expected), result.output.constData());
    QCOMPARE(summaryOf(result), text("1 file: 1 error, 0 warnings, 0 notes"));
}

void ArgumentsTest::comparesWithTheSystem()
{
    World::writeEntries(text("base.json"), s_good);
    const Tool::Result result = Tool::run({text("check"), text("--with"), text("SYSTEM"), path("other.json")});
    QCOMPARE(result.exitCode, 2);
    Tool::writeFiles(path("files"), {{text("zz.json"), s_good}});
    QCOMPARE(Tool::run({text("check"), text("--with"), text("SYSTEM"), path("files")}).exitCode, 1);
}

void ArgumentsTest::olderVersionIsLeftOut()
{
    Tool::writeFiles(path("installed"), {{text("sound.json"), s_good}, {text("a.json"), "{}"}});
    const Tool::Result result = Tool::run({text("check"), text("--with"), path("installed"), path("files")});
    QCOMPARE(summaryOf(result), text("1 file: 0 errors, 0 warnings, 0 notes"));
}

void ArgumentsTest::version_data()
{
    QTest::addColumn<QStringList>("command");
    QTest::newRow("none") << QStringList();
    for (const char *command : {"check", "tree", "show", "why", "diff", "preview"}) {
        QTest::newRow(command) << QStringList{text(command)};
    }
}

void ArgumentsTest::version()
{
    QFETCH(QStringList, command);
    const Tool::Result version = Tool::run(command + QStringList{text("--version")});
    QCOMPARE(version.exitCode, 0);
    QVERIFY2(version.output.startsWith("velka-settings 1."), version.output.constData());
    QCOMPARE(Tool::run(command + QStringList{text("-h")}).output,
             Tool::run(command + QStringList{text("--help")}).output);
}

void ArgumentsTest::numbersOfArguments_data()
{
    QTest::addColumn<QStringList>("command");
    QTest::addColumn<QByteArray>("message");
    QTest::newRow("one") << QStringList{text("why")} << QByteArray("1 argument is needed: PATH\n");
    QTest::newRow("two") << QStringList{text("diff"), text("a")}
                         << QByteArray("2 arguments are needed: OLD and NEW\n");
    QTest::newRow("more than one") << QStringList{text("show"), text("a"), text("b")}
                                   << QByteArray("only 1 argument is possible: PATH\n");
    QTest::newRow("more than two") << QStringList{text("diff"), text("a"), text("b"), text("c")}
                                   << QByteArray("only 2 arguments are possible: OLD and NEW\n");
}

void ArgumentsTest::numbersOfArguments()
{
    QFETCH(QStringList, command);
    QFETCH(QByteArray, message);
    const Tool::Result result = Tool::run(command);
    QVERIFY2(result.errors.contains(": " + message), result.errors.constData());
}

void ArgumentsTest::suggestsCommands()
{
    QVERIFY(
        Tool::run({text("chekc")}).errors.contains("there is no command \"chekc\": did you mean \"check\"?\n"));
}

void ArgumentsTest::manyEntriesOfOnePath()
{
    constexpr int Number = 20000;
    QByteArrayList entries;
    for (int i = 0; i < Number; ++i) {
        entries.append(R"({"path": "page/sound", "title": ")" + QByteArray::number(i) + "\"}");
    }
    Tool::writeFiles(path("files"), {{text("sound.json"), "{\"entries\": [" + entries.join(",\n") + "]}"}});
    QElapsedTimer timer;
    timer.start();
    const Tool::Result result = Tool::run({text("check"), path("files")});
    QCOMPARE(summaryOf(result), text("1 file: %1 errors, 0 warnings, 0 notes").arg(Number - 1));
    QVERIFY2(timer.elapsed() < 20000, qPrintable(QString::number(timer.elapsed()))); // quadratic, it takes minutes
}

void ArgumentsTest::deepPath()
{
    constexpr int Names = 50000;
    Tool::writeFiles(path("files"), {{text("sound.json"), "{\"entries\": [{\"title\": \"Deep\", \"path\": \""
                                                              + QByteArray("a/").repeated(Names) + "a\"}]}"}});
    const Tool::Result tree = Tool::run({text("tree"), path("files")});
    QVERIFY(tree.output.size() < 100000);
    QVERIFY(tree.output.contains("a  \"Deep\"  (section, 100)  sound.json\n"));
    const Tool::Result paths = Tool::run({text("tree"), path("files"), text("--format"), text("paths")});
    QVERIFY(paths.output.size() < 1000000);
    QCOMPARE(Tool::run({text("check"), path("files")}).exitCode, 0);
}

QTEST_GUILESS_MAIN(ArgumentsTest)
#include "tst_arguments.moc"
