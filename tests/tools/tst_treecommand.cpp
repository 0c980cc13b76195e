// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "catalogs.h"
#include "models/settingsmodel.h"
#include "registry/treeitem.h"
#include "text.h"
#include "tool.h"
#include "world.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QLocale>
#include <QTemporaryDir>
#include <QTest>

#include <sys/resource.h>

class TreeCommandTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void readsRoot();
    void readsDirectoryOfFiles();
    void listsPaths();
    void printsProblems();
    void textHasNoControlCharacters();
    void deepPathTakesLittleMemory();
    void showsOneEntry();
    void missingDirectory();
    void equalsTheModels(); // the last test: the registry lives until the process ends
};

namespace
{
#ifdef VELKA_SANITIZE // which takes many times as much memory
constexpr int NamesOfDeepPath = 20000;
#else
constexpr int NamesOfDeepPath = 200000;
#endif

/// Returns all properties that a page can read of the entries below @p path, in the order of the models.
QJsonArray readThroughModels(const QStringList &path)
{
    SettingsModel model;
    model.setPath(path);
    model.setDepth(1);
    QJsonArray entries;
    for (int row = 0; row < model.count(); ++row) {
        QObject *object = model.data(model.index(row), SettingsModel::ObjectRole).value<QObject *>();
        QVariantMap data;
        QStringList location;
        QMetaObject::invokeMethod(object, "data", Q_RETURN_ARG(QVariantMap, data));
        QMetaObject::invokeMethod(object, "location", Q_RETURN_ARG(QStringList, location));
        QJsonObject entry;
        for (const char *name : {"name", "type", "title", "shortTitle", "icon", "controlIcon"}) {
            entry.insert(text(name), object->property(name).toString());
        }
        entry.insert(text("path"), location.join(QLatin1Char('/')));
        const auto *item = qobject_cast<TreeItem *>(object);
        entry.insert(text("order"), item->order());
        entry.insert(text("declared"), item->isDeclared());
        entry.insert(text("data"), QJsonObject::fromVariantMap(data));
        entries.append(entry);
        const QJsonArray below = readThroughModels(location);
        for (const QJsonValue &value : below) {
            entries.append(value);
        }
    }
    return entries;
}

QJsonArray entriesOf(const Tool::Result &result)
{
    return result.json().value(text("entries")).toArray();
}
}

void TreeCommandTest::init()
{
    World::reset();
}

void TreeCommandTest::readsRoot()
{
    const QTemporaryDir root;
    const QDir directory(root.path());
    QVERIFY(directory.mkpath(text("usr/share/translations")));
    QVERIFY(QFile::copy(text(VELKA_TEST_CATALOGS "/sample-fi.qm"),
                        directory.filePath(text("usr/share/translations/sample-fi.qm"))));
    Tool::writeFiles(directory.filePath(text("usr/share/velka-settings/entries")),
                     {{text("x.json"), R"({"translation_catalog": "sample",
                       "entries": [{"path": "x", "translation_id": "test-both"}]})"}});
    World::writeEntries(text("own.json"), R"({"entries": [{"path": "own"}]})");
    const Tool::Result result = Tool::run(
        {text("tree"), text("--root"), root.path(), text("--locale"), text("fi")});
    QCOMPARE(result.output, QByteArray("x  \"Molemmat\"  (section, 100)  x.json\n"));
}

void TreeCommandTest::readsDirectoryOfFiles()
{
    const QTemporaryDir directory;
    Tool::writeFiles(directory.path(), {{text("x.json"), R"({"entries": [{"path": "x/y", "order": 7}]})"}});
    const Tool::Result result = Tool::run({text("tree"), text("--root"), directory.path()});
    QCOMPARE(result.output, QByteArray("x  \"!!x\"  (section, 100)  not declared\n"
                                       "  y  \"!!y\"  (section, 7)  x.json\n"));
}

void TreeCommandTest::listsPaths()
{
    World::writeEntries(text("x.json"),
                        R"({"entries": [{"path": "b"}, {"path": "a b/\u00e4"}, {"path": "line\nbreak"}]})");
    const Tool::Result result = Tool::run({text("tree"), text("--format"), text("paths")});
    QCOMPARE(result.output, QByteArray("a b\na b/\u00e4\nb\n"));
}

void TreeCommandTest::printsProblems()
{
    World::writeEntries(text("a.json"), R"({"entries": [{"path": "x"}, {"title": "X"}]})");
    World::writeEntries(text("b.json"), "{\n}}");
    World::writeEntries(text("c.json"), "[]");
    const Tool::Result result = Tool::run({text("tree")});
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.output, QByteArray("x  \"!!x\"  (section, 100)  a.json\n"));
    QCOMPARE(result.errors, QByteArray("a.json: entry 2 has no path\n"
                                       "b.json: line 2, column 2: this \"}\" is one too many\n"
                                       "c.json: the top level is not an object\n"));
}

void TreeCommandTest::textHasNoControlCharacters()
{
    World::writeEntries(text("x.json"),
                        R"({"entries": [{"path": "x\u001b[2J", "title": "\u202eright\u0007", "type": "a\nb"}]})");
    const QByteArray expected = R"(x\u{1b}[2J  "\u{202e}right\u{7}"  (a\u{a}b, 100)  x.json)";
    QCOMPARE(Tool::run({text("tree")}).output, expected + '\n');
}

void TreeCommandTest::deepPathTakesLittleMemory()
{
    const QByteArray path = QByteArray("a/").repeated(NamesOfDeepPath) + "end";
    World::writeEntries(text("x.json"), R"({"entries": [{"path": ")" + path + "\"}]}");
    const Tool::Result result = Tool::run({text("tree")});
    QVERIFY(result.output.endsWith(" end  \"!!end\"  (section, 100)  x.json\n"));
    rusage used{}; // by the largest of the programs until now
    QCOMPARE(getrusage(RUSAGE_CHILDREN, &used), 0);
    QVERIFY2(used.ru_maxrss < 100000, qPrintable(QString::number(used.ru_maxrss)));
}

void TreeCommandTest::showsOneEntry()
{
    World::writeEntries(text("x.json"),
                        R"({"entries": [{"path": "x/y", "title": "Y", "params": {"a": [1, 2.5]}}]})");
    const Tool::Result found = Tool::run({text("show"), text("/x//y/")});
    QCOMPARE(found.exitCode, 0);
    QVERIFY(found.output.contains("title:        Y\n"));
    QVERIFY(found.output.contains("file:         x.json\n"));
    QVERIFY(found.output.contains("  params: {\"a\":[1,2.5]}\n"));

    const Tool::Result json = Tool::run({text("show"), text("--format"), text("json"), text("x/y")});
    QCOMPARE(json.json(), entriesOf(Tool::run({text("tree"), text("--format"), text("json")})).at(1).toObject());

    const Tool::Result missing = Tool::run({text("show"), text("x/z")});
    QCOMPARE(missing.exitCode, 1);
    QCOMPARE(missing.output, QByteArray());
    QCOMPARE(missing.errors, QByteArray("There is nothing at x/z. For the reason, run: velka-settings why x/z\n"));
}

void TreeCommandTest::missingDirectory()
{
    const QTemporaryDir directory;
    const Tool::Result result = Tool::run({text("tree"), text("--root"), directory.filePath(text("nowhere"))});
    QCOMPARE(result.exitCode, 2);
    QVERIFY(result.errors.startsWith("velka-settings: there is no file or directory "));
}

void TreeCommandTest::equalsTheModels()
{
    QLocale::setDefault(QLocale(text("fi_FI")));
    Catalogs::install("sample_eng_en", "sample_eng_en");
    Catalogs::install("sample-fi", "sample-fi");
    World::setMasked({text("page/masked"), text("page/kept")});
    World::writeEntries(text("a.json"), R"({"translation_catalog": "sample", "entries": [
        {"path": "page", "title": "Page", "order": 3, "params": {"list": [1, 2.5, null, {"x": true}]}},
        {"path": "page/zebra", "order": 1.6, "type": "bool", "icon": "i", "controlIcon": "c"},
        {"path": "page/both", "translation_id": "test-both", "translation_id_short": "test-engineering"},
        {"path": "page/Upper"}, {"path": "page/lower", "order": null}, {"path": "page/text", "order": "7"},
        {"path": "page/masked"}, {"path": "page/kept", "title": "Kept"}, {"path": "page/kept/child", "order": -5},
        {"path": "deep/er/node", "type": 3, "title": "\u0000\u001b[1m\ud83d\ude00"}, {"title": "nowhere"}]})");
    World::writeEntries(text("b.json"), R"({"entries": [{"path": "/page//zebra/", "title": "Replaced", "order": 2},
        {"path": "/"}, {"path": "first", "order": 1}]})");
    World::writeEntries(text("c.json"), R"({"disabled_group": "root", "entries": [{"path": "page/excluded"}]})");
    World::writeEntries(text("fake.json"), R"({"entries": [{"path": "page/fake"}]})");
    World::writeEntries(text("broken.json"), R"({"entries": [{"path": "page/broken"},]})");

    const QStringList command{text("tree"), text("--format"), text("json"), text("--locale"), text("fi_FI")};
    QTRY_VERIFY(!Tool::run(command).output.contains("page/masked")); // the key reaches its database later
    QTest::ignoreMessage(QtWarningMsg, R"(Mandatory field "path" missing in entry on file "a.json")");
    QTest::ignoreMessage(QtWarningMsg, R"(Can't parse JSON file or file is empty: "broken.json")");
    const QJsonArray shown = readThroughModels({});
    QCOMPARE(shown.size(), 12);
    const QJsonArray printed = entriesOf(Tool::run(command));
    QCOMPARE(printed.size(), shown.size());
    for (int i = 0; i < shown.size(); ++i) {
        QCOMPARE(printed.at(i).toObject(), shown.at(i).toObject());
    }
}

QTEST_GUILESS_MAIN(TreeCommandTest)
#include "tst_treecommand.moc"
