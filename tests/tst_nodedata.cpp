// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/treeitem.h"

#include "text.h"

#include <QTest>

// Data that C++ code gives to a node is kept as it is. Only data from files has been JSON.
class NodeDataTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keepsWhatIsGiven_data();
    void keepsWhatIsGiven();
    void order_data();
    void order();
    void fromFile_data();
    void fromFile();
};

void NodeDataTest::keepsWhatIsGiven_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::newRow("string list") << QVariant(path("a/b"));
    QTest::newRow("empty string list") << QVariant(QStringList());
    QTest::newRow("integer") << QVariant(7);
    QTest::newRow("large integer") << QVariant(Q_INT64_C(9007199254740993));
    QTest::newRow("unsigned integer") << QVariant(7U);
    QTest::newRow("double") << QVariant(7.0);
    QTest::newRow("boolean") << QVariant(true);
    QTest::newRow("text") << QVariant(text("text"));
    QTest::newRow("empty string") << QVariant(text(""));
    QTest::newRow("null string") << QVariant(QString());
    QTest::newRow("invalid") << QVariant();
    QTest::newRow("bytes") << QVariant(QByteArray("bytes"));
    QTest::newRow("date") << QVariant(QDate(2026, 1, 2));
    QTest::newRow("object") << QVariant::fromValue<QObject *>(this);
    QTest::newRow("list") << QVariant(QVariantList{1, text("a"), QVariant::fromValue<QObject *>(this)});
    QTest::newRow("map") << QVariant(QVariantMap{{text("key"), path("a/b")}});
}

void NodeDataTest::keepsWhatIsGiven()
{
    QFETCH(QVariant, value);
    const QVariantMap data{{text("key"), value}, {text("title"), text("Title")}};
    TreeItem root(text("root"), data);
    const TreeItem *inserted = root.insertItem(path("a/b"), data);
    const TreeItem *replaced = root.insertItem(path("a"), data);
    for (const TreeItem *item : {static_cast<const TreeItem *>(&root), inserted, replaced}) {
        QCOMPARE(item->data(), data);
        QCOMPARE(item->value(text("key")), value);
        QCOMPARE(item->value(text("key")).userType(), value.userType());
        QCOMPARE(item->value(text("key")).toString().isNull(), value.toString().isNull());
        QCOMPARE(item->title(), text("Title"));
    }
}

void NodeDataTest::order_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<int>("expected");
    QTest::newRow("integer") << QVariant(7) << 7;
    QTest::newRow("double") << QVariant(7.4) << 7;
    QTest::newRow("number as text") << QVariant(text("7")) << 7;
    QTest::newRow("text") << QVariant(text("first")) << 0;
    QTest::newRow("null") << QVariant() << 100;
    QTest::newRow("null string") << QVariant(QString()) << 100;
}

void NodeDataTest::order()
{
    QFETCH(QVariant, value);
    QFETCH(int, expected);
    QCOMPARE(TreeItem(text("a"), {{text("order"), value}}).order(), expected);
}

void NodeDataTest::fromFile_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("declared");
    QTest::addColumn<QString>("file");
    QTest::newRow("name") << QVariant(text("a.json")) << true << text("a.json");
    QTest::newRow("empty string") << QVariant(text("")) << true << text("");
    QTest::newRow("number") << QVariant(7) << true << text("7");
    QTest::newRow("list") << QVariant(QVariantList{7}) << true << text("");
    QTest::newRow("null") << QVariant() << false << QString();
    QTest::newRow("null string") << QVariant(QString()) << false << QString();
}

void NodeDataTest::fromFile()
{
    QFETCH(QVariant, value);
    QFETCH(bool, declared);
    QFETCH(QString, file);
    const QVariantMap data{{text("from_file"), value}};
    const TreeItem item(text("a"), data);
    QCOMPARE(item.isDeclared(), declared);
    QCOMPARE(item.fromFile(), file);
    QCOMPARE(item.fromFile().isNull(), !declared);
    QCOMPARE(item.data(), data);
}

QTEST_GUILESS_MAIN(NodeDataTest)

#include "tst_nodedata.moc"
