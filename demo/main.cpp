// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "appearance.h"
#include "demowindow.h"
#include "qmlcall.h"
#include "screenshottour.h"
#include "toolkit/address.h"
#include "treeprinter.h"

#include <QCommandLineParser>
#include <QGuiApplication>
#include <QQuickWindow>
#include <QTextStream>

namespace
{
const QCommandLineOption
    s_packages(QStringLiteral("packages"),
               QStringLiteral("Directory of the registration files that the developer drawer offers."),
               QStringLiteral("DIR"));
const QCommandLineOption s_locale(QStringLiteral("locale"), QStringLiteral("Locale of the texts, such as fi_FI."),
                                  QStringLiteral("LOCALE"));
const QCommandLineOption s_wide(QStringLiteral("wide"),
                                QStringLiteral("Open a wide window, not a phone-sized one."));
const QCommandLineOption s_dark(QStringLiteral("dark"), QStringLiteral("Use dark colours."));
const QCommandLineOption s_textScale(QStringLiteral("text-scale"),
                                     QStringLiteral("Show the texts FACTOR times as large."),
                                     QStringLiteral("FACTOR"), QStringLiteral("1"));
const QCommandLineOption s_tree(QStringLiteral("tree"), QStringLiteral("Print the tree of entries and quit."));
const QCommandLineOption s_screenshots(QStringLiteral("screenshots"),
                                       QStringLiteral("Save a picture of every page into DIR and quit."),
                                       QStringLiteral("DIR"));
const QCommandLineOption s_tour(QStringLiteral("tour"), QStringLiteral("Save a few pictures into DIR and quit."),
                                QStringLiteral("DIR"));

/// Opens the page of the entry that @p text names: a path or a URL.
void openAddress(QQuickWindow *window, const QString &text)
{
    const Address address = Address::of(text);
    if (address.error.isEmpty()) {
        callQml(window, "showEntry", address.path.split(QLatin1Char('/')), false);
    } else {
        qWarning("Cannot open the address: %s", qUtf8Printable(address.error));
    }
}

int takePictures(QQuickWindow *window, DemoWindow *demo, const QCommandLineParser &parser)
{
    const bool everyPage = parser.isSet(s_screenshots);
    const QString directory = parser.value(everyPage ? s_screenshots : s_tour);
    ScreenshotTour tour(window, demo->files(), demo->faults(), directory);
    const bool saved = everyPage ? tour.run() : tour.runShort();
    return saved && warningCount() == 0 ? 0 : 1;
}
}

int main(int argc, char *argv[])
{
    prepareApplication();
    QGuiApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("address"), QStringLiteral("Path or URL of the entry to open."),
                                 QStringLiteral("[PATH|URL]"));
    parser.addOptions({s_packages, s_locale, s_wide, s_dark, s_textScale, s_tree, s_screenshots, s_tour});
    parser.process(application);

    if (parser.isSet(s_locale)) {
        setLocale(parser.value(s_locale));
        // The language of names in desktop files depends on the environment.
        qputenv("LANGUAGE", parser.value(s_locale).toUtf8());
    }
    if (parser.isSet(s_tree)) {
        QTextStream out(stdout);
        printTree(out);
        return 0;
    }

    setAppearance({parser.isSet(s_dark), parser.value(s_textScale).toDouble()});
    const bool takesPictures = parser.isSet(s_screenshots) || parser.isSet(s_tour);
    DemoWindow demo(parser.value(s_packages));
    QQuickWindow *const window = demo.open({
        {QStringLiteral("wide"), parser.isSet(s_wide)},
        {QStringLiteral("animated"), !takesPictures},
        {QStringLiteral("service"), QStringLiteral("org.velkasettings.Demo")},
    });
    if (!window) {
        return 1;
    }
    if (takesPictures) {
        return takePictures(window, &demo, parser);
    }
    if (!parser.positionalArguments().isEmpty()) {
        openAddress(window, parser.positionalArguments().constFirst());
    }
    return application.exec();
}
