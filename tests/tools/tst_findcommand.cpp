// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "text.h"
#include "tool.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTest>

class FindCommandTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void printsText();
    void printsJson();
    void strict();
    void answersLines();
    void wrongUse();

private:
    QStringList arguments(const QStringList &others) const;

    QTemporaryDir m_directory;
};

void FindCommandTest::initTestCase()
{
    Tool::writeFiles(m_directory.path(), {{text("x.json"), R"({"entries": [{"path": "s", "title": "Sound"},
                         {"path": "s/v", "type": "page", "title": "Volume"}]})"}});
}

QStringList FindCommandTest::arguments(const QStringList &others) const
{
    return QStringList{text("find"), text("--root"), m_directory.path()} + others;
}

void FindCommandTest::printsText()
{
    const Tool::Result found = Tool::run(arguments({text("sound"), text("volume")}));
    QCOMPARE(found.exitCode, 0);
    QCOMPARE(QString::fromUtf8(found.output), QString::fromUtf8("Sound › Volume  s/v\n"));
    const Tool::Result nothing = Tool::run(arguments({text("rhubarb")}));
    QCOMPARE(nothing.exitCode, 1);
    QCOMPARE(nothing.output, QByteArray());
}

void FindCommandTest::printsJson()
{
    const Tool::Result found = Tool::run(arguments({text("volume"), text("--format"), text("json")}));
    QJsonObject result = found.json().value(text("results")).toArray().at(0).toObject();
    QVERIFY(result.take(text("score")).toDouble() > 0);
    QCOMPARE(result, (QJsonObject{{text("location"), text("s/v")},
                                  {text("title"), text("Volume")},
                                  {text("breadcrumb"), QJsonArray{text("Sound")}},
                                  {text("kind"), text("page")}}));
}

void FindCommandTest::strict()
{
    QCOMPARE(Tool::run(arguments({text("volme")})).exitCode, 0);
    QCOMPARE(Tool::run(arguments({text("volme"), text("--strict")})).exitCode, 1);
}

void FindCommandTest::answersLines()
{
    const Tool::Result answers = Tool::runWithInput(arguments({text("-")}), "volume\n\nrhu\"barb\nsound");
    QCOMPARE(answers.exitCode, 0);
    const QList<QByteArray> lines = answers.output.split('\n');
    QCOMPARE(lines.size(), 5); // the last one is empty
    QCOMPARE(QJsonDocument::fromJson(lines.at(0)).array().at(0).toObject().value(text("location")).toString(),
             text("s/v"));
    QCOMPARE(lines.at(1), QByteArray("[]"));
    QCOMPARE(lines.at(2), QByteArray("[]"));
    QCOMPARE(QJsonDocument::fromJson(lines.at(3)).array().size(), 1);
}

void FindCommandTest::wrongUse()
{
    QCOMPARE(Tool::run({text("find")}).exitCode, 2);
    QCOMPARE(Tool::run({text("find"), text("--root"), text("/missing"), text("x")}).exitCode, 2);
    QCOMPARE(Tool::run(arguments({text("x"), text("--format"), text("xml")})).exitCode, 2);
}

QTEST_GUILESS_MAIN(FindCommandTest)
#include "tst_findcommand.moc"
