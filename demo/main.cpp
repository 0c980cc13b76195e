// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registrationfiles.h"
#include "screenshottour.h"
#include "treeprinter.h"

#include <QCommandLineParser>
#include <QFont>
#include <QGuiApplication>
#include <QIcon>
#include <QLocale>
#include <QQmlApplicationEngine>
#include <QQmlContext>
#include <QQuickWindow>
#include <QTextStream>

#include <atomic>

namespace
{
std::atomic_int s_warnings{0};
QtMessageHandler s_printMessage = nullptr;

void countWarnings(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    // What a machine without a desktop says of itself.
    static const QStringList harmless = {
        QStringLiteral("This plugin does not support propagateSizeHints()"),
        QStringLiteral("Failed to find a Kirigami platform plugin"),
    };
    if (harmless.contains(message)) {
        return;
    }
    if (type != QtDebugMsg && type != QtInfoMsg) {
        ++s_warnings;
    }
    s_printMessage(type, context, message);
}

const QCommandLineOption
    s_packages(QStringLiteral("packages"),
               QStringLiteral("Directory of the registration files that the developer drawer offers."),
               QStringLiteral("DIR"));
const QCommandLineOption s_locale(QStringLiteral("locale"), QStringLiteral("Locale of the texts, such as fi_FI."),
                                  QStringLiteral("LOCALE"));
const QCommandLineOption s_wide(QStringLiteral("wide"),
                                QStringLiteral("Open a wide window, not a phone-sized one."));
const QCommandLineOption s_tree(QStringLiteral("tree"), QStringLiteral("Print the tree of entries and quit."));
const QCommandLineOption s_screenshots(QStringLiteral("screenshots"),
                                       QStringLiteral("Save a picture of every page into DIR and quit."),
                                       QStringLiteral("DIR"));

int takeScreenshots(QQuickWindow *window, RegistrationFiles *files, const QString &directory)
{
    const QString language = QLocale().name().section(QLatin1Char('_'), 0, 0);
    if (!ScreenshotTour(window, files, directory, language).run()) {
        return 1;
    }
    return s_warnings == 0 ? 0 : 1;
}
}

int main(int argc, char *argv[])
{
    s_printMessage = qInstallMessageHandler(countWarnings);
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QGuiApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOptions({s_packages, s_locale, s_wide, s_tree, s_screenshots});
    parser.process(application);

    if (parser.isSet(s_locale)) {
        QLocale::setDefault(QLocale(parser.value(s_locale)));
    }
    if (parser.isSet(s_tree)) {
        QTextStream out(stdout);
        printTree(out);
        return 0;
    }

    // The offscreen platform knows no directory of icons.
    QIcon::setThemeSearchPaths(QIcon::themeSearchPaths() << QStringLiteral("/usr/share/icons"));
    QIcon::setThemeName(QStringLiteral("breeze"));
    QGuiApplication::setFont(QFont(QStringLiteral("Noto Sans"), 10));

    RegistrationFiles files(parser.value(s_packages));
    QQmlApplicationEngine engine;
    engine.addImportPath(QStringLiteral(VELKA_QML_BUILD_DIR));
    engine.rootContext()->setContextProperty(QStringLiteral("registrationFiles"), &files);
    engine.setInitialProperties({
        {QStringLiteral("wide"), parser.isSet(s_wide)},
        {QStringLiteral("animated"), !parser.isSet(s_screenshots)},
    });
    engine.load(QStringLiteral("qrc:/qml/Main.qml"));
    if (engine.rootObjects().isEmpty()) {
        return 1;
    }
    if (parser.isSet(s_screenshots)) {
        auto *const window = qobject_cast<QQuickWindow *>(engine.rootObjects().constFirst());
        return takeScreenshots(window, &files, parser.value(s_screenshots));
    }
    return application.exec();
}
