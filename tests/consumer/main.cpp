// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <favoritesblacklist.h>
#include <pluginregistry.h>
#include <search/settingssearch.h>
#include <treeitem.h>

#include <QCoreApplication>
#include <QDebug>
#include <QFile>
#include <QFileInfo>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QSet>
#include <QUrl>

#include <memory>

namespace
{
int s_failures = 0;

void check(bool condition, const char *what)
{
    if (!condition) {
        qCritical("failed: %s", what);
        ++s_failures;
    }
}

/// Returns the mapped files of this process that have the name of the library.
QSet<QByteArray> mappedLibraries()
{
    QFile maps(QStringLiteral("/proc/self/maps"));
    QSet<QByteArray> files;
    if (maps.open(QIODevice::ReadOnly)) {
        for (const QByteArray &line : maps.readAll().split('\n')) {
            if (line.contains("/libvelkasettings.so")) {
                files.insert(line.mid(line.indexOf('/')));
            }
        }
    }
    return files;
}
}

/// Links the libraries, imports the QML module, and checks that all have the same registry.
int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    check(readFavoritesBlacklist() == QSet<QString>{QStringLiteral("sound/volume")}, "the blacklist is read");
    PluginRegistry *registry = PluginRegistry::instance();
    TreeItem *volume = registry->getItem({QStringLiteral("sound"), QStringLiteral("volume")});
    check(volume && volume->title() == QLatin1String("Volume"), "the entry is there");

    SettingsSearch search;
    search.finish();
    check(search.find({QStringLiteral("vol")}).value(0).item == volume, "the search finds the entry");

    QQmlEngine engine;
    engine.addImportPath(app.arguments().value(1));
    QQmlComponent component(&engine);
    component.setData("import com.velka.settings 1.0\nSettingsModel { path: ['sound']; depth: 1 }", QUrl());
    const std::unique_ptr<QObject> model(component.create());
    check(model != nullptr, qPrintable(component.errorString()));
    if (model) {
        QObject *shown = nullptr;
        QMetaObject::invokeMethod(model.get(), "objectAt", Q_RETURN_ARG(QObject *, shown), Q_ARG(int, 0));
        check(shown == volume, "QML and C++ share the node");
        registry->addEntriesForFile(QStringLiteral("fake-balance.json"));
        Q_EMIT registry->contentChanged();
        check(model->property("count").toInt() == 2, "QML follows a change that C++ makes");
        QMetaObject::invokeMethod(model.get(), "objectAt", Q_RETURN_ARG(QObject *, shown), Q_ARG(int, 0));
        check(shown && shown == registry->getItem({QStringLiteral("sound"), QStringLiteral("balance")}),
              "QML shows the node that C++ loaded");
    }
    check(mappedLibraries().size() == 1, "the library is mapped once");
    return s_failures ? EXIT_FAILURE : EXIT_SUCCESS;
}
