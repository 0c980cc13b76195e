// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "common/constants.h"
#include "text.h"
#include "tool.h"
#include "world.h"

#include <QTest>

/// The behaviour that all commands share.
class CommandLineTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void helpFitsScreen_data();
    void helpFitsScreen();
    void mistakes_data();
    void mistakes();
    void mistakesNameTheHelp_data();
    void mistakesNameTheHelp();
    void coloursOnlyOnTerminals_data();
    void coloursOnlyOnTerminals();
    void noColor();
    void progressAfterASecond_data();
    void progressAfterASecond();
};

void CommandLineTest::init()
{
    World::reset();
    World::writeEntries(text("x.json"), R"({"entries": [{"path": "x"}]})");
    World::writeEntries(text("y.json"), R"({"entries": [{"path": "y"}]})");
    World::writeEntries(text("broken.json"), "{");
    qunsetenv("NO_COLOR");
    qputenv("TERM", "xterm");
}

void CommandLineTest::helpFitsScreen_data()
{
    QTest::addColumn<QStringList>("command");
    QTest::newRow("all") << QStringList();
    for (const char *command : {"check", "tree", "show", "why", "diff", "open", "preview"}) {
        QTest::newRow(command) << QStringList{text(command)};
    }
}

void CommandLineTest::helpFitsScreen()
{
    QFETCH(QStringList, command);
    const Tool::Result result = Tool::run(command + QStringList{text("--help")});
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.errors, QByteArray());
    QVERIFY(result.output.startsWith("Usage: velka-settings "));
    QVERIFY(command.isEmpty() || result.output.contains("\nExit status: 0"));
    QVERIFY(command.isEmpty() || result.output.contains("\n  -h, --help "));
    const QList<QByteArray> lines = result.output.trimmed().split('\n');
    QVERIFY(lines.size() <= 24);
    for (const QByteArray &line : lines) {
        QVERIFY2(line.size() <= 80, line.constData());
    }
}

void CommandLineTest::mistakes_data()
{
    QTest::addColumn<QString>("command");
    for (const char *command : {"",
                                "nothing",
                                "--nothing",
                                "tree --nothing",
                                "tree nowhere",
                                "tree --format xml",
                                "tree --uid me",
                                "tree --locale nowhere",
                                "tree --root",
                                "show",
                                "show x y",
                                "why",
                                "why --format markdown x",
                                "diff x",
                                "diff --root x y z",
                                "diff --locale nowhere / /",
                                "tree --translations nowhere /",
                                "why /",
                                "show //",
                                "check --translations nowhere /",
                                "check --with nowhere /",
                                "check",
                                "check --format yaml /",
                                "check --explain nothing",
                                "check --override nothing=error /",
                                "open",
                                "open x y",
                                "open --nothing x",
                                "open /",
                                "open a/../b",
                                "open https://example.com/",
                                "open velka-settings:/%2",
                                "open --service nothing x",
                                "preview",
                                "preview --nothing /",
                                "preview --page"}) {
        QTest::newRow(command) << text(command);
    }
}

void CommandLineTest::mistakes()
{
    QFETCH(QString, command);
    const Tool::Result result = Tool::run(command.split(QLatin1Char(' '), Qt::SkipEmptyParts));
    QCOMPARE(result.exitCode, 2);
    QCOMPARE(result.output, QByteArray());
    QVERIFY(!result.errors.isEmpty());
}

void CommandLineTest::mistakesNameTheHelp_data()
{
    QTest::addColumn<QString>("command");
    for (const char *command : {"check", "tree", "show", "why", "diff", "open", "preview"}) {
        QTest::newRow(command) << text(command);
    }
}

void CommandLineTest::mistakesNameTheHelp()
{
    QFETCH(QString, command);
    const QByteArray name = command.toUtf8();
    QCOMPARE(Tool::run({command, text("--nothing")}).errors,
             "velka-settings " + name + ": Unknown option 'nothing'.\nSee velka-settings " + name + " --help.\n");
}

void CommandLineTest::coloursOnlyOnTerminals_data()
{
    QTest::addColumn<QString>("command");
    for (const char *command :
         {"tree", "show x", "why x", "why z", "check /usr/share/velka-settings/entries/x.json",
          "diff /usr/share/velka-settings/entries/x.json /usr/share/velka-settings/entries/y.json"}) {
        QTest::newRow(command) << text(command);
    }
}

void CommandLineTest::coloursOnlyOnTerminals()
{
    QFETCH(QString, command);
    const QStringList arguments = command.split(QLatin1Char(' '));
    QVERIFY(Tool::runOnTerminal(arguments).contains('\x1b'));
    const Tool::Result result = Tool::run(arguments);
    QVERIFY(!result.output.isEmpty());
    QVERIFY(!result.output.contains('\x1b'));
    QVERIFY(!result.errors.contains('\x1b'));
    qputenv("TERM", "dumb");
    QVERIFY(!Tool::runOnTerminal(arguments).contains('\x1b'));
}

void CommandLineTest::noColor()
{
    qputenv("NO_COLOR", "1");
    QVERIFY(!Tool::runOnTerminal({text("tree")}).contains('\x1b'));
}

void CommandLineTest::progressAfterASecond_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("check") << QStringList{text("check"), Constants::EntriesDirectory};
    QTest::newRow("tree") << QStringList{text("tree"), text("--root"), Constants::EntriesDirectory};
}

void CommandLineTest::progressAfterASecond()
{
    QFETCH(QStringList, arguments);
    World::reset();
    for (const char *name : {"a.json", "b.json", "c.json"}) {
        World::writeEntries(text(name), R"({"entries": [{"path": "x", "title": "X", "type": "page"}]})");
    }
    QCOMPARE(Tool::run(arguments).errors, QByteArray());

    const Tool::Result slow = Tool::runWithSlowFile(arguments, Constants::EntriesDirectory + text("/b.json"),
                                                    1100);
    QVERIFY2(slow.errors.startsWith("velka-settings: "), slow.errors.constData());
    QVERIFY2(slow.errors.endsWith(" of 3 files read\n"), slow.errors.constData());
    QCOMPARE(slow.errors.count('\n'), 1);
    QCOMPARE(slow.output, Tool::run(arguments).output);
}

QTEST_GUILESS_MAIN(CommandLineTest)
#include "tst_commandline.moc"
