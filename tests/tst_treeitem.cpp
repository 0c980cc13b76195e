// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/treeitem.h"

#include "entrydata.h"
#include "registry/fileindex.h"
#include "registry/jsonvariant.h"
#include "registry/treeitem_p.h"
#include "text.h"
#include "world.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QLoggingCategory>
#include <QRegularExpression>
#include <QTest>
#include <QTranslator>

#include <memory>

namespace
{
/// Translates every id in the table; other ids stay untranslated.
class TableTranslator : public QTranslator
{
public:
    explicit TableTranslator(const QHash<QByteArray, QString> &texts)
        : m_texts(texts)
    {
        QCoreApplication::installTranslator(this);
    }

    QString translate(const char *context, const char *sourceText, const char *disambiguation,
                      int n) const override
    {
        Q_UNUSED(context)
        Q_UNUSED(disambiguation)
        return n == -1 ? m_texts.value(sourceText) : QString();
    }

    bool isEmpty() const override
    {
        return false;
    }

private:
    const QHash<QByteArray, QString> m_texts;
};
}

class TreeItemTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void title_data();
    void title();
    void readsTextsAtEachCall();
    void type_data();
    void type();
    void icons();
    void order_data();
    void order();
    void countsDownToDepth();
    void location();
    void depth();
    void lookup();
    void lookupLogsOnlyWhenAsked();
    void insertFillsIntermediateNode();
    void insertReplacesData();
    void insertAtEmptyPath();
    void values();
    void keepsEveryValue_data();
    void keepsEveryValue();
    void addChildOfSameNameReplaces();
    void parentOfReplacedChildIsIndexedOnce();
    void dumpsTree();
    void dumpsNothingByDefault();
};

void TreeItemTest::title_data()
{
    QTest::addColumn<QVariantMap>("data");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("shortTitle");

    const QString id = text("translation_id");
    const QString plain = text("title");
    QTest::newRow("nothing") << QVariantMap{} << text("!!display") << QString();
    QTest::newRow("empty title") << QVariantMap{{plain, QString()}} << text("!!display") << QString();
    QTest::newRow("plain") << QVariantMap{{plain, text("Display")}} << text("Display") << QString();
    QTest::newRow("id") << QVariantMap{{id, text("known")}, {plain, text("Display")}} << text("Known text")
                        << QString();
    QTest::newRow("unknown id") << QVariantMap{{id, text("unknown")}, {plain, text("Display")}} << text("Display")
                                << QString();
    QTest::newRow("empty id") << QVariantMap{{id, QString()}, {plain, text("Display")}} << text("Display")
                              << QString();
    QTest::newRow("unknown id alone") << QVariantMap{{id, text("unknown")}} << text("!!display") << QString();
    QTest::newRow("empty translation") << QVariantMap{{id, text("blank")}, {plain, text("Display")}}
                                       << text("!!display") << QString();
    QTest::newRow("short empty translation")
        << QVariantMap{{text("translation_id_short"), text("blank")}, {text("title_short"), text("Disp")}}
        << text("!!display") << QString();
    QTest::newRow("short plain") << QVariantMap{{text("title_short"), text("Disp")}} << text("!!display")
                                 << text("Disp");
    QTest::newRow("short id") << QVariantMap{{text("translation_id_short"), text("known")}} << text("!!display")
                              << text("Known text");
    QTest::newRow("short unknown id") << QVariantMap{{text("translation_id_short"), text("unknown")},
                                                     {text("title_short"), text("Disp")}}
                                      << text("!!display") << text("Disp");
    QTest::newRow("no string") << QVariantMap{{plain, QVariantList{1}}, {id, QVariantMap{}}} << text("!!display")
                               << QString();
}

void TreeItemTest::title()
{
    QFETCH(QVariantMap, data);
    const TableTranslator translator({{"known", text("Known text")}, {"blank", text("")}});
    const TreeItem item(text("display"), data);
    QTEST(item.title(), "title");
    QTEST(item.shortTitle(), "shortTitle");
}

void TreeItemTest::readsTextsAtEachCall()
{
    const TreeItem item(text("display"), {{text("translation_id"), text("id")}, {text("title"), text("Plain")}});
    QCOMPARE(item.title(), text("Plain"));
    {
        const TableTranslator translator({{"id", text("Translated")}});
        QCOMPARE(item.title(), text("Translated"));
    }
    QCOMPARE(item.title(), text("Plain"));
}

void TreeItemTest::type_data()
{
    QTest::addColumn<QVariantMap>("data");
    QTest::addColumn<QString>("type");
    QTest::newRow("absent") << QVariantMap{} << text("section");
    QTest::newRow("null") << QVariantMap{{text("type"), QVariant::fromValue(nullptr)}} << text("section");
    QTest::newRow("given") << QVariantMap{{text("type"), text("action")}} << text("action");
    QTest::newRow("empty") << QVariantMap{{text("type"), text("")}} << text("");
}

void TreeItemTest::type()
{
    QFETCH(QVariantMap, data);
    QTEST(TreeItem(text("x"), data).type(), "type");
}

void TreeItemTest::icons()
{
    const TreeItem with(text("x"), {{text("icon"), text("i")}, {text("controlIcon"), text("c")}});
    QCOMPARE(with.icon(), text("i"));
    QCOMPARE(with.controlIcon(), text("c"));
    const TreeItem without(text("x"), {});
    QCOMPARE(without.icon(), QString());
    QCOMPARE(without.controlIcon(), QString());
}

void TreeItemTest::order_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<int>("order");
    QTest::newRow("missing") << QVariant() << 100;
    QTest::newRow("null") << QVariant::fromValue(nullptr) << 100;
    QTest::newRow("number") << QVariant(7.0) << 7;
    QTest::newRow("negative") << QVariant(-7.0) << -7;
    QTest::newRow("numeric text") << QVariant(text("12")) << 12;
    QTest::newRow("other text") << QVariant(text("first")) << 0;
    QTest::newRow("boolean") << QVariant(true) << 1;
}

void TreeItemTest::order()
{
    QFETCH(QVariant, value);
    QVariantMap data;
    if (value.isValid()) {
        data.insert(text("order"), value);
    }
    QTEST(TreeItem(text("x"), data).order(), "order");
}

void TreeItemTest::countsDownToDepth()
{
    TreeItem root({}, {});
    root.insertItem(path("a/b/c"), {});
    root.insertItem(path("a/d"), {});
    root.insertItem(path("e"), {});
    QCOMPARE(root.count(0), 0);
    QCOMPARE(root.count(1), 2);
    QCOMPARE(root.count(), root.count(1));
    QCOMPARE(root.count(2), 4);
    QCOMPARE(root.count(3), 5);
    QCOMPARE(root.count(99), 5);
    QCOMPARE(root.count(-1), 5);
    QCOMPARE(root.lookup(path("e"))->count(-1), 0);
}

void TreeItemTest::location()
{
    TreeItem root({}, {});
    TreeItem *c = root.insertItem(path("a/b/c"), {});
    TreeItem *a = root.lookup(path("a"));
    TreeItem *other = root.insertItem(path("other"), {});
    QCOMPARE(root.location(), QStringList());
    QCOMPARE(a->location(), path("a"));
    QCOMPARE(c->location(), path("a/b/c"));
    QCOMPARE(c->location(a), path("b/c"));
    QCOMPARE(c->location(&root), path("a/b/c"));
    QCOMPARE(c->location(c), QStringList());
    QCOMPARE(c->location(other), path("a/b/c"));
}

void TreeItemTest::depth()
{
    TreeItem root({}, {});
    TreeItem *c = root.insertItem(path("a/b/c"), {});
    QCOMPARE(c->depth(c), 0);
    QCOMPARE(c->depth(c->parentItem()), 1);
    QCOMPARE(c->depth(&root), 3);
    // The root counts as a step, too, if nothing stops before it.
    QCOMPARE(root.lookup(path("a"))->depth(nullptr), 2);
    QCOMPARE(root.depth(nullptr), 1);
    QCOMPARE(c->depth(root.insertItem(path("other"), {})), 4);
}

void TreeItemTest::lookup()
{
    TreeItem root({}, {});
    TreeItem *c = root.insertItem(path("a/b/c"), {});
    root.insertItem(path("c"), {});
    QCOMPARE(root.lookup({}), &root);
    QCOMPARE(root.lookup(path("a/b/c")), c);
    QCOMPARE(root.lookup(path("a/missing/c")), nullptr);
    QCOMPARE(root.lookup(path("missing")), nullptr);
    QCOMPARE(root.lookup(path("A/b/c")), nullptr);
    QCOMPARE(root.lookup({text("a"), QString()}), nullptr);
}

void TreeItemTest::lookupLogsOnlyWhenAsked()
{
    TreeItem root({}, {});
    root.insertItem(path("a/b"), {});
    // One message for each level, with the rest of the path
    QTest::ignoreMessage(QtInfoMsg, "lookup item path: (\"a\", \"x\") child keys: (\"a\")");
    QTest::ignoreMessage(QtInfoMsg, "lookup item path: (\"x\") child keys: (\"b\")");
    QLoggingCategory::setFilterRules(text("org.orvantaos.settings.framework.info=true"));
    QCOMPARE(root.lookup(path("a/x")), nullptr);
    QCOMPARE(root.lookup({}), &root);
    QLoggingCategory::setFilterRules({});
    // Nothing is expected now, and a message would be a warning of the test.
    QCOMPARE(root.lookup(path("a/x")), nullptr);
}

void TreeItemTest::insertFillsIntermediateNode()
{
    TreeItem root({}, {});
    TreeItem *c = root.insertItem(path("a/b/c"), entry("one.json"));
    TreeItem *b = root.lookup(path("a/b"));
    QVERIFY(b->data().isEmpty());
    QVERIFY(!b->isDeclared());
    QCOMPARE(b->title(), text("!!b"));
    QCOMPARE(root.insertItem(path("a/b"), entry("two.json")), b);
    QCOMPARE(b->fromFile(), text("two.json"));
    QCOMPARE(root.lookup(path("a/b/c")), c);
}

void TreeItemTest::insertReplacesData()
{
    TreeItem root({}, {});
    TreeItem *a = root.insertItem(path("a"),
                                  entry("one.json", {{text("title"), text("One")}, {text("order"), 3.0}}));
    root.insertItem(path("a"), entry("two.json", {{text("icon"), text("i")}}));
    QCOMPARE(a->data(), entry("two.json", {{text("icon"), text("i")}}));
    QCOMPARE(a->order(), 100);
    QCOMPARE(root.count(), 1);
}

void TreeItemTest::insertAtEmptyPath()
{
    TreeItem root({}, {});
    QCOMPARE(root.insertItem({}, entry("one.json")), &root);
    QCOMPARE(root.fromFile(), text("one.json"));
    QCOMPARE(root.count(-1), 0);
}

void TreeItemTest::values()
{
    TreeItem root({}, {});
    const QJsonObject object{{text("n"), 7}, {text("from_file"), text("other.json")}};
    const NodeData::Entries entries(new FileEntries({object}));
    TreeItem *a = TreeItemPrivate::of(&root)->insert(path("a"), NodeData(entries, 0, text("one.json")));
    QCOMPARE(a->data(), entry("one.json", {{text("n"), 7.0}}));
    QCOMPARE(a->value(text("n")).userType(), int(QMetaType::Double));
    QCOMPARE(a->value(text("from_file")), QVariant(text("one.json")));
    QVERIFY(!a->value(text("missing")).isValid());
    a->clearData();
    QVERIFY(a->data().isEmpty());
    QVERIFY(!a->isDeclared());
}

void TreeItemTest::keepsEveryValue_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::newRow("nothing") << QByteArray("{}");
    QTest::newRow("simple values") << QByteArray(
        R"({"a": null, "b": true, "c": false, "d": "", "e": [], "f": {}})");
    QTest::newRow("numbers") << QByteArray(
        R"({"a": 0, "b": -1, "c": 2.5, "d": 1e300, "e": 5e-324, "f": 9007199254740993, "g": -9223372036854775808,
            "h": 18446744073709551616, "i": -0.0})");
    QTest::newRow("keys that begin alike") << QByteArray(R"({"": 1, "t": 2, "ti": 3, "title": 4, "titles": 5})");
    QTest::newRow("longer than any buffer")
        << "{\"" + QByteArray(100, 'k') + "\": \"" + QByteArray(100000, 'v') + "\", \"z\": 1}";
    QTest::newRow("other alphabets") << QByteArray(
        "{\"\xc3\xbc\": \"\xe2\x82\xac\", \"\xf0\x9f\x98\x80\": \"\\u0000\", \"?\": \"?\"}");
    QTest::newRow("half a surrogate pair in a value") << QByteArray(R"({"a": "x\ud800y?", "b": ["\udc00"]})");
    QTest::newRow("half a surrogate pair in a key") << QByteArray(R"({"\ud800": 1, "?": 2})");
    QTest::newRow("deep") << "{\"a\": " + QByteArray(1000, '[') + QByteArray(1000, ']') + ", \"b\": 1}";
}

void TreeItemTest::keepsEveryValue()
{
    QFETCH(QByteArray, json);
    QJsonParseError error{};
    const QJsonObject object = QJsonDocument::fromJson(json, &error).object();
    QCOMPARE(error.error, QJsonParseError::NoError);
    const NodeData::Entries entries(new FileEntries(QJsonArray{1, object}, R"({"entries": [1, )" + json + "]}"));
    TreeItem root{QString(), QVariantMap()};
    const TreeItem *item = TreeItemPrivate::of(&root)->insert({text("x")}, NodeData(entries, 1, text("x.json")));
    QVariantMap expected = jsonToVariantMap(object);
    expected.insert(text("from_file"), text("x.json"));
    QCOMPARE(item->data(), expected);
    entries->forget();
    QCOMPARE(item->data(), expected);
    entries->forget();
    for (auto it = object.constBegin(); it != object.constEnd(); ++it) {
        QCOMPARE(item->value(it.key()), jsonToVariant(it.value()));
    }
    QVERIFY(!item->value(text("missing")).isValid());
}

void TreeItemTest::addChildOfSameNameReplaces()
{
    TreeItem root({}, {});
    auto *first = new TreeItem(text("a"), {});
    auto *second = new TreeItem(text("a"), {});
    root.addChild(first);
    root.addChild(second);
    QCOMPARE(root.lookup(path("a")), second);
    QCOMPARE(second->parentItem(), &root);
    QCOMPARE(root.count(), 1);
    delete first; // its creator still owns it
}

void TreeItemTest::parentOfReplacedChildIsIndexedOnce()
{
    FileIndex index;
    TreeItem root{QString(), QVariantMap()};
    TreeItemPrivate::of(&root)->setIndex(&index);
    TreeItem *parent = root.insertItem(path("a"), entry("one.json"));
    const std::unique_ptr<TreeItem> old(parent->insertItem(path("b"), entry("two.json")));
    parent->addChild(new TreeItem(text("b"), entry("two.json")));
    QCOMPARE(index.removableWith({text("one.json")}), QVector<QPointer<TreeItem>>{parent});
    QCOMPARE(index.removableWith({text("two.json")}), QVector<QPointer<TreeItem>>{parent->lookup(path("b"))});
    QCOMPARE(parent->count(), 1);
    QVERIFY(!old->parentItem());
}

void TreeItemTest::dumpsTree()
{
    TreeItem root({}, {});
    root.insertItem(path("a/b"), {{text("title"), text("B")}});
    QLoggingCategory::setFilterRules(text("org.orvantaos.settings.framework.info=true"));
    QTest::ignoreMessage(QtInfoMsg, QRegularExpression(text("^0 key: \"a\" data: ")));
    QTest::ignoreMessage(QtInfoMsg, QRegularExpression(text("^1 key: \"b\" data: .*\"title\"")));
    root.dumpTree(0);
    QLoggingCategory::setFilterRules({});
}

void TreeItemTest::dumpsNothingByDefault()
{
    static int messages;
    messages = 0;
    const auto previous = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext &, const QString &) { ++messages; });
    TreeItem root({}, {});
    root.insertItem(path("a/b"), {});
    root.dumpTree(0);
    root.lookup(path("a/b"));
    qInstallMessageHandler(previous);
    QCOMPARE(messages, 0);
}

// The index must have the same results as a walk over the whole tree, after any change through any node.

QTEST_GUILESS_MAIN(TreeItemTest)
#include "tst_treeitem.moc"
