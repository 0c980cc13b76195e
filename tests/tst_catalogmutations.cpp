// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "catalogbytes.h"
#include "registry/catalogtranslator.h"
#include "text.h"
#include "world.h"

#include <QDir>
#include <QFile>
#include <QMap>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>
#include <QTranslator>

namespace
{
constexpr int Parts = 10;

int setting(const char *name, int usual)
{
    return qEnvironmentVariableIsSet(name) ? qEnvironmentVariableIntValue(name) : usual;
}

QByteArray mutated(QByteArray catalog, QRandomGenerator *random)
{
    for (int changes = random->bounded(1, 5); changes > 0; --changes) {
        catalog[random->bounded(catalog.size())] = char(random->bounded(256));
    }
    return catalog;
}
}

/**
 * A catalog with one to four changed bytes is refused, or is one that QTranslator reads with the same results.
 *
 * VELKA_CATALOG_MUTATIONS and VELKA_CATALOG_SEED select the number of changed catalogs and the seed.
 */
class CatalogMutationsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void changedBytes_data();
    void changedBytes();

private:
    void write(const QString &name, const QByteArray &content) const;
    bool isSound(const QString &name) const;

    const QTemporaryDir m_directory{text("/usr/share/translations/XXXXXX")}; // in memory
    QMap<QString, QByteArray> m_catalogs;
};

void CatalogMutationsTest::initTestCase()
{
    const QDir compiled(text(VELKA_TEST_CATALOGS));
    const QStringList names = compiled.entryList(QDir::Files);
    for (const QString &name : names) {
        QFile file(compiled.filePath(name));
        QVERIFY(file.open(QIODevice::ReadOnly));
        m_catalogs.insert(name, file.readAll());
        write(name, m_catalogs.value(name));
    }
}

void CatalogMutationsTest::write(const QString &name, const QByteArray &content) const
{
    World::writeFile(m_directory.filePath(name), content);
}

/// Returns whether the catalog can be loaded, and the texts are then those of QTranslator.
bool CatalogMutationsTest::isSound(const QString &name) const
{
    CatalogTranslator translator;
    if (!translator.load(name, m_directory.path())) {
        return false;
    }
    QTranslator expected;
    return expected.load(name, m_directory.path()) && lookUp(translator) == lookUp(expected);
}

/// Parts, each of which has the time of a test
void CatalogMutationsTest::changedBytes_data()
{
    QTest::addColumn<int>("seed");
    const int first = setting("VELKA_CATALOG_SEED", 1);
    for (int i = 0; i < Parts; ++i) {
        QTest::addRow("seed %d", first + i) << first + i;
    }
}

void CatalogMutationsTest::changedBytes()
{
    QFETCH(int, seed);
    const int total = setting("VELKA_CATALOG_MUTATIONS", 500) / Parts;
    QRandomGenerator random{quint32(seed)};
    const QStringList names = m_catalogs.keys();
    int sound = 0;
    for (int i = 0; i < total; ++i) {
        const QString name = names.at(random.bounded(names.size()));
        const QByteArray catalog = m_catalogs.value(name);
        write(name, mutated(catalog, &random));
        CatalogTranslator translator;
        const bool isLoaded = translator.load(name, m_directory.path());
        QCOMPARE(translator.error().isEmpty(), isLoaded);
        QCOMPARE(isSound(name), isLoaded);
        sound += isLoaded ? 1 : 0;
        QVERIFY(translator.sourceTexts().size() <= catalog.size());
        // It depends on most of the others.
        const QString dependent = text("collection-pl.qm");
        QCOMPARE(isSound(dependent), CatalogTranslator().load(dependent, m_directory.path()));
        write(name, catalog);
    }
    qInfo("%d of %d catalogs were still sound", sound, total);
    QVERIFY(sound > 0 && sound < total);
}

QTEST_GUILESS_MAIN(CatalogMutationsTest)
#include "tst_catalogmutations.moc"
