// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

// Started by the benchmarks, as a process that does not link the library. Prints the seconds that the import of a QML
// module took; then with "page" those of each step to the first page, and with "libraries" the files that the import has
// mapped into the process.

#include "comparison.h"

#include <QCoreApplication>
#include <QFile>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QTextStream>
#include <QVariant>

#include <memory>

namespace
{
using Object = std::unique_ptr<QObject>;

const QString s_nothing = QStringLiteral("import QtQml 2.15\nQtObject { function call() {} }");
const QString s_import = QStringLiteral("import QtQml 2.15\nimport %1 1.0\nQtObject {}");
const QString s_model = QStringLiteral("import %1 1.0\n"
                                       "SettingsModel {\n"
                                       "    function showPage() { path = ['system_settings']; depth = 1 }\n"
                                       "    function titles() {\n"
                                       "        const all = []\n"
                                       "        for (let row = 0; row < count; ++row) {\n"
                                       "            all.push(objectAt(row).title)\n"
                                       "        }\n"
                                       "        return all\n"
                                       "    }\n"
                                       "}");

Object create(QQmlEngine &engine, const QString &document)
{
    QQmlComponent component(&engine);
    component.setData(document.toUtf8(), QUrl());
    Object object(component.create());
    if (!object) {
        qFatal("%s", qPrintable(component.errorString()));
    }
    return object;
}

QVariant call(const Object &object, const char *function)
{
    QVariant result;
    QMetaObject::invokeMethod(object.get(), function, Q_RETURN_ARG(QVariant, result));
    return result;
}

/// Returns the files that are mapped into this process.
QStringList mappedFiles()
{
    QFile maps(QStringLiteral("/proc/self/maps"));
    if (!maps.open(QIODevice::ReadOnly)) {
        qFatal("Can't read %s", qPrintable(maps.fileName()));
    }
    const QStringList lines = QString::fromLocal8Bit(maps.readAll()).split(QLatin1Char('\n'));
    QStringList files;
    for (const QString &line : lines) {
        const int path = line.indexOf(QLatin1Char('/'));
        if (path >= 0) {
            files.append(line.mid(path));
        }
    }
    files.removeDuplicates();
    return files;
}
}

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 4) {
        qFatal("Usage: startchild IMPORT_PATH MODULE import|page|libraries");
    }
    QTextStream out(stdout);
    QQmlEngine engine;
    engine.addImportPath(arguments.at(1));
    const QString &module = arguments.at(2);
    // The start of the engine is not measured.
    call(create(engine, s_nothing), "call");

    const QStringList filesBefore = mappedFiles();
    out << seconds([&] { create(engine, s_import.arg(module)); }) << '\n';
    if (arguments.at(3) == QLatin1String("page")) {
        Object model;
        QStringList titles;
        out << seconds([&] { model = create(engine, s_model.arg(module)); }) << '\n';
        out << seconds([&] { call(model, "showPage"); }) << '\n';
        out << seconds([&] { titles = call(model, "titles").toStringList(); }) << '\n';
        if (titles.isEmpty() || titles.contains(QString())) {
            qFatal("The page has no rows or a row has no title");
        }
    } else if (arguments.at(3) == QLatin1String("libraries")) {
        const QStringList files = mappedFiles();
        for (const QString &file : files) {
            if (!filesBefore.contains(file)) {
                out << file << '\n';
            }
        }
    }
}
