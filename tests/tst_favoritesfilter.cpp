// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "models/favoritesfilter.h"

#include "registry/treeitem_p.h"
#include "text.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

class FavoritesFilterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void kinds();
    void admits_data();
    void admits();
    void combines();
};

namespace
{
const char *const s_kinds[] = {"grid_favorites", "list_favorites", "grid_favorites_simple", "grid_favorites_page",
                               "action"};

bool isAdmitted(const QStringList &kinds, const QByteArray &entry)
{
    const FavoritesFilter filter(kinds, {text("black"), text("b/lack")});
    TreeItem root{QString(), {}};
    const QJsonObject json = QJsonDocument::fromJson(entry).object();
    return filter.admits(TreeItemPrivate::of(&root)->insert(
        {text("x")}, NodeData(NodeData::Entries(new FileEntries({json})), 0, text("x.json"))));
}
}

void FavoritesFilterTest::kinds()
{
    for (const char *kind : s_kinds) {
        QVERIFY(FavoritesFilter::isKind(text(kind)));
    }
    for (const char *name : {"", "grid", "Action", "action ", "grid_favorites_", "list_favorites_page"}) {
        QVERIFY(!FavoritesFilter::isKind(text(name)));
    }
}

void FavoritesFilterTest::admits_data()
{
    QTest::addColumn<QByteArray>("entry");
    QTest::addColumn<QStringList>("expected"); // the kinds that admit it
    const auto row = [](const char *entry, const char *expected) {
        QTest::newRow(entry) << QByteArray(entry) << text(expected).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    };
    row(R"({})", "grid_favorites");
    row(R"({"type": null})", "grid_favorites");
    row(R"({"type": "section"})", "grid_favorites");
    row(R"({"type": "bool"})", "grid_favorites");
    row(R"({"type": "Bool"})", "");
    row(R"({"type": ""})", "");
    row(R"({"type": "string"})", "");
    row(R"({"type": "integer"})", "list_favorites");
    row(R"({"type": "enum"})", "list_favorites");

    row(R"({"type": "page"})", "grid_favorites grid_favorites_page");
    row(R"({"type": "page", "params": []})", "grid_favorites grid_favorites_page");
    row(R"({"type": "page", "params": {"allow_favorite": true}})", "grid_favorites grid_favorites_page");
    row(R"({"type": "page", "params": {"allow_favorite": false}})", "grid_favorites");
    row(R"({"type": "page", "params": {"allow_favorite": null}})", "grid_favorites");
    row(R"({"type": "page", "params": {"allow_favorite": "false"}})", "grid_favorites");
    row(R"({"type": "page", "params": {"allow_favorite": 1}})", "grid_favorites grid_favorites_page");
    row(R"({"type": "page", "allow_favorite": false})", "grid_favorites grid_favorites_page");
    row(R"({"type": "page", "path": "black"})", "grid_favorites");
    row(R"({"type": "page", "path": "b/lack"})", "grid_favorites");
    row(R"({"type": "page", "path": "/b/lack"})", "grid_favorites grid_favorites_page");
    row(R"({"type": "page", "path": "black", "params": {"allow_favorite": true}})", "grid_favorites");
    row(R"({"type": "page", "path": "Black"})", "grid_favorites grid_favorites_page");

    row(R"({"type": "action"})", "action");
    row(R"({"type": "action", "path": "black"})", "");
    row(R"({"type": "action", "path": "white"})", "action");
    row(R"({"type": "action", "params": {"allow_favorite": false}})", "action");

    row(R"({"type": "custom"})", "");
    row(R"({"type": "custom", "params": {"type": "list"}})", "list_favorites");
    row(R"({"type": "custom", "params": {"type": "List"}})", "");
    row(R"({"type": "custom", "params": {"type": "grid"}})", "grid_favorites grid_favorites_simple");
    row(R"({"type": "custom", "params": {"type": "grid", "simpleGrid": true}})",
        "grid_favorites grid_favorites_simple");
    row(R"({"type": "custom", "params": {"type": "grid", "simpleGrid": false}})", "grid_favorites");
    row(R"({"type": "custom", "params": {"type": "list", "simpleGrid": true}})", "list_favorites");
    row(R"({"type": "custom", "path": "black", "params": {"type": "grid"}})",
        "grid_favorites grid_favorites_simple");
    row(R"({"type": "my-custom-page", "params": {"type": "list"}})", "list_favorites");
    row(R"({"type": "Custom", "params": {"type": "list"}})", "");
}

void FavoritesFilterTest::admits()
{
    QFETCH(QByteArray, entry);
    QFETCH(QStringList, expected);
    for (const char *kind : s_kinds) {
        QVERIFY2(isAdmitted({text(kind)}, entry) == expected.contains(text(kind)), kind);
    }
    QVERIFY(!isAdmitted({}, entry));
}

void FavoritesFilterTest::combines()
{
    // The first rule decides.
    const char *const blacklistedPage = R"({"type": "page", "path": "black"})";
    QVERIFY(isAdmitted({text("grid_favorites_page"), text("grid_favorites")}, blacklistedPage));
    QVERIFY(!isAdmitted({text("grid_favorites_page"), text("list_favorites"), text("action")}, blacklistedPage));
    const char *const fullGrid = R"({"type": "custom", "params": {"type": "grid", "simpleGrid": false}})";
    QVERIFY(isAdmitted({text("grid_favorites_simple"), text("grid_favorites")}, fullGrid));
    QVERIFY(!isAdmitted({text("grid_favorites_simple"), text("list_favorites")}, fullGrid));
}

QTEST_APPLESS_MAIN(FavoritesFilterTest)
#include "tst_favoritesfilter.moc"
