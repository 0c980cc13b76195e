// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "entrypagehost.h"

#include "common/messages.h"
#include "entryfiles.h"
#include "text.h"
#include "toolkit/settingsentry.h"
#include "world.h"

#include <QCoreApplication>
#include <QQmlComponent>
#include <QQmlContext>
#include <QTest>

namespace
{
const char s_uri[] = "com.velka.settings.toolkit";
const QString s_file = QStringLiteral("sound.json");
}

const QString EntryPageHost::s_path = QStringLiteral("sound/volume");

void EntryPageHost::setPath(const QString &path)
{
    m_page->setProperty("path", path);
}

void EntryPageHost::deleteSoon(QObject *object)
{
    object->deleteLater();
}

void EntryPageHost::deletePage()
{
    m_page.reset();
}

void EntryPageHost::initTestCase()
{
    qmlRegisterType<EntryPageContent>(s_uri, 1, 0, "EntryPageContent");
    qmlRegisterType(QUrl::fromLocalFile(text(ENTRYPAGE_QML)), s_uri, 1, 0, "EntryPage");
    qmlRegisterType<SettingsEntry>(s_uri, 1, 0, "SettingsEntry");
}

void EntryPageHost::init()
{
    EntryFiles::reset();
    m_directory = std::make_unique<QTemporaryDir>();
    m_engine = std::make_unique<QQmlEngine>();
    m_engine->rootContext()->setContextProperty(text("host"), this);
}

void EntryPageHost::cleanup()
{
    m_page.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // Qt deletes unfinished pages later
    m_engine.reset();
}

QString EntryPageHost::write(const QString &name, const QByteArray &qml) const
{
    const QString path = m_directory->filePath(name);
    World::writeFile(path, qml);
    return path;
}

void EntryPageHost::open(const QString &path)
{
    QQmlComponent component(m_engine.get());
    component.setData("import QtQuick 2.15\nimport com.velka.settings.toolkit 1.0\n"
                      "EntryPage { id: hostPage; width: 200; height: 100 }",
                      QUrl());
    m_page.reset(qobject_cast<QQuickItem *>(component.create()));
    QVERIFY2(m_page, qPrintable(component.errorString()));
    setPath(path);
}

EntryPageContent *EntryPageHost::content() const
{
    return m_page->findChild<EntryPageContent *>();
}

EntryPageContent::Status EntryPageHost::status() const
{
    return EntryPageContent::Status(m_page->property("status").toInt());
}

QQuickItem *EntryPageHost::item() const
{
    return qobject_cast<QQuickItem *>(m_page->property("item").value<QObject *>());
}

QVariantList EntryPageHost::errors() const
{
    return m_page->property("errors").toList();
}

void EntryPageHost::install(const QByteArray &entries)
{
    EntryFiles::install(s_file, {entries});
}

void EntryPageHost::reload(const QByteArray &entries)
{
    EntryFiles::reload(s_file, {entries});
}

void EntryPageHost::uninstall()
{
    EntryFiles::uninstall(s_file);
}

QByteArray EntryPageHost::entry(const QString &source, const char *title)
{
    return R"({"path": "sound/volume", "type": "page", "title": ")" + QByteArray(title)
           + R"(", "params": {"source": ")" + source.toUtf8() + R"("}})";
}

QVariantMap EntryPageHost::error(const QString &text, const QString &file, int line, int column)
{
    return {{QStringLiteral("text"), text},
            {QStringLiteral("file"), file},
            {QStringLiteral("line"), line},
            {QStringLiteral("column"), column}};
}

QString EntryPageHost::warning(const QVariantMap &error)
{
    const QString place
        = QStringLiteral("%1:%2").arg(error.value(text("file")).toString()).arg(error.value(text("line")).toInt());
    const QString reason = error.value(text("text")).toString().replace(QLatin1Char('"'), QLatin1String("\\\""));
    return QStringLiteral("warning org.orvantaos.settings.framework: %1 \"%2\" \"%3: %4\"")
        .arg(QLatin1String(Messages::CannotShowPage), s_path, place, reason);
}
