// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "text.h"
#include "tool.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <QTest>

class DiffCommandTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void asText();
    void markdown();
    void json();
    void nothingChanged();
    void comparesRoots();
    void groupsDecide();
    void missingDirectory();

private:
    Tool::Result diff(const QStringList &options = {}) const;

    QTemporaryDir m_temporary;
    const QString m_old = m_temporary.filePath(text("old"));
    const QString m_new = m_temporary.filePath(text("new"));
};

namespace
{
const Tool::Files s_old{{text("sound-1.json"), R"({"entries": [
    {"path": "page/sound", "title": "Sound", "order": 3, "params": {"a": 1}, "icon": "x|`y`"},
    {"path": "page/same", "title": "Same"}, {"path": "page/gone/below"}]})"}};
const Tool::Files s_new{{text("sound-2.json"), R"({"entries": [
    {"path": "page/sound", "title": "Audio", "order": 3, "params": {"a": 2}, "type": "page"},
    {"path": "page/same", "title": "Same"}, {"path": "page/come"}]})"}};
}

void DiffCommandTest::init()
{
    Tool::writeFiles(m_old, s_old);
    Tool::writeFiles(m_new, s_new);
}

Tool::Result DiffCommandTest::diff(const QStringList &options) const
{
    return Tool::run(QStringList{text("diff")} + options + QStringList{m_old, m_new});
}

void DiffCommandTest::asText()
{
    QCOMPARE(diff().exitCode, 1);
    QCOMPARE(diff().output, QByteArray("- page/gone/below\n"
                                       "+ page/come\n"
                                       "~ page/sound\n"
                                       "    icon: \"x|`y`\" -> (none)\n"
                                       "    params: {\"a\":1} -> {\"a\":2}\n"
                                       "    title: \"Sound\" -> \"Audio\"\n"
                                       "    type: (none) -> \"page\"\n"));
}

void DiffCommandTest::markdown()
{
    QCOMPARE(diff({text("--format"), text("markdown")}).output,
             QByteArray("## Removed\n\n- `page/gone/below`\n\n"
                        "## Added\n\n- `page/come`\n\n"
                        "## Changed\n\n"
                        "| Entry | Key | Before | After |\n"
                        "|---|---|---|---|\n"
                        "| `page/sound` | `icon` | `` \"x\\|`y`\" `` |  |\n"
                        "| `page/sound` | `params` | `{\"a\":1}` | `{\"a\":2}` |\n"
                        "| `page/sound` | `title` | `\"Sound\"` | `\"Audio\"` |\n"
                        "| `page/sound` | `type` |  | `\"page\"` |\n"));
}

void DiffCommandTest::json()
{
    const QJsonObject expected = QJsonDocument::fromJson(
                                     R"({"removed": ["page/gone/below"], "added": ["page/come"],
        "changed": [{"path": "page/sound", "keys": {
            "icon": {"before": "x|`y`"},
            "params": {"before": {"a": 1}, "after": {"a": 2}},
            "title": {"before": "Sound", "after": "Audio"},
            "type": {"after": "page"}}}]})")
                                     .object();
    QCOMPARE(diff({text("--format"), text("json")}).json(), expected);
}

void DiffCommandTest::nothingChanged()
{
    Tool::writeFiles(m_new, {{text("renamed.json"), s_old.first()}});
    QCOMPARE(diff().exitCode, 0);
    QCOMPARE(diff().output, QByteArray());
    QCOMPARE(diff({text("--format"), text("markdown")}).output,
             QByteArray("No entry is added, removed or changed.\n"));
}

void DiffCommandTest::comparesRoots()
{
    const QString root = m_temporary.filePath(text("root"));
    Tool::writeFiles(root + text("/usr/share/velka-settings/entries"), s_old);
    QCOMPARE(Tool::run({text("diff"), root, m_old}).exitCode, 0);
    QCOMPARE(Tool::run({text("diff"), root, m_new}).output, diff().output);
}

void DiffCommandTest::groupsDecide()
{
    Tool::writeFiles(m_old, {{text("x.json"), "{}"}});
    Tool::writeFiles(m_new, {{text("x.json"), R"({"required_group": "root", "entries": [{"path": "x"}]})"}});
    QCOMPARE(diff().output, QByteArray("+ x\n"));
    QCOMPARE(diff({text("--uid"), text("1")}).output, QByteArray());
    QCOMPARE(diff({text("--masked"), text("x")}).output, QByteArray());
}

void DiffCommandTest::missingDirectory()
{
    const Tool::Result result = Tool::run({text("diff"), m_old, m_temporary.filePath(text("nowhere"))});
    QCOMPARE(result.exitCode, 2);
    QCOMPARE(result.output, QByteArray());
}

QTEST_GUILESS_MAIN(DiffCommandTest)
#include "tst_diffcommand.moc"
