// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <QCoreApplication>
#include <QFile>
#include <QJsonObject>
#include <QPluginLoader>
#include <QProcess>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QTest>

#include <memory>

namespace
{
const QString s_base = QStringLiteral("import QtQml 2.15\nimport com.velka.settings 1.0\nQtObject {}");
const QString s_toolkit = QStringLiteral("import QtQml 2.15\nimport com.velka.settings.toolkit 1.0\nQtObject {}");
const QString s_page = QStringLiteral("import com.velka.settings.toolkit 1.0\nEntryPage {}");
const QString s_version = QStringLiteral("import com.velka.settings.toolkit %1\nSettingsEntry {}");

QString pluginFile()
{
    return QStringLiteral(VELKA_QML_DIR "/com/velka/settings/toolkit/libvelkasettingstoolkit.so");
}

/// Returns the first error of creating what the QML @p document describes, empty when there is none.
QString errorOf(const QString &document)
{
    QQmlEngine engine;
    engine.addImportPath(QStringLiteral(VELKA_QML_DIR));
    QQmlComponent component(&engine);
    component.setData(document.toUtf8(), QUrl());
    const std::unique_ptr<QObject> object(component.isReady() ? component.create() : nullptr);
    const QList<QQmlError> errors = component.errors();
    return errors.isEmpty() ? QString() : errors.first().description();
}

/// Returns which libraries of interest this process has mapped.
QByteArray mappedLibraries()
{
    QFile maps(QStringLiteral("/proc/self/maps"));
    if (!maps.open(QIODevice::ReadOnly)) {
        qFatal("Can't read %s", qPrintable(maps.fileName()));
    }
    const QByteArray content = maps.readAll();
    QByteArrayList names;
    for (const char *name : {"libvelkasettingstoolkit.so", "libQt5Quick.so"}) {
        if (content.contains(name)) {
            names.append(name);
        }
    }
    return names.join(' ');
}

/// Returns which libraries of interest a process of its own has mapped after it has created @p document.
QByteArray librariesOf(const QString &document)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationFilePath(), {document});
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
        qFatal("Can't create %s", qPrintable(document));
    }
    return process.readAllStandardOutput().trimmed();
}

int runDocument(const QString &document)
{
    const QString error = errorOf(document);
    if (!error.isEmpty()) {
        qCritical().noquote() << error;
        return EXIT_FAILURE;
    }
    puts(mappedLibraries().constData());
    return EXIT_SUCCESS;
}
}

class ToolkitPluginTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void metadata();
    void otherVersionsAreRefused_data();
    void otherVersionsAreRefused();
    void importsLoadOnlyTheirLibraries();
};

void ToolkitPluginTest::metadata()
{
    const QJsonObject metadata = QPluginLoader(pluginFile()).metaData();
    QCOMPARE(metadata.value(QLatin1String("IID")).toString(), QStringLiteral("com.velka.settings.toolkit"));
    QCOMPARE(metadata.value(QLatin1String("className")).toString(), QStringLiteral("VelkaSettingsToolkitPlugin"));
    QCOMPARE(metadata.value(QLatin1String("debug")), QJsonValue(false));
}

void ToolkitPluginTest::otherVersionsAreRefused_data()
{
    QTest::addColumn<QString>("version");
    QTest::newRow("1.1") << QStringLiteral("1.1");
    QTest::newRow("2.0") << QStringLiteral("2.0");
}

void ToolkitPluginTest::otherVersionsAreRefused()
{
    QFETCH(QString, version);
    QCOMPARE(errorOf(s_version.arg(version)),
             QStringLiteral("module \"com.velka.settings.toolkit\" version %1 is not installed").arg(version));
}

void ToolkitPluginTest::importsLoadOnlyTheirLibraries()
{
    QCOMPARE(librariesOf(s_base), QByteArray());
    QCOMPARE(librariesOf(s_toolkit), QByteArray("libvelkasettingstoolkit.so"));
    QCOMPARE(librariesOf(s_page), QByteArray("libvelkasettingstoolkit.so libQt5Quick.so"));
}

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    const QString argument = app.arguments().value(1);
    if (argument.startsWith(QLatin1String("import "))) {
        return runDocument(argument);
    }
    ToolkitPluginTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_toolkitplugin.moc"
