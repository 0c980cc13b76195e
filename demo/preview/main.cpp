// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "appearance.h"
#include "catalogwatcher.h"
#include "hostvocabulary.h"
#include "keyboarduse.h"
#include "pagefiles.h"
#include "pluginregistry.h"
#include "previewedfiles.h"
#include "previewtour.h"
#include "registrationfiles.h"
#include "servicefaults.h"
#include "treeitem.h"

#include <mgconfitem.h>

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QIcon>
#include <QQmlApplicationEngine>
#include <QQmlContext>
#include <QQuickWindow>

#include <cstdio>

namespace
{
const QCommandLineOption s_locale(QStringLiteral("locale"), QStringLiteral("Locale of the texts."),
                                  QStringLiteral("LOCALE"));
const QCommandLineOption s_mask(QStringLiteral("mask"), QStringLiteral("Mask the entry that is declared as PATH."),
                                QStringLiteral("PATH"));
const QCommandLineOption s_wide(QStringLiteral("wide"), QStringLiteral("Open a wide window."));
const QCommandLineOption s_page(QStringLiteral("page"), QStringLiteral("Open the page of the entry PATH."),
                                QStringLiteral("PATH"));
const QCommandLineOption s_screenshot(QStringLiteral("screenshot"), QStringLiteral("Save a picture and quit."),
                                      QStringLiteral("FILE.png"));
const QCommandLineOption s_smokeTest(QStringLiteral("smoke-test"),
                                     QStringLiteral("Open every page, and fail on any warning."));

const QCommandLineOption s_directory(QStringLiteral("directory"), QStringLiteral("Follow the files in DIR."),
                                     QStringLiteral("DIR"));
const QCommandLineOption s_root(QStringLiteral("root"), QStringLiteral("Look for pages below DIR."),
                                QStringLiteral("DIR"));
const QCommandLineOption s_vocabulary(QStringLiteral("vocabulary"), QStringLiteral("Show what the host shows."),
                                      QStringLiteral("FILE"));
const QCommandLineOption s_catalogs(QStringLiteral("catalogs"),
                                    QStringLiteral("Quit with the status 77 when a catalog in DIR changes."),
                                    QStringLiteral("DIR"));
const QCommandLineOption s_copies(QStringLiteral("catalog-copies"),
                                  QStringLiteral("Compare the catalogs with the copies in DIR first."),
                                  QStringLiteral("DIR"));
constexpr int CatalogsChanged = 77;

/// Returns the first page of the host. Without a vocabulary that is the page of the settings if there are any, otherwise
/// that of all entries.
QVariantMap topPage(const std::optional<HostVocabulary> &vocabulary)
{
    constexpr int Depth = 2;
    if (vocabulary) {
        return {{QStringLiteral("topPath"), vocabulary->root().join(QLatin1Char('/'))},
                {QStringLiteral("topDepth"), vocabulary->depth() == 1 ? 1 : Depth}};
    }
    const QString settings = QStringLiteral("system_settings");
    const bool hasSettings = PluginRegistry::instance()->getItem({settings});
    return {{QStringLiteral("topPath"), hasSettings ? settings : QString()},
            {QStringLiteral("topDepth"), hasSettings ? Depth : 1}};
}

/// Keeps the files' problems visible in @p window, and prints them.
void showProblems(const PreviewedFiles *files, QObject *window)
{
    const auto show = [files, window] {
        window->setProperty("problems", files->problems());
        const QStringList problems = files->problems();
        for (const QString &problem : problems) {
            std::fprintf(stderr, "%s\n", qUtf8Printable(problem));
        }
    };
    show();
    QObject::connect(files, &PreviewedFiles::problemsChanged, window, show);
}

/// The window shows a placeholder for them.
void warnOfMissingIcons()
{
    TreeItem *const root = PluginRegistry::instance()->getItem({});
    const QList<TreeItem *> items = root->getSubitems(TreeItem::orderLessThan, -1);
    for (const TreeItem *item : items) {
        const QString icon = item->icon();
        if (!icon.isEmpty() && !icon.contains(QLatin1Char('/')) && !QIcon::hasThemeIcon(icon)) {
            std::fprintf(stderr, "%s: warning: the icon theme %s has no icon \"%s\"\n",
                         qUtf8Printable(item->location().join(QLatin1Char('/'))),
                         qUtf8Printable(QIcon::themeName()), qUtf8Printable(icon));
        }
    }
}

/// The window shows them as rows without a control.
void warnOfUnknownTypes(const HostVocabulary &vocabulary)
{
    const QStringList types = vocabulary.types();
    const QList<TreeItem *> items = PluginRegistry::instance()->getItem({})->getSubitems(TreeItem::orderLessThan,
                                                                                         -1);
    for (const TreeItem *item : items) {
        const QString type = item->value(QStringLiteral("type")).toString();
        if (!type.isEmpty() && !types.contains(type)) {
            std::fprintf(stderr, "%s: warning: the host does not show entries of the type \"%s\"\n",
                         qUtf8Printable(item->location().join(QLatin1Char('/'))), qUtf8Printable(type));
        }
    }
}

bool act(PreviewTour *tour, const QCommandLineParser &parser)
{
    const QStringList page = parser.value(s_page).split(QLatin1Char('/'), Qt::SkipEmptyParts);
    return (!parser.isSet(s_smokeTest) || tour->openAllPages()) && (page.isEmpty() || tour->openPage(page))
           && (!parser.isSet(s_screenshot) || tour->savePicture(parser.value(s_screenshot)));
}
}

int main(int argc, char *argv[])
{
    prepareApplication();
    QGuiApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOptions({s_locale, s_mask, s_wide, s_page, s_screenshot, s_smokeTest, s_directory, s_root,
                       s_vocabulary, s_catalogs, s_copies});
    parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("Registration files."));
    parser.process(application);
    if (parser.isSet(s_locale)) {
        setLocale(parser.value(s_locale));
    }
    MGConfItem masked(QStringLiteral("/apps/velka-settings/maskedSettings"));
    masked.set(parser.values(s_mask));

    setAppearance();
    PreviewedFiles files(parser.positionalArguments(), parser.values(s_directory));
    files.follow();
    const PageFiles pages(parser.values(s_root), parser.positionalArguments());
    pages.install();
    QObject::connect(PluginRegistry::instance(), &PluginRegistry::contentChanged, &application,
                     [&pages] { pages.install(); });
    PluginRegistry::instance()->loadTranslationCatalog(QStringLiteral("settings"));
    RegistrationFiles drawerFiles(QStringLiteral("/usr/share/velka-settings/entries"));
    ServiceFaults faults;
    QQmlApplicationEngine engine;
    for (const char *modules : {"/" VELKA_TO_QML, "/../../qml"}) { // as installed, and of the build
        engine.addImportPath(QCoreApplication::applicationDirPath() + QLatin1String(modules));
    }
    engine.rootContext()->setContextProperty(QStringLiteral("registrationFiles"), &drawerFiles);
    engine.rootContext()->setContextProperty(QStringLiteral("serviceFaults"), &faults);
    engine.rootContext()->setContextProperty(QStringLiteral("homePath"), QDir::homePath());
    const bool quits = parser.isSet(s_screenshot) || parser.isSet(s_smokeTest);
    QString problem; // velka-settings has read it before
    const std::optional<HostVocabulary> vocabulary = parser.isSet(s_vocabulary) ? HostVocabulary::read(
                                                         parser.value(s_vocabulary), &problem)
                                                                                : std::nullopt;
    QVariantMap properties = topPage(vocabulary);
    if (vocabulary) {
        properties.insert(QStringLiteral("pageTypes"), vocabulary->pageTypes());
    }
    properties.insert(QStringLiteral("wide"), parser.isSet(s_wide));
    properties.insert(QStringLiteral("animated"), !quits);
    engine.setInitialProperties(properties);
    engine.load(QStringLiteral("qrc:/qml/Main.qml"));
    if (engine.rootObjects().isEmpty()) {
        return 1;
    }
    showProblems(&files, engine.rootObjects().constFirst());
    warnOfMissingIcons();
    if (vocabulary) {
        warnOfUnknownTypes(*vocabulary);
    }
    auto *const window = qobject_cast<QQuickWindow *>(engine.rootObjects().constFirst());
    new KeyboardUse(window);
    PreviewTour tour(window, pages);
    if (!act(&tour, parser)) {
        return 1;
    }
    if (!quits) {
        const CatalogWatcher catalogs(parser.values(s_catalogs), parser.values(s_copies));
        QObject::connect(&catalogs, &CatalogWatcher::changed, &application,
                         [] { QGuiApplication::exit(CatalogsChanged); });
        return QGuiApplication::exec();
    }
    return parser.isSet(s_smokeTest) && warningCount() > 0 ? 1 : 0;
}
