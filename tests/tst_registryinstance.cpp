// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "catalogs.h"
#include "models/settingsmodel.h"
#include "registry/pluginregistry.h"
#include "registry/treeitem.h"
#include "text.h"
#include "world.h"

#include <QCoreApplication>
#include <QEvent>
#include <QLocale>
#include <QTest>

#include <functional>
#include <memory>

namespace
{
/// Calls a function for each LanguageChange of the application, as a program does that updates its texts.
class LanguageObserver : public QObject
{
public:
    explicit LanguageObserver(const std::function<void()> &handler)
        : m_handler(handler)
    {
        QCoreApplication::instance()->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::LanguageChange) {
            m_handler();
        }
        return QObject::eventFilter(watched, event);
    }

private:
    const std::function<void()> m_handler;
};
}

class RegistryInstanceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void handlerOfItsFirstCatalog();
};

/// The one test of this program, because the registry is created once.
void RegistryInstanceTest::handlerOfItsFirstCatalog()
{
    World::reset();
    QLocale::setDefault(QLocale(QLocale::Finnish, QLocale::Finland));
    Catalogs::install("sample_eng_en", "sample_eng_en");
    Catalogs::install("sample-fi", "sample-fi");
    World::writeEntries(text("1.json"), declaring("First", {"first"}));
    World::writeEntries(text("2.json"), R"({"translation_catalog": "sample", "entries": [{"path": "second"}]})");
    QVector<PluginRegistry *> seen;
    QList<QStringList> trees;
    std::unique_ptr<SettingsModel> model;
    const LanguageObserver observer([&] {
        PluginRegistry *registry = PluginRegistry::instance();
        seen.append(registry);
        trees.append(World::paths(registry->getItem({})));
        if (!model) {
            model = std::make_unique<SettingsModel>();
            model->setDepth(1);
        }
    });

    PluginRegistry *registry = PluginRegistry::instance();
    QCOMPARE(seen, (QVector<PluginRegistry *>{registry, registry}));
    QCOMPARE(trees, (QList<QStringList>{{text("first")}, {text("first")}}));
    QCOMPARE(paths(*registry), (QStringList{text("first"), text("second")}));
    QCOMPARE(World::brokenInvariants(registry->getItem({})), QStringList());
    QCOMPARE(model->rowCount(), 2);
}

QTEST_GUILESS_MAIN(RegistryInstanceTest)
#include "tst_registryinstance.moc"
