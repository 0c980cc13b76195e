// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/registrationfile.h"

#include "common/messages.h"
#include "messagelog.h"
#include "registry/jsonvariant.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

class RegistrationFileTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsKeys();
    void wrongTypesAreEmpty();
    void refuses_data();
    void refuses();
    void acceptsDeepNesting();
    void convertsValues();
    void numbersAreDoubles();
};

namespace
{
const QString s_file = QStringLiteral("x.json");

QVariantMap convert(const QByteArray &json)
{
    return jsonToVariantMap(QJsonDocument::fromJson(json).object());
}
}

void RegistrationFileTest::readsKeys()
{
    const auto file = parseRegistrationFile(
        R"({"required_group": "r", "disabled_group": "d", "translation_catalog": "t",
        "complementary_translation_catalog": "c", "entries": [{"path": "a"}], "unknown": 1})",
        s_file);
    QVERIFY(file);
    QCOMPARE(file->requiredGroup, QStringLiteral("r"));
    QCOMPARE(file->disabledGroup, QStringLiteral("d"));
    QCOMPARE(file->translationCatalog, QStringLiteral("t"));
    QCOMPARE(file->complementaryTranslationCatalog, QStringLiteral("c"));
    QCOMPARE(file->entries.size(), 1);
}

void RegistrationFileTest::wrongTypesAreEmpty()
{
    const MessageLog log;
    const auto file = parseRegistrationFile(
        R"({"required_group": 3, "disabled_group": ["d"], "translation_catalog": {},
        "complementary_translation_catalog": null, "entries": {"path": "a"}})",
        s_file);
    QVERIFY(file);
    QVERIFY(file->requiredGroup.isEmpty());
    QVERIFY(file->disabledGroup.isEmpty());
    QVERIFY(file->translationCatalog.isEmpty());
    QVERIFY(file->complementaryTranslationCatalog.isEmpty());
    QVERIFY(file->entries.isEmpty());
    QCOMPARE(log.take(), QStringList());
}

void RegistrationFileTest::refuses_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("message");
    const QString notJson = settingsWarning(Messages::CannotParseJson, s_file);
    QTest::newRow("empty file") << QByteArray() << notJson;
    QTest::newRow("syntax error") << QByteArray("{\"entries\": [}") << notJson;
    QTest::newRow("invalid UTF-8") << QByteArray("{\"entries\": \"\xff\"}") << notJson;
    QTest::newRow("nested too deep") << QByteArray("{\"a\":") + QByteArray(5000, '[') + QByteArray(5000, ']') + "}"
                                     << notJson;
    QTest::newRow("array") << QByteArray("[{\"path\": \"a\"}]")
                           << settingsWarning(Messages::WrongRegistrationFormat, s_file);
}

void RegistrationFileTest::refuses()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, message);
    const MessageLog log;
    QVERIFY(!parseRegistrationFile(json, s_file));
    QCOMPARE(log.take(), QStringList{message});
}

void RegistrationFileTest::acceptsDeepNesting()
{
    const int depth = 1000;
    QByteArray json;
    for (int i = 0; i < depth; ++i) {
        json += "{\"k\":";
    }
    json += "1" + QByteArray(depth, '}');
    QVariant value = convert(json);
    for (int i = 0; i < depth; ++i) {
        value = value.toMap().value(QStringLiteral("k"));
    }
    QCOMPARE(value, QVariant(1.0));
}

void RegistrationFileTest::convertsValues()
{
    const QVariantMap map = convert(
        R"({"s": "text", "b": true, "n": null, "a": ["x", 2.5, {"y": [1]}], "o": {"p": {}}})");
    const QVariantMap expected{
        {QStringLiteral("s"), QStringLiteral("text")},
        {QStringLiteral("b"), true},
        {QStringLiteral("n"), QVariant::fromValue(nullptr)},
        {QStringLiteral("a"),
         QVariantList{QStringLiteral("x"), 2.5, QVariantMap{{QStringLiteral("y"), QVariantList{1.0}}}}},
        {QStringLiteral("o"), QVariantMap{{QStringLiteral("p"), QVariantMap()}}},
    };
    QCOMPARE(map, expected);
}

void RegistrationFileTest::numbersAreDoubles()
{
    const QVariantMap map = convert(R"({"whole": 7, "large": 9007199254740993, "nested": [{"n": 1}]})");
    QCOMPARE(map.value(QStringLiteral("whole")).userType(), int(QMetaType::Double));
    QCOMPARE(map.value(QStringLiteral("large")).userType(), int(QMetaType::Double));
    const QVariantMap nested = map.value(QStringLiteral("nested")).toList().constFirst().toMap();
    QCOMPARE(nested.value(QStringLiteral("n")).userType(), int(QMetaType::Double));
}

QTEST_GUILESS_MAIN(RegistrationFileTest)
#include "tst_registrationfile.moc"
