// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "catalogs.h"
#include "filetrace.h"
#include "messagelog.h"
#include "text.h"

#include <QCoreApplication>
#include <QFile>
#include <QJsonObject>
#include <QLocale>
#include <QPluginLoader>
#include <QPointer>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQmlExtensionPlugin>
#include <QTest>
#include <QTranslator>

#include <memory>

namespace
{
const QLocale s_finnish(QLocale::Finnish, QLocale::Finland);
const QLocale s_austrian(QLocale::German, QLocale::Austria);
const QString s_directory = QStringLiteral("/usr/share/velka-settings");
const QString s_import = QStringLiteral("import com.velka.settings 1.0\nimport QtQml 2.15\n");
const QString s_withoutModel = s_import + QStringLiteral("QtObject {}");
const QString s_withModel = s_import + QStringLiteral("SettingsModel {}");

QString pluginFile()
{
    return QStringLiteral(VELKA_QML_DIR "/com/velka/settings/libvelkasettings.so");
}

void writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        qFatal("Can't write %s", qPrintable(path));
    }
}

std::unique_ptr<QQmlEngine> makeEngine()
{
    auto engine = std::make_unique<QQmlEngine>();
    engine->addImportPath(QStringLiteral(VELKA_QML_DIR));
    return engine;
}

struct Creation {
    std::unique_ptr<QObject> object;
    QStringList errors;
};

/// Creates the object of the QML @p document.
Creation create(QQmlEngine &engine, const QString &document)
{
    QQmlComponent component(&engine);
    component.setData(document.toUtf8(), QUrl());
    Creation creation;
    if (component.isReady()) {
        creation.object.reset(component.create());
    }
    const QList<QQmlError> errors = component.errors();
    for (const QQmlError &error : errors) {
        creation.errors.append(error.description());
    }
    return creation;
}

std::unique_ptr<QQmlEngine> makeEngineWithModule()
{
    auto engine = makeEngine();
    const Creation creation = create(*engine, s_withoutModel);
    if (!creation.object) {
        qFatal("Can't import the module: %s", qPrintable(creation.errors.join(QLatin1Char('\n'))));
    }
    return engine;
}

/// Returns the description, for QML tools, of the type that the module exports as @p name.
QStringList toolComponents(const QString &name)
{
    QFile file(QStringLiteral(VELKA_QML_DIR "/com/velka/settings/plugins.qmltypes"));
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("Can't read %s", qPrintable(file.fileName()));
    }
    const QString description = QString::fromUtf8(file.readAll());
    return description.split(QStringLiteral("\n    Component {"))
        .filter(QStringLiteral("\"com.velka.settings/%1 1.0\"").arg(name));
}

QObject *applicationsModel(QQmlEngine &engine)
{
    const Creation creation = create(engine, s_import
                                                 + QStringLiteral("QtObject { property QtObject model: "
                                                                  "ApplicationsModel }"));
    return creation.object ? creation.object->property("model").value<QObject *>() : nullptr;
}

int translatorCount(const QQmlEngine &engine)
{
    return engine.findChildren<QTranslator *>().size();
}
}

class PluginTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void metadata();

    void namesAreAvailable_data();
    void namesAreAvailable();
    void otherVersionsAreRefused_data();
    void otherVersionsAreRefused();
    void typesGoToTheUriOfTheEngine();
    void errorsCannotBeCreated();
    void toolsKnowWhatCanBeCreated_data();
    void toolsKnowWhatCanBeCreated();
    void enumValues_data();
    void enumValues();

    void eachEngineHasItsApplicationsModel();
    void eachEngineHasItsTranslators();
    void twoImportsMakeOnePair();
    void engineCreatedAgain();
    void translatorsHaveTheirOwnMetaObject();
    void deletedTranslatorLeavesTheApplication();
    void catalogsTakePrecedence_data();
    void catalogsTakePrecedence();
    void damagedCatalogs();
    void localeOfTheImportCounts();
    void regionPrecedesLanguage();

    void filesAreReadWithTheFirstModel();
    void catalogsAreLookedUpWithTheEngine();
};

void PluginTest::initTestCase()
{
    QVERIFY2(qEnvironmentVariableIsSet("VELKA_SANDBOX"), "Run this test through scripts/sandbox");
    writeFile(s_directory + QStringLiteral("/favorites-blacklist.json"), "[]");
    writeFile(s_directory + QStringLiteral("/entries/sound.json"),
              "{\"entries\": [{\"path\": \"sound\"}, {\"path\": \"applications\"}]}");
}

void PluginTest::init()
{
    Catalogs::removeAll();
    QLocale::setDefault(s_finnish);
}

void PluginTest::metadata()
{
    const QJsonObject metadata = QPluginLoader(pluginFile()).metaData();
    QCOMPARE(metadata.value(QLatin1String("IID")).toString(), QStringLiteral("com.velka.settings"));
    QCOMPARE(metadata.value(QLatin1String("className")).toString(), QStringLiteral("VelkaSettingsPlugin"));
    QVERIFY(metadata.value(QLatin1String("MetaData")).toObject().isEmpty());
    QCOMPARE(metadata.value(QLatin1String("debug")), QJsonValue(false));
}

void PluginTest::namesAreAvailable_data()
{
    QTest::addColumn<QString>("document");
    for (const char *model :
         {"SettingsModel", "FavoritesModel", "ApplicationSettingsModel", "UserApplicationsFilterModel"}) {
        QTest::newRow(model) << s_import + text(model) + text(" {}");
    }
    QTest::newRow("ApplicationsModel") << s_import
                                              + text("QtObject { property int count: ApplicationsModel.count }");
    QTest::newRow("SettingsControlError")
        << s_import + text("QtObject { property int error: SettingsControlError.InProgress }");
    QTest::newRow("qualified") << QStringLiteral(
        "import com.velka.settings 1.0 as Settings\nSettings.SettingsModel {\n"
        "depth: Settings.SettingsControlError.InProgress }");
}

void PluginTest::namesAreAvailable()
{
    QFETCH(QString, document);
    const auto engine = makeEngine();
    const Creation creation = create(*engine, document);
    QCOMPARE(creation.errors, QStringList());
    QVERIFY(creation.object);
}

void PluginTest::otherVersionsAreRefused_data()
{
    QTest::addColumn<QString>("version");
    QTest::newRow("0.9") << QStringLiteral("0.9");
    QTest::newRow("1.1") << QStringLiteral("1.1");
    QTest::newRow("2.0") << QStringLiteral("2.0");
}

void PluginTest::otherVersionsAreRefused()
{
    QFETCH(QString, version);
    const auto engine = makeEngine();
    const Creation creation = create(
        *engine, QStringLiteral("import com.velka.settings %1\nSettingsModel {}").arg(version));
    QVERIFY(!creation.object);
    QCOMPARE(creation.errors,
             {QStringLiteral("module \"com.velka.settings\" version %1 is not installed").arg(version)});
}

void PluginTest::typesGoToTheUriOfTheEngine()
{
    QPluginLoader loader(pluginFile());
    auto *plugin = qobject_cast<QQmlExtensionPlugin *>(loader.instance());
    QVERIFY2(plugin, qPrintable(loader.errorString()));
    plugin->registerTypes("org.example.renamed");
    QQmlEngine engine;
    const Creation creation = create(engine, QStringLiteral("import org.example.renamed 1.0\nSettingsModel {\n"
                                                            "depth: SettingsControlError.NotConnected }"));
    QCOMPARE(creation.errors, QStringList());
    QCOMPARE(creation.object->property("depth").toInt(), 4);
}

void PluginTest::errorsCannotBeCreated()
{
    const auto engine = makeEngine();
    const Creation creation = create(*engine, s_import + QStringLiteral("SettingsControlError {}"));
    QVERIFY(!creation.object);
    // The engine's message without a reason
    QCOMPARE(creation.errors, {QStringLiteral("Element is not creatable.")});
}

void PluginTest::toolsKnowWhatCanBeCreated_data()
{
    QTest::addColumn<bool>("isCreatable");
    QTest::addColumn<bool>("isSingleton");
    QTest::newRow("SettingsModel") << true << false;
    QTest::newRow("FavoritesModel") << true << false;
    QTest::newRow("ApplicationSettingsModel") << true << false;
    QTest::newRow("UserApplicationsFilterModel") << true << false;
    QTest::newRow("ApplicationsModel") << false << true;
    QTest::newRow("SettingsControlError") << false << false;
}

void PluginTest::toolsKnowWhatCanBeCreated()
{
    QFETCH(bool, isCreatable);
    QFETCH(bool, isSingleton);
    const QStringList components = toolComponents(QLatin1String(QTest::currentDataTag()));
    QCOMPARE(components.size(), 1);
    const QString component = components.first();
    QCOMPARE(component.count(QStringLiteral("\"com.velka.settings/")), 1);
    QCOMPARE(!component.contains(QLatin1String("isCreatable: false")), isCreatable);
    QCOMPARE(component.contains(QLatin1String("isSingleton: true")), isSingleton);
}

void PluginTest::enumValues_data()
{
    QTest::addColumn<int>("value");
    QTest::newRow("SettingsControlError.NoError") << 0;
    QTest::newRow("SettingsControlError.InProgress") << 1;
    QTest::newRow("SettingsControlError.BlockedByAccessPolicy") << 2;
    QTest::newRow("SettingsControlError.BlockedByFlightMode") << 3;
    QTest::newRow("SettingsControlError.NotConnected") << 4;
    QTest::newRow("SettingsControlError.ConnectionFailed") << 5;
    QTest::newRow("SettingsControlError.ConnectionSetupRequired") << 6;
    QTest::newRow("SettingsControlError.NoSimAvailable") << 7;
    QTest::newRow("SettingsControlError.NoSimActive") << 8;
    QTest::newRow("SettingsControlError.UnknownError") << 1000;
    for (const char *applications : {"ApplicationSettingsModel", "ApplicationsModel"}) {
        QTest::addRow("%s.AllowedOnly", applications) << 0;
        QTest::addRow("%s.AutostartedOnly", applications) << 1;
        int role = 257;
        for (const char *name :
             {"Section", "IconId", "IconMode", "Name", "FilePath", "Sandboxed", "FileId", "Allowed",
              "AlwaysAllowed", "Autostarted", "ApplicationId", "NotificationsEnabled"}) {
            QTest::addRow("%s.%sRole", applications, name) << role++;
        }
    }
}

void PluginTest::enumValues()
{
    QFETCH(int, value);
    const auto engine = makeEngine();
    const QString expression = QLatin1String(QTest::currentDataTag());
    const Creation creation = create(
        *engine, s_import + QStringLiteral("QtObject { property var value: %1 }").arg(expression));
    QVERIFY(creation.object);
    QCOMPARE(creation.object->property("value"), QVariant(value));
}

void PluginTest::eachEngineHasItsApplicationsModel()
{
    auto first = makeEngine();
    const QPointer<QObject> model = applicationsModel(*first);
    QVERIFY(model);
    QCOMPARE(applicationsModel(*first), model);
    QCOMPARE(model->parent(), first.get());
    QVERIFY(model->property("applications").value<QObject *>()); // it is complete

    const auto second = makeEngine();
    QObject *const other = applicationsModel(*second);
    QVERIFY(other);
    QVERIFY(other != model);
    QCOMPARE(other->parent(), second.get());
    first.reset();
    QVERIFY(!model);
    QCOMPARE(applicationsModel(*second), other);
}

void PluginTest::eachEngineHasItsTranslators()
{
    Catalogs::install("sample_eng_en", "settings_eng_en");
    Catalogs::install("sample-fi", "settings-fi");
    auto first = makeEngine();
    QCOMPARE(translatorCount(*first), 0);
    first = makeEngineWithModule();
    auto second = makeEngineWithModule();
    QCOMPARE(translatorCount(*first), 2);
    QCOMPARE(translatorCount(*second), 2);
    QCOMPARE(qtTrId("test-both"), QStringLiteral("Molemmat"));
    first.reset();
    QCOMPARE(translatorCount(*second), 2);
    QCOMPARE(qtTrId("test-both"), QStringLiteral("Molemmat"));
    second.reset();
    QCOMPARE(qtTrId("test-both"), QStringLiteral("test-both"));
    QCOMPARE(qtTrId("test-engineering"), QStringLiteral("test-engineering"));
}

void PluginTest::twoImportsMakeOnePair()
{
    const auto engine = makeEngineWithModule();
    QVERIFY(create(*engine, s_withoutModel).object);
    QVERIFY(create(*engine, s_withModel).object);
    QCOMPARE(translatorCount(*engine), 2);
}

void PluginTest::engineCreatedAgain()
{
    Catalogs::install("sample-fi", "settings-fi");
    for (int i = 0; i < 3; ++i) {
        const auto engine = makeEngineWithModule();
        QCOMPARE(translatorCount(*engine), 2);
        QCOMPARE(qtTrId("test-locale"), QStringLiteral("Kieli"));
    }
    QCOMPARE(qtTrId("test-locale"), QStringLiteral("test-locale"));
    // The next engine reads the catalogs that exist then.
    Catalogs::removeAll();
    const auto engine = makeEngineWithModule();
    QCOMPARE(qtTrId("test-locale"), QStringLiteral("test-locale"));
}

void PluginTest::translatorsHaveTheirOwnMetaObject()
{
    const auto engine = makeEngineWithModule();
    const QList<QTranslator *> translators = engine->findChildren<QTranslator *>();
    QCOMPARE(translators.size(), 2);
    for (const QTranslator *translator : translators) {
        const QMetaObject *meta = translator->metaObject();
        QCOMPARE(meta->className(), "AppTranslator");
        QCOMPARE(meta->superClass(), &QTranslator::staticMetaObject);
        QCOMPARE(meta->methodCount(), QTranslator::staticMetaObject.methodCount());
        QCOMPARE(meta->propertyCount(), QTranslator::staticMetaObject.propertyCount());
    }
}

void PluginTest::deletedTranslatorLeavesTheApplication()
{
    Catalogs::install("sample-fi", "settings-fi");
    const auto engine = makeEngineWithModule();
    QCOMPARE(qtTrId("test-locale"), QStringLiteral("Kieli"));
    qDeleteAll(engine->findChildren<QTranslator *>());
    QCOMPARE(qtTrId("test-locale"), QStringLiteral("test-locale"));
}

void PluginTest::catalogsTakePrecedence_data()
{
    QTest::addColumn<QStringList>("suffixes");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("both") << QStringList{text("_eng_en"), text("-fi")}
                          << QStringList{text("Molemmat"), text("Kieli"), text("Engineering")};
    QTest::newRow("only the locale") << QStringList{text("-fi")}
                                     << QStringList{text("Molemmat"), text("Kieli"), text("test-engineering")};
    QTest::newRow("not the locale") << QStringList{text("_eng_en"), text("-de")}
                                    << QStringList{text("Both"), text("test-locale"), text("Engineering")};
    QTest::newRow("none") << QStringList()
                          << QStringList{text("test-both"), text("test-locale"), text("test-engineering")};
}

void PluginTest::catalogsTakePrecedence()
{
    QFETCH(QStringList, suffixes);
    for (const QString &suffix : qAsConst(suffixes)) {
        Catalogs::install(qPrintable(QLatin1String("sample") + suffix),
                          qPrintable(QLatin1String("settings") + suffix));
    }
    const auto engine = makeEngineWithModule();
    const QList<QTranslator *> translators = engine->findChildren<QTranslator *>();
    QCOMPARE(translators.size(), 2);
    QCOMPARE(translators.first()->isEmpty(), !suffixes.contains(QLatin1String("_eng_en")));
    QCOMPARE(translators.last()->isEmpty(), !suffixes.contains(QLatin1String("-fi")));
    const QStringList found{qtTrId("test-both"), qtTrId("test-locale"), qtTrId("test-engineering")};
    QTEST(found, "texts");
}

void PluginTest::damagedCatalogs()
{
    writeFile(Catalogs::path("settings"), "damaged");
    writeFile(Catalogs::path("settings-fi"), QByteArray(4096, '\0'));
    const MessageLog log;
    const auto engine = makeEngineWithModule();
    QStringList messages = log.take();
    messages.sort();
    const QString reason = QStringLiteral(" because it is damaged, or no compiled catalog");
    const char warning[] = "Can't use translation catalog";
    QCOMPARE(messages, (QStringList{settingsWarning(warning, Catalogs::path("settings-fi")) + reason,
                                    settingsWarning(warning, Catalogs::path("settings")) + reason}));
    QCOMPARE(translatorCount(*engine), 2);
    QCOMPARE(qtTrId("test-both"), QStringLiteral("test-both"));
}

void PluginTest::localeOfTheImportCounts()
{
    Catalogs::install("sample-fi", "settings-fi");
    Catalogs::install("sample-de", "settings-de");
    const auto finnish = makeEngineWithModule();
    QLocale::setDefault(s_austrian);
    QCOMPARE(qtTrId("test-both"), QStringLiteral("Molemmat"));
    auto german = makeEngineWithModule();
    QCOMPARE(qtTrId("test-both"), QStringLiteral("Beide"));
    german.reset();
    QCOMPARE(qtTrId("test-both"), QStringLiteral("Molemmat"));
}

void PluginTest::regionPrecedesLanguage()
{
    QLocale::setDefault(s_austrian);
    Catalogs::install("sample-fi", "settings-de_AT");
    Catalogs::install("sample-de", "settings-de");
    const auto engine = makeEngineWithModule();
    QCOMPARE(qtTrId("test-both"), QStringLiteral("Molemmat"));
}

void PluginTest::filesAreReadWithTheFirstModel()
{
    QCOMPARE(pathsUsedBy({s_withoutModel}, s_directory), QStringList());
    const QStringList used = pathsUsedBy({s_withModel}, s_directory);
    QVERIFY(used.contains(s_directory + QStringLiteral("/entries/sound.json")));
    QVERIFY(used.contains(s_directory + QStringLiteral("/favorites-blacklist.json")));
}

void PluginTest::catalogsAreLookedUpWithTheEngine()
{
    const QString prefix = QStringLiteral("/usr/share/translations/settings");
    const QStringList used = pathsUsedBy({s_withoutModel}, QStringLiteral("/usr/share/translations/"));
    const int engineeringEnglish = used.indexOf(prefix + QStringLiteral("_eng_en.qm"));
    const int region = used.indexOf(prefix + QStringLiteral("-de_AT.qm"));
    const int language = used.indexOf(prefix + QStringLiteral("-de.qm"));
    QCOMPARE(engineeringEnglish, 0);
    QVERIFY(engineeringEnglish < region);
    QVERIFY(region < language);
    QCOMPARE(used.filter(prefix), used);
}

namespace
{
/// Run by the traced processes: imports the module into an engine and creates the @p document.
int runDocument(const QString &document)
{
    QLocale::setDefault(s_austrian);
    const auto engine = makeEngine();
    return create(*engine, document).object ? EXIT_SUCCESS : EXIT_FAILURE;
}
}

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    const QString argument = app.arguments().value(1);
    if (argument.startsWith(QLatin1String("import "))) {
        return runDocument(argument);
    }
    PluginTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_plugin.moc"
