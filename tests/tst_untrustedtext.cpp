// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "appearance.h"
#include "applications.h"
#include "common/constants.h"
#include "demowindow.h"
#include "qmlcall.h"
#include "text.h"
#include "windowinput.h"
#include "windowpictures.h"
#include "world.h"

#include <mgconfitem.h>

#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QProcess>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace
{
const QChar s_slash = QLatin1Char('/');
const QStringList s_sectionPath{text("system_settings"), text("section")};
const QStringList s_pagePath = s_sectionPath + QStringList{text("page")};
const QStringList s_actionPath = s_sectionPath + QStringList{text("action")};

QString desktopFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::ApplicationsLocation) + text("/untrusted.desktop");
}

}

/// Answers every request with "not found", and keeps the requested paths.
class HttpServer : public QTcpServer
{
public:
    HttpServer()
    {
        connect(this, &QTcpServer::newConnection, this, [this] { read(nextPendingConnection()); });
        m_listens = listen(QHostAddress::LocalHost);
    }

    bool listens() const
    {
        return m_listens;
    }

    QByteArray url(const QByteArray &path) const
    {
        return "http://127.0.0.1:" + QByteArray::number(serverPort()) + '/' + path;
    }

    /// Returns text that loads the URL if it is shown as markup.
    QByteArray image(const QByteArray &path) const
    {
        return "<img src='" + url(path) + "'>";
    }

    /// Returns the requested paths in the order of the requests.
    QString requests() const
    {
        return m_requests.join(QLatin1Char(' '));
    }

private:
    void read(QTcpSocket *socket)
    {
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] {
            const QByteArray line = socket->readLine();
            m_requests.append(QString::fromLatin1(line.split(' ').value(1)));
            socket->write("HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\nConnection: close\r\n\r\n");
            socket->disconnectFromHost();
        });
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    }

    bool m_listens;
    QStringList m_requests;
};

/// The demo and the preview show the text of packages as it is, and load no icon over the network.
class UntrustedTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void demoLoadsNothing();
    void previewLoadsNothing();
    void serverCountsRequests();
    void iconOfNetworkIsRefused_data();
    void iconOfNetworkIsRefused();

private:
    QByteArray registration() const;
    template<typename... Arguments>
    bool show(const char *function, const Arguments &...arguments);
    bool waitForRest();

    HttpServer m_server;
    const QTemporaryDir m_directory;
    std::unique_ptr<DemoWindow> m_demo;
    QQuickWindow *m_window = nullptr;
};

/// A file in which every value that a page shows is markup or a URL.
QByteArray UntrustedTextTest::registration() const
{
    const auto entry = [this](const QByteArray &path, const QByteArray &more) {
        const QByteArray name = path.split('/').last();
        return "{\"path\": \"" + path + "\", \"title\": \"" + m_server.image(name + "-title")
               + "\", \"title_short\": \"" + m_server.image(name + "-short") + "\", \"icon\": \""
               + m_server.url(name + "-icon") + "\", \"controlIcon\": \"" + m_server.image(name + "-control")
               + "\", \"" + m_server.image(name + "-key") + "\": \"" + m_server.image(name + "-value") + "\", "
               + more + '}';
    };
    return "{\"translation_catalog\": \"settings\", \"entries\": ["
           + entry("system_settings/section", R"("order": 1)") + ','
           + entry("system_settings/section/page",
                   "\"type\": \"page\", \"params\": {\"source\": \"" + m_server.image("source") + "\"}")
           + ','
           + entry("system_settings/section/action",
                   R"("type": "action", "params": {"remote-method": "method", "allow_favorite": true})")
           + ',' + entry("applications", R"("order": 2)") + ','
           + entry("applications/untrusted.desktop", R"("order": 1)") + "]}";
}

void UntrustedTextTest::initTestCase()
{
    QVERIFY(m_server.listens());
    setAppearance();
    World::reset();
    const QDir catalogs(text(DEMO_TRANSLATIONS));
    for (const QString &name : catalogs.entryList({text("settings*.qm")})) {
        QVERIFY(QFile::copy(catalogs.filePath(name), text("/usr/share/translations/") + name));
    }
    World::writeEntries(text("untrusted.json"), registration());
    World::writeBlacklist("[]");
    const QByteArray icon = "Icon=" + m_server.url("application-icon") + '\n';
    QVERIFY(QDir().mkpath(QFileInfo(desktopFile()).path()));
    World::writeFile(desktopFile(), application(m_server.image("name"), icon));
    MGConfItem(Constants::FavoritesKey).set(QStringList{s_pagePath.join(s_slash), s_actionPath.join(s_slash)});
    World::setMasked({QString::fromLatin1(m_server.image("masked"))});
}

/// Calls a function of the window and waits until it shows the result.
template<typename... Arguments>
bool UntrustedTextTest::show(const char *function, const Arguments &...arguments)
{
    callQml(m_window, function, arguments...);
    return waitForRest();
}

bool UntrustedTextTest::waitForRest()
{
    const auto isSettled = [this] { return m_window->property("settled").toBool(); };
    return WindowPictures(m_window, m_directory.path(), isSettled).save(text("page"));
}

void UntrustedTextTest::demoLoadsNothing()
{
    m_demo = std::make_unique<DemoWindow>(m_directory.path());
    m_window = m_demo->open({{text("animated"), false}});
    QVERIFY(m_window);
    QVERIFY(show("showEntry", s_sectionPath, false));
    QVERIFY(show("showEntry", s_pagePath, true));
    QVERIFY(show("openFavorites"));
    QQuickItem *const outcome = findItem(m_window, text("outcome"));
    QVERIFY(outcome);
    outcome->property("entry").value<QObject *>()->setProperty("path", s_actionPath.join(s_slash));
    callQml(outcome, "run");
    QTRY_COMPARE(outcome->property("outcome").toString(), text("failed"));
    QVERIFY(waitForRest());
    QVERIFY(show("openFavoriteChoice", 1));
    for (const char *warning : {"Failed to get allowlist", "Failed to get notifications configs list"}) {
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(text(warning))); // there are no services
    }
    QVERIFY(show("openApplications"));
    QVERIFY(show("openApplication", desktopFile(), 1));
    QVERIFY(show("setDrawerOpen", true));
    QCOMPARE(m_server.requests(), QString());
}

void UntrustedTextTest::previewLoadsNothing()
{
    const QString file = m_directory.filePath(text("previewed.json"));
    World::writeFile(file, registration());
    QProcess preview;
    preview.setProcessChannelMode(QProcess::ForwardedChannels);
    preview.start(text(VELKA_PREVIEW), {text("--smoke-test"), file});
    QTRY_COMPARE_WITH_TIMEOUT(preview.state(), QProcess::NotRunning, 60000);
    QCOMPARE(preview.exitCode(), 0);
    QCOMPARE(m_server.requests(), QString());
}

/// Shows that the tests above would have failed: text that is shown as markup and icons with a URL cause requests.
void UntrustedTextTest::serverCountsRequests()
{
    QQmlComponent component(qmlEngine(m_window));
    component.setData("import QtQuick 2.15\n"
                      "Item {\n"
                      "    property alias markup: shown.text\n"
                      "    property alias url: image.source\n"
                      "    readonly property bool isRefused: image.status === Image.Error\n"
                      "    Text { id: shown }\n"
                      "    Image { id: image }\n"
                      "}",
                      QUrl());
    const std::unique_ptr<QObject> object(component.create());
    QVERIFY2(object, qPrintable(component.errorString()));
    object->setProperty("markup", QString::fromLatin1(m_server.image("markup")));
    QTRY_COMPARE(m_server.requests(), text("/markup"));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(text("QML Image: Error transferring")));
    object->setProperty("url", QUrl(QString::fromLatin1(m_server.url("icon"))));
    QTRY_COMPARE(m_server.requests(), text("/markup /icon"));
    QTRY_VERIFY(object->property("isRefused").toBool());
}

void UntrustedTextTest::iconOfNetworkIsRefused_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isLocal");
    const auto row = [](const char *name, bool isLocal) { QTest::newRow(name) << text(name) << isLocal; };
    row("", true);
    row("battery-low", true);
    row("image://theme/icon-m-battery", true);
    row("/usr/share/pixmaps/x:1.png", true);
    row("file:///usr/share/pixmaps/x.png", true);
    row("http://127.0.0.1/x.png", false);
    row("HTTPS://127.0.0.1/x.png", false);
    row(" http://127.0.0.1/x.png", false);
    row("image://other/http://127.0.0.1/x.png", false);
    row("image://theme/http://127.0.0.1/x.png", false);
    row("data:image/png;base64,AAAA", false);
    row("file://host/x.png", false);
    row("file:////host/x.png", false);
    row("//host/x.png", false);
    row("../x.png", false);
}

void UntrustedTextTest::iconOfNetworkIsRefused()
{
    QFETCH(QString, name);
    QFETCH(bool, isLocal);
    QQmlComponent component(qmlEngine(m_window), QUrl(text("qrc:/qml/LocalIcon.qml")));
    const std::unique_ptr<QObject> icon(component.create());
    QVERIFY2(icon, qPrintable(component.errorString()));
    icon->setProperty("fallback", text("fallback"));
    icon->setProperty("name", name);
    QCOMPARE(icon->property("source").toString(), isLocal ? name : text("fallback"));
}

int main(int argc, char *argv[])
{
    prepareApplication();
    const QGuiApplication application(argc, argv);
    UntrustedTextTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_untrustedtext.moc"
