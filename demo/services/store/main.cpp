// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "appearance.h"
#include "publish.h"
#include "storeadaptor.h"
#include "storeclient.h"
#include "windowpictures.h"

#include <QCommandLineParser>
#include <QGuiApplication>
#include <QLocale>
#include <QQmlApplicationEngine>
#include <QQmlContext>
#include <QQuickWindow>
#include <QTranslator>

namespace
{
const QCommandLineOption s_locale(QStringLiteral("locale"), QStringLiteral("Locale of the texts, such as fi_FI."),
                                  QStringLiteral("LOCALE"));
const QCommandLineOption s_screenshots(QStringLiteral("screenshots"),
                                       QStringLiteral("Save a picture into DIR when asked for a package."),
                                       QStringLiteral("DIR"));

void installTexts(QGuiApplication *application)
{
    const QString directory = QStringLiteral("/usr/share/translations");
    auto *const engineeringEnglish = new QTranslator(application);
    auto *const localized = new QTranslator(application);
    engineeringEnglish->load(QStringLiteral("store_eng_en"), directory);
    localized->load(QLocale(), QStringLiteral("store"), QStringLiteral("-"), directory);
    QCoreApplication::installTranslator(engineeringEnglish);
    QCoreApplication::installTranslator(localized);
}
}

int main(int argc, char *argv[])
{
    prepareApplication();
    QGuiApplication application(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOptions({s_locale, s_screenshots});
    parser.process(application);
    if (parser.isSet(s_locale)) {
        QLocale::setDefault(QLocale(parser.value(s_locale)));
    }
    setAppearance();
    installTexts(&application);

    StoreClient client;
    new StoreAdaptor(&client);
    QQmlApplicationEngine engine;
    engine.rootContext()->setContextProperty(QStringLiteral("storeClient"), &client);
    engine.load(QStringLiteral("qrc:/Store.qml"));
    if (engine.rootObjects().isEmpty()) {
        return 1;
    }
    auto *const window = qobject_cast<QQuickWindow *>(engine.rootObjects().constFirst());
    WindowPictures pictures(window, parser.value(s_screenshots));
    if (parser.isSet(s_screenshots)) {
        // Queued, so that the caller does not wait for the picture.
        QObject::connect(
            &client, &StoreClient::asked, &application, [&pictures] { pictures.save(QStringLiteral("store")); },
            Qt::QueuedConnection);
    }
    if (!publish(&client, QStringLiteral("com.velka.velkastore"), QStringLiteral("/StoreClient"))) {
        return 1;
    }
    return application.exec();
}
