// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "text.h"
#include "tool.h"

#include <QTemporaryDir>
#include <QTest>

/// The position of the error in a file that is not JSON. All commands report the same one.
class BrokenFilesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void place_data();
    void place();
};

void BrokenFilesTest::place_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("column");

    QTest::newRow("text after the document") << QByteArray("{\n} x") << 2 << 3;
    QTest::newRow("word for a number") << QByteArray("[1, abc]") << 1 << 5;
    QTest::newRow("sign without digits") << QByteArray("[-x]") << 1 << 2;
    QTest::newRow("misspelt word") << QByteArray("{\n\"entries\": trua}") << 2 << 12;
    QTest::newRow("not UTF-8") << QByteArray("[\"a\xff\"]") << 1 << 4;
    QTest::newRow("escape that is no number") << QByteArray("[\"\\u12g4\"]") << 1 << 3;
    QTest::newRow("comma is missing") << QByteArray("[1\n  2]") << 1 << 3;
    QTest::newRow("comma is missing before blanks") << QByteArray("[1 x\n  2]") << 1 << 3;
    QTest::newRow("colon is missing") << QByteArray("{\"entries\" 1}") << 1 << 11;
    QTest::newRow("comma at the end of an object") << QByteArray("{\"entries\": [],\n}") << 1 << 15;
    QTest::newRow("comma at the end of an array") << QByteArray("{\"entries\": [\n1,\n]}") << 2 << 2;
    QTest::newRow("end is missing") << QByteArray("{\"entries\": [1]\n\n") << 1 << 15;
    QTest::newRow("end of a string is missing") << QByteArray("[\"a") << 1 << 2;
    QTest::newRow("end of a number is missing") << QByteArray("[12") << 1 << 3;
    QTest::newRow("after letters of two and four bytes")
        << QByteArray(u8"{\"\u00e9\U0001F600\": abc}") << 1 << 9; // columns as editors count: UTF-16 units
    QTest::newRow("after a byte order mark") << QByteArray("\xef\xbb\xbf{x}") << 1 << 2;
    QTest::newRow("after carriage returns") << QByteArray("{\r\n\"entries\": [\r\n  x]}") << 3 << 3;
    QTest::newRow("too deep") << QByteArray(2000, '[') << 1 << 1025;
}

void BrokenFilesTest::place()
{
    QFETCH(QByteArray, json);
    QFETCH(int, line);
    QFETCH(int, column);
    const QTemporaryDir directory;
    Tool::writeFiles(directory.path(), {{text("a.json"), json}});

    const QByteArray checked = Tool::run({text("check"), directory.filePath(text("a.json"))}).output;
    const QByteArray place = ":" + QByteArray::number(line) + ":" + QByteArray::number(column) + ": error: ";
    QVERIFY2(checked.contains("a.json" + place), checked.constData());

    const QByteArray printed = Tool::run({text("tree"), text("--root"), directory.path()}).errors;
    const QByteArray start = "a.json: line " + QByteArray::number(line) + ", column " + QByteArray::number(column)
                             + ": ";
    QVERIFY2(printed.startsWith(start), printed.constData());
}

QTEST_GUILESS_MAIN(BrokenFilesTest)
#include "tst_brokenfiles.moc"
