// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "catalogs.h"
#include "filetrace.h"
#include "messagelog.h"
#include "registry/pluginregistry.h"
#include "registry/treeitem.h"
#include "world.h"

#include <QCoreApplication>
#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QLocale>
#include <QTest>
#include <QTranslator>

#include <grp.h>
#include <sys/stat.h>
#include <unistd.h>

#include <memory>

namespace
{
const QLocale s_finnish(QLocale::Finnish, QLocale::Finland);
const QLocale s_austrian(QLocale::German, QLocale::Austria);
const QString s_file = QStringLiteral("entries.json");
const QString s_untranslated = QStringLiteral("test-both");

int translatorCount(const PluginRegistry &registry)
{
    return registry.findChildren<QTranslator *>().size();
}

/// Returns a registration file with only @p keys.
QByteArray file(const QByteArray &keys)
{
    return "{" + keys + "}";
}

const QByteArray s_sample = file(R"("translation_catalog": "sample")");

/// The warning of a catalog that is there, but not sound.
QString unusable(const QByteArray &name, const char *reason)
{
    return settingsWarning("Can't use translation catalog", Catalogs::path(name)) + QStringLiteral(" because it ")
           + QString::fromLatin1(reason);
}

QByteArray compiled(const QString &name)
{
    QFile file(QStringLiteral(VELKA_TEST_CATALOGS "/") + name + QStringLiteral(".qm"));
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("There is no catalog %s", qPrintable(name));
    }
    return file.readAll();
}

QByteArray ownGroup()
{
    return getgrgid(getegid())->gr_name;
}
}

class TranslationCatalogsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void titles_data();
    void titles();

    void localeOfTheLoadCounts();
    void localeVariants_data();
    void localeVariants();
    void lookups();

    void catalogsPerFile_data();
    void catalogsPerFile();
    void laterCatalogWins();
    void twoFilesWithOneCatalog();
    void twoCallsForOneCatalog();
    void takenNames();
    void excludedFile_data();
    void excludedFile();

    void unloadingKeepsCatalogs();
    void registryRemovesItsCatalogs();
    void otherRegistryKeepsItsCatalogs();
    void missingCatalogIsNotTriedAgain();
    void damagedCatalog_data();
    void damagedCatalog();
    void damagedCatalogIsReportedOnce();
    void catalogThatDependsOnItself();
    void catalogThatShrinks();
    void truncatedCatalog();
    void forbiddenCatalog();
    void noReadableFile_data();
    void noReadableFile();
};

void TranslationCatalogsTest::init()
{
    World::reset();
    QLocale::setDefault(s_finnish);
}

void TranslationCatalogsTest::cleanup()
{
    QCOMPARE(qtTrId("test-both"), s_untranslated);
}

void TranslationCatalogsTest::titles_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("shortTitle");
    const auto row = [](const char *name, const char *id, const char *title, const char *shortTitle) {
        QTest::newRow(name) << QString::fromLatin1(id) << QString::fromLatin1(title)
                            << QString::fromLatin1(shortTitle);
    };
    row("in both", "test-both", "Molemmat", "Molemmat");
    row("locale alone", "test-locale", "Kieli", "Kieli");
    row("engineering English alone", "test-engineering", "Engineering", "Engineering");
    row("in none", "test-none", "Plain", "Pl.");
    row("no id", "", "Plain", "Pl.");
}

void TranslationCatalogsTest::titles()
{
    QFETCH(QString, id);
    Catalogs::install("sample_eng_en", "sample_eng_en");
    Catalogs::install("sample-fi", "sample-fi");
    World::writeEntries(s_file, QStringLiteral(R"({"translation_catalog": "sample", "entries": [
        {"path": "full", "translation_id": "%1", "translation_id_short": "%1",
         "title": "Plain", "title_short": "Pl."},
        {"path": "bare", "translation_id": "%1", "translation_id_short": "%1"}]})")
                                    .arg(id)
                                    .toUtf8());
    const PluginRegistry registry;
    const TreeItem *full = registry.getItem({QStringLiteral("full")});
    QTEST(full->title(), "title");
    QTEST(full->shortTitle(), "shortTitle");

    const TreeItem *bare = registry.getItem({QStringLiteral("bare")});
    QFETCH(QString, title);
    const bool isTranslated = title != QLatin1String("Plain");
    QCOMPARE(bare->title(), isTranslated ? title : QStringLiteral("!!bare"));
    QCOMPARE(bare->shortTitle(), isTranslated ? title : QString());
}

void TranslationCatalogsTest::localeOfTheLoadCounts()
{
    Catalogs::install("sample-fi", "sample-fi");
    Catalogs::install("sample-de", "sample-de");
    Catalogs::install("sample-de", "later-de");
    World::writeEntries(s_file, s_sample);
    PluginRegistry registry;
    QCOMPARE(qtTrId("test-both"), QStringLiteral("Molemmat"));

    QLocale::setDefault(s_austrian);
    QCOMPARE(qtTrId("test-both"), QStringLiteral("Molemmat"));
    registry.addEntriesForFile(s_file);
    QCOMPARE(qtTrId("test-both"), QStringLiteral("Molemmat"));

    registry.loadTranslationCatalog(QStringLiteral("later"));
    QCOMPARE(qtTrId("test-both"), QStringLiteral("Beide"));
}

void TranslationCatalogsTest::localeVariants_data()
{
    QTest::addColumn<QByteArrayList>("names");
    QTest::addColumn<QString>("text");
    const QString installedFirst = QStringLiteral("Molemmat");
    QTest::newRow("region before language") << QByteArrayList{"sample-de_AT", "sample-de"} << installedFirst;
    QTest::newRow("region") << QByteArrayList{"sample-de_AT"} << installedFirst;
    QTest::newRow("language") << QByteArrayList{"sample-de"} << installedFirst;
    QTest::newRow("other region") << QByteArrayList{"sample-de_CH"} << s_untranslated;
    QTest::newRow("other language") << QByteArrayList{"sample-fi"} << s_untranslated;
    QTest::newRow("other separator") << QByteArrayList{"sample_de"} << s_untranslated;
    QTest::newRow("other catalog") << QByteArrayList{"samples-de"} << s_untranslated;
}

void TranslationCatalogsTest::localeVariants()
{
    QFETCH(QByteArrayList, names);
    QLocale::setDefault(s_austrian);
    Catalogs::install("sample-fi", names.first());
    if (names.size() > 1) {
        Catalogs::install("sample-de", names.last());
    }
    World::writeEntries(s_file, s_sample);
    const PluginRegistry registry;
    QTEST(qtTrId("test-both"), "text");
}

void TranslationCatalogsTest::lookups()
{
    World::writeEntries(s_file, file(R"("translation_catalog": "sample")"));
    const QString directory = QStringLiteral("/usr/share/translations/");
    const QStringList used = pathsUsedBy({QStringLiteral("--load")}, directory);
    const int engineeringEnglish = used.indexOf(directory + QStringLiteral("sample_eng_en.qm"));
    const int region = used.indexOf(directory + QStringLiteral("sample-de_AT.qm"));
    const int language = used.indexOf(directory + QStringLiteral("sample-de.qm"));
    QCOMPARE(engineeringEnglish, 0);
    QVERIFY(engineeringEnglish < region);
    QVERIFY(region < language);
    QCOMPARE(used.filter(directory + QStringLiteral("sample")), used);

    World::writeEntries(s_file, file(R"("translation_catalog": "")"));
    QCOMPARE(pathsUsedBy({QStringLiteral("--load")}, directory), QStringList());
}

void TranslationCatalogsTest::catalogsPerFile_data()
{
    QTest::addColumn<QByteArray>("keys");
    QTest::addColumn<int>("count");
    const auto row = [](const char *name, const char *keys, int count) {
        QTest::newRow(name) << QByteArray(keys) << count;
    };
    row("none", R"("entries": [])", 0);
    row("empty names", R"("translation_catalog": "", "complementary_translation_catalog": "")", 0);
    row("catalog", R"("translation_catalog": "sample")", 2);
    row("complementary catalog", R"("complementary_translation_catalog": "sample")", 2);
    row("both", R"("translation_catalog": "sample", "complementary_translation_catalog": "extra")", 4);
    row("the same twice", R"("translation_catalog": "sample", "complementary_translation_catalog": "sample")", 2);
}

void TranslationCatalogsTest::catalogsPerFile()
{
    QFETCH(QByteArray, keys);
    World::writeEntries(s_file, file(keys));
    const PluginRegistry registry;
    QTEST(translatorCount(registry), "count");
}

void TranslationCatalogsTest::laterCatalogWins()
{
    Catalogs::install("sample-fi", "sample-fi");
    Catalogs::install("extra-fi", "extra-fi");
    World::writeEntries(s_file,
                        file(R"("complementary_translation_catalog": "extra", "translation_catalog": "sample")"));
    PluginRegistry registry;
    QCOMPARE(qtTrId("test-both"), QStringLiteral("Muuten molemmat"));
    QCOMPARE(qtTrId("test-extra"), QStringLiteral("Muu"));
    QCOMPARE(qtTrId("test-locale"), QStringLiteral("Kieli"));
    // A catalog that is named again does not become the first.
    registry.loadTranslationCatalog(QStringLiteral("sample"));
    QCOMPARE(qtTrId("test-both"), QStringLiteral("Muuten molemmat"));
}

void TranslationCatalogsTest::twoFilesWithOneCatalog()
{
    World::writeEntries(QStringLiteral("first.json"), s_sample);
    World::writeEntries(QStringLiteral("second.json"), s_sample);
    World::writeEntries(QStringLiteral("third.json"), file(R"("complementary_translation_catalog": "sample")"));
    const PluginRegistry registry;
    QCOMPARE(translatorCount(registry), 2);
}

void TranslationCatalogsTest::twoCallsForOneCatalog()
{
    Catalogs::install("sample-fi", "sample-fi");
    PluginRegistry registry;
    for (int i = 0; i < 2; ++i) {
        registry.loadTranslationCatalog(QStringLiteral("sample"));
        QCOMPARE(translatorCount(registry), 2);
        QCOMPARE(qtTrId("test-both"), QStringLiteral("Molemmat"));
    }
    registry.loadTranslationCatalog(QString());
    QCOMPARE(translatorCount(registry), 2);
}

void TranslationCatalogsTest::takenNames()
{
    PluginRegistry registry;
    registry.loadTranslationCatalog(QStringLiteral("sample"));
    // "sample_eng_en" is already loaded; only "sample_eng_en_eng_en" is new.
    registry.loadTranslationCatalog(QStringLiteral("sample_eng_en"));
    QCOMPARE(translatorCount(registry), 3);
}

void TranslationCatalogsTest::excludedFile_data()
{
    QTest::addColumn<QByteArray>("group");
    QTest::addColumn<QString>("text");
    const QString translated = QStringLiteral("Molemmat");
    QTest::newRow("lacks the required group")
        << QByteArray(R"("required_group": "no-such-group")") << s_untranslated;
    QTest::newRow("is in the disabled group")
        << QByteArray("\"disabled_group\": \"" + ownGroup() + '"') << s_untranslated;
    QTest::newRow("is in the required group")
        << QByteArray("\"required_group\": \"" + ownGroup() + '"') << translated;
    QTest::newRow("is not in the disabled group")
        << QByteArray(R"("disabled_group": "no-such-group")") << translated;
}

void TranslationCatalogsTest::excludedFile()
{
    QFETCH(QByteArray, group);
    QFETCH(QString, text);
    Catalogs::install("sample-fi", "sample-fi");
    World::writeEntries(s_file, file(group + R"(, "translation_catalog": "sample")"));
    const PluginRegistry registry;
    QCOMPARE(qtTrId("test-both"), text);
    QCOMPARE(translatorCount(registry), text == s_untranslated ? 0 : 2);
}

void TranslationCatalogsTest::unloadingKeepsCatalogs()
{
    Catalogs::install("sample_eng_en", "sample_eng_en");
    Catalogs::install("sample-fi", "sample-fi");
    World::writeEntries(s_file, s_sample);
    PluginRegistry registry;
    const QList<QTranslator *> translators = registry.findChildren<QTranslator *>();
    registry.removeEntriesForFile(s_file);
    QCOMPARE(qtTrId("test-both"), QStringLiteral("Molemmat"));
    QCOMPARE(qtTrId("test-engineering"), QStringLiteral("Engineering"));

    registry.addEntriesForFile(s_file);
    QCOMPARE(registry.findChildren<QTranslator *>(), translators);

    World::removeEntries(s_file);
    World::rescan(&registry);
    QCOMPARE(qtTrId("test-both"), QStringLiteral("Molemmat"));
}

void TranslationCatalogsTest::registryRemovesItsCatalogs()
{
    Catalogs::install("sample_eng_en", "sample_eng_en");
    Catalogs::install("sample-fi", "sample-fi");
    World::writeEntries(s_file, s_sample);
    auto registry = std::make_unique<PluginRegistry>();
    QCOMPARE(qtTrId("test-both"), QStringLiteral("Molemmat"));
    QCOMPARE(qtTrId("test-engineering"), QStringLiteral("Engineering"));
    registry.reset();
    QCOMPARE(qtTrId("test-both"), s_untranslated);
    QCOMPARE(qtTrId("test-engineering"), QStringLiteral("test-engineering"));
}

void TranslationCatalogsTest::otherRegistryKeepsItsCatalogs()
{
    Catalogs::install("sample-fi", "sample-fi");
    Catalogs::install("extra-fi", "extra-fi");
    World::writeEntries(s_file, s_sample);
    const PluginRegistry first;
    auto second = std::make_unique<PluginRegistry>();
    second->loadTranslationCatalog(QStringLiteral("extra"));
    QCOMPARE(translatorCount(*second), 4);
    QCOMPARE(qtTrId("test-both"), QStringLiteral("Muuten molemmat"));
    second.reset();
    QCOMPARE(translatorCount(first), 2);
    QCOMPARE(qtTrId("test-both"), QStringLiteral("Molemmat"));
    QCOMPARE(qtTrId("test-extra"), QStringLiteral("test-extra"));
}

void TranslationCatalogsTest::missingCatalogIsNotTriedAgain()
{
    World::writeEntries(s_file, s_sample);
    PluginRegistry registry;
    QCOMPARE(translatorCount(registry), 2);
    Catalogs::install("sample_eng_en", "sample_eng_en");
    Catalogs::install("sample-fi", "sample-fi");
    registry.loadTranslationCatalog(QStringLiteral("sample"));
    registry.removeEntriesForFile(s_file);
    registry.addEntriesForFile(s_file);
    QCOMPARE(qtTrId("test-both"), s_untranslated);
    QCOMPARE(qtTrId("test-engineering"), QStringLiteral("test-engineering"));

    const PluginRegistry other;
    QCOMPARE(qtTrId("test-both"), QStringLiteral("Molemmat"));
}

void TranslationCatalogsTest::damagedCatalog_data()
{
    QTest::addColumn<QByteArray>("content");
    const QByteArray catalog = compiled(QStringLiteral("sample-fi"));
    QTest::newRow("empty") << QByteArray("");
    QTest::newRow("text") << QByteArray("no catalog at all\n");
    QTest::newRow("zeros") << QByteArray(4096, '\0');
    QTest::newRow("garbage after the header") << QByteArray(catalog.left(16) + QByteArray(4096, '\xff'));
    QTest::newRow("without its first byte") << catalog.mid(1);
}

void TranslationCatalogsTest::damagedCatalog()
{
    QFETCH(QByteArray, content);
    World::writeFile(Catalogs::path("sample-fi"), content);
    Catalogs::install("sample_eng_en", "sample_eng_en");
    World::writeEntries(s_file, s_sample);
    const MessageLog log;
    const PluginRegistry registry;
    QCOMPARE(translatorCount(registry), 2);
    QCOMPARE(qtTrId("test-both"), QStringLiteral("Both"));
    QCOMPARE(log.take(), QStringList{unusable("sample-fi", "is damaged, or no compiled catalog")});
    QCOMPARE(qtTrId("test-locale"), QStringLiteral("test-locale"));
}

void TranslationCatalogsTest::damagedCatalogIsReportedOnce()
{
    World::writeFile(Catalogs::path("sample-fi"), "damaged");
    World::writeEntries(QStringLiteral("1.json"), s_sample);
    World::writeEntries(QStringLiteral("2.json"), s_sample);
    const MessageLog log;
    PluginRegistry registry;
    registry.loadTranslationCatalog(QStringLiteral("sample"));
    World::removeEntries(QStringLiteral("1.json"));
    World::rescan(&registry);
    QCOMPARE(log.take().size(), 1);
}

void TranslationCatalogsTest::catalogThatDependsOnItself()
{
    QByteArray section;
    QDataStream stream(&section, QIODevice::WriteOnly);
    const QString name = QStringLiteral("sample-fi");
    stream << quint8(0x96) << quint32(sizeof(quint32) + sizeof(QChar) * uint(name.size())) << name;
    World::writeFile(Catalogs::path("sample-fi"), compiled(QStringLiteral("sample-fi")) + section);
    World::writeEntries(s_file, s_sample);
    const MessageLog log;
    const PluginRegistry registry;
    QCOMPARE(qtTrId("test-both"), s_untranslated);
    QCOMPARE(log.take(), QStringList{unusable("sample-fi", "depends on itself")});
}

void TranslationCatalogsTest::catalogThatShrinks()
{
    Catalogs::install("sample-fi", "sample-fi");
    World::writeEntries(s_file, s_sample);
    const PluginRegistry registry;
    QVERIFY(QFile::resize(Catalogs::path("sample-fi"), 0));
    QCOMPARE(qtTrId("test-both"), QStringLiteral("Molemmat"));
}

void TranslationCatalogsTest::truncatedCatalog()
{
    const QByteArray catalog = compiled(QStringLiteral("sample-fi"));
    const MessageLog log;
    PluginRegistry registry;
    for (int length = 0; length < catalog.size(); ++length) {
        const QByteArray name = "cut" + QByteArray::number(length);
        World::writeFile(Catalogs::path(name + "-fi"), catalog.left(length));
        registry.loadTranslationCatalog(QString::fromLatin1(name));
        const QString text = qtTrId("test-both");
        QVERIFY2(text == s_untranslated || text == QLatin1String("Molemmat"), qPrintable(text));
        QVERIFY(log.take().size() <= 1);
    }
    QCOMPARE(translatorCount(registry), 2 * catalog.size());
}

void TranslationCatalogsTest::forbiddenCatalog()
{
    Catalogs::install("sample-fi", "sample-fi");
    QVERIFY(QFile::setPermissions(Catalogs::path("sample-fi"), QFile::Permissions()));
    World::writeEntries(s_file, s_sample);
    const PluginRegistry registry;
    QCOMPARE(translatorCount(registry), 2);
    QCOMPARE(qtTrId("test-both"), s_untranslated);
}

void TranslationCatalogsTest::noReadableFile_data()
{
    QTest::addColumn<mode_t>("mode");
    QTest::newRow("directory") << mode_t(S_IFDIR | 0700);
    QTest::newRow("pipe") << mode_t(S_IFIFO | 0600);
}

void TranslationCatalogsTest::noReadableFile()
{
    QFETCH(mode_t, mode);
    const QByteArray path = QFile::encodeName(Catalogs::path("sample-fi"));
    QVERIFY(S_ISDIR(mode) ? mkdir(path.constData(), mode) == 0 : mknod(path.constData(), mode, 0) == 0);
    World::writeEntries(s_file, s_sample);
    const PluginRegistry registry;
    QCOMPARE(translatorCount(registry), 2);
    QCOMPARE(qtTrId("test-both"), s_untranslated);
}

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    if (app.arguments().mid(1) == QStringList{QStringLiteral("--load")}) {
        QLocale::setDefault(s_austrian);
        const PluginRegistry registry;
        return EXIT_SUCCESS;
    }
    TranslationCatalogsTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_translationcatalogs.moc"
