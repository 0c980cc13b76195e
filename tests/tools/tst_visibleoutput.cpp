// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "text.h"
#include "tool.h"

#include <QChar>
#include <QDir>
#include <QTemporaryDir>
#include <QTest>
#include <QVector>

#include <algorithm>

// Whatever files and their content are named, the tool prints lines that show as they are.
class VisibleOutputTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void entries_data();
    void entries();
    void arguments_data();
    void arguments();

private:
    void commands();
};

namespace
{
// One of each kind: controls of both sets, deletion, a new line, direction, line separator, invisible
const QString s_hostile = QString::fromUtf8("be\x1b[2J\x7f\xc2\x9b\n\xe2\x80\xae\xe2\x81\xa6\xd8\x9c\xe2\x80\xa8"
                                            "\xe2\x80\xa9\xe2\x80\x8b\xf3\xa0\x80\x81"
                                            "fore");

/// The escape sequences of JSON in place of controls, all else as it is.
QByteArray inJson()
{
    QString json = s_hostile;
    json.replace(QChar(0x1b), text("\\u001b")).replace(QLatin1Char('\n'), text("\\n"));
    return json.toUtf8();
}

/// The files of a package that are as hostile as they can be.
Tool::Files files(const QByteArray &title)
{
    const QByteArray name = inJson();
    const QByteArray entry = "{\"path\": \"" + name + "\", \"title\": \"" + title + "\", \"type\": \"" + name
                             + "\", \"icon\": \"" + name + "\", \"" + name + "\": \"" + name
                             + "\", \"params\": {\"" + name + "\": 1, \"remote-service\": \"" + name
                             + "\", \"remote-path\": \"" + name + "\"}}";
    return {{s_hostile + text(".json"), "{\"entries\": [" + entry + ", " + entry + ", {\"" + name
                                            + "\": 0}], \"translation_catalog\": \"" + name
                                            + "\", \"required_group\": \"\", \"" + name + "\": 1}"},
            {text("broken") + s_hostile + text(".json"), "{" + s_hostile.toUtf8()},
            {text("group.json"), "{\"required_group\": \"" + name + "\", \"entries\": [" + entry + "]}"},
            {text("list") + s_hostile + text(".json"), "[]"}};
}

QByteArray unseen(const QByteArray &output)
{
    const QVector<uint> characters = QString::fromUtf8(output).toUcs4();
    QByteArray found;
    for (const uint character : characters) {
        const QChar::Category category = QChar::category(character);
        if (character != '\n'
            && (category == QChar::Other_Control || category == QChar::Other_Format
                || category == QChar::Separator_Line || category == QChar::Separator_Paragraph)) {
            found += "U+" + QByteArray::number(character, 16) + ' ';
        }
    }
    return found;
}
}

void VisibleOutputTest::commands()
{
    QTest::addColumn<QStringList>("arguments");
    for (const char *command : {"tree", "show", "why", "diff", "check"}) {
        for (const char *format : {"text", "json", "paths", "markdown", "sarif", "junit"}) {
            QTest::addRow("%s %s", command, format) << QStringList{text(command), text("--format"), text(format)};
        }
    }
}

void VisibleOutputTest::entries_data()
{
    commands();
}

void VisibleOutputTest::entries()
{
    QFETCH(QStringList, arguments);
    const QTemporaryDir directory;
    const QString before = directory.filePath(text("before"));
    const QString after = directory.filePath(text("after"));
    Tool::writeFiles(before, files("title"));
    Tool::writeFiles(after, files(inJson()));
    const QString command = arguments.constFirst();
    if (command == text("diff")) {
        arguments += QStringList{before, after};
    } else if (command == text("check")) {
        arguments += after;
    } else {
        arguments += QStringList{text("--root"), after};
    }
    if (command == text("show") || command == text("why")) {
        arguments += s_hostile;
    }
    const Tool::Result result = Tool::run(arguments);
    QCOMPARE(unseen(result.output), QByteArray());
    QCOMPARE(unseen(result.errors), QByteArray());
    // A line that begins with what follows the new line is a forged one.
    QVERIFY(!result.output.contains("\nfore") && !result.errors.contains("\nfore"));
    QVERIFY(!result.output.isEmpty() || !result.errors.isEmpty());
}

void VisibleOutputTest::arguments_data()
{
    QTest::addColumn<QStringList>("arguments");
    const QString nowhere = text("/nowhere/") + s_hostile;
    QTest::newRow("command") << QStringList{s_hostile};
    QTest::newRow("option") << QStringList{text("tree"), text("--") + s_hostile};
    QTest::newRow("format") << QStringList{text("tree"), text("--format"), s_hostile};
    QTest::newRow("locale") << QStringList{text("tree"), text("--locale"), s_hostile};
    QTest::newRow("user") << QStringList{text("tree"), text("--uid"), s_hostile};
    QTest::newRow("root") << QStringList{text("tree"), text("--root"), nowhere};
    QTest::newRow("entry") << QStringList{text("show"), s_hostile};
    QTest::newRow("reason") << QStringList{text("why"), s_hostile};
    QTest::newRow("difference") << QStringList{text("diff"), nowhere, nowhere};
    QTest::newRow("file") << QStringList{text("check"), nowhere};
    QTest::newRow("tag") << QStringList{text("check"), text("--explain"), s_hostile};
    QTest::newRow("override") << QStringList{text("check"), text("--override"), s_hostile, text("x")};
    QTest::newRow("severity") << QStringList{text("check"), text("--override"), text("path-missing=") + s_hostile,
                                             text("x")};
}

void VisibleOutputTest::arguments()
{
    QFETCH(QStringList, arguments);
    const Tool::Result result = Tool::run(arguments);
    QVERIFY(result.exitCode != 0);
    QCOMPARE(unseen(result.output), QByteArray());
    QCOMPARE(unseen(result.errors), QByteArray());
    QVERIFY(!result.output.contains("\nfore") && !result.errors.contains("\nfore"));
}

QTEST_GUILESS_MAIN(VisibleOutputTest)
#include "tst_visibleoutput.moc"
