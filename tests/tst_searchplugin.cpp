// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <QFile>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QTest>

#include <memory>

class SearchPluginTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void onlyItsOwnImportLoadsIt();
    void otherVersionsAreRefused();
    void propertiesHaveDefaults();

private:
    std::unique_ptr<QObject> create(const QByteArray &document);

    QString m_error; ///< the first one of the last document
};

namespace
{
bool isLoaded()
{
    QFile maps(QStringLiteral("/proc/self/maps"));
    return maps.open(QIODevice::ReadOnly) && maps.readAll().contains("libvelkasettingssearch.so");
}
}

std::unique_ptr<QObject> SearchPluginTest::create(const QByteArray &document)
{
    QQmlEngine engine;
    engine.addImportPath(QStringLiteral(VELKA_QML_DIR));
    QQmlComponent component(&engine);
    component.setData(document, QUrl());
    std::unique_ptr<QObject> object(component.isReady() ? component.create() : nullptr);
    m_error = component.errors().isEmpty() ? QString() : component.errors().constFirst().description();
    return object;
}

void SearchPluginTest::onlyItsOwnImportLoadsIt()
{
    QVERIFY(create("import com.velka.settings 1.0\nSettingsModel {}"));
    QVERIFY(!isLoaded());
    QVERIFY(create("import com.velka.settings.search 1.0\nSearchModel {}"));
    QVERIFY(isLoaded());
}

void SearchPluginTest::otherVersionsAreRefused()
{
    QVERIFY(!create("import com.velka.settings.search 1.1\nSearchModel {}"));
    QCOMPARE(m_error, QStringLiteral("module \"com.velka.settings.search\" version 1.1 is not installed"));
}

void SearchPluginTest::propertiesHaveDefaults()
{
    const std::unique_ptr<QObject> model = create("import com.velka.settings.search 1.0\nSearchModel {}");
    QCOMPARE(model->property("text"), QVariant(QString()));
    QCOMPARE(model->property("path"), QVariant(QStringList()));
    QCOMPARE(model->property("types"), QVariant(QStringList()));
    QCOMPARE(model->property("strict"), QVariant(false));
    QCOMPARE(model->property("limit"), QVariant(50));
    QCOMPARE(model->property("count"), QVariant(0));
    QCOMPARE(model->property("busy"), QVariant(false));
}

QTEST_GUILESS_MAIN(SearchPluginTest)
#include "tst_searchplugin.moc"
