// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "dbuspeer.h"
#include "text.h"
#include "world.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusInterface>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDomDocument>
#include <QFile>
#include <QProcess>
#include <QTest>

#include <utility>

namespace
{
const QString s_name = text("org.velkasettings.Search");
const QString s_shell = text("org.gnome.Shell.SearchProvider2");
const QString s_runner = text("org.kde.krunner1");
const QString s_volume = text("system_settings/sound/volume");
const QString s_alarm = text("system_settings/sound/alarm volume");

QString pathOf(const QString &interface)
{
    return text("/org/velkasettings/Search/") + (interface == s_shell ? text("Shell") : text("Runner"));
}

QDBusMessage call(const QString &interface, const QString &method, const QVariantList &arguments = {})
{
    QDBusMessage message = QDBusMessage::createMethodCall(s_name, pathOf(interface), interface, method);
    message.setArguments(arguments);
    return QDBusConnection::sessionBus().call(message);
}

QStringList resultsOf(const QStringList &terms)
{
    return call(s_shell, text("GetInitialResultSet"), {terms}).arguments().value(0).toStringList();
}

QList<QVariantMap> metasOf(const QStringList &ids)
{
    const QDBusMessage reply = call(s_shell, text("GetResultMetas"), {ids});
    return qdbus_cast<QList<QVariantMap>>(reply.arguments().value(0));
}

struct Match {
    QString text; ///< and the subtext
    QString icon;
};

QVector<Match> runnerMatches(const QString &query)
{
    const QDBusMessage reply = call(s_runner, text("Match"), {query});
    const auto matches = reply.arguments().value(0).value<QDBusArgument>();
    QVector<Match> found;
    matches.beginArray();
    while (!matches.atEnd()) {
        QString id;
        QString title;
        QString icon;
        int type = 0;
        double relevance = 0;
        QVariantMap properties;
        matches.beginStructure();
        matches >> id >> title >> icon >> type >> relevance >> properties;
        matches.endStructure();
        found.append({title + text(": ") + properties[text("subtext")].toString(), icon});
    }
    matches.endArray();
    return found;
}

QStringList matchesOf(const QString &query)
{
    QStringList texts;
    for (const Match &match : runnerMatches(query)) {
        texts.append(match.text);
    }
    return texts;
}

bool isRunning()
{
    return QDBusConnection::sessionBus().interface()->isServiceRegistered(s_name);
}

/// Lets the bus start the program with @p rest, in milliseconds.
bool installService(const QByteArray &rest)
{
    World::writeFile(qEnvironmentVariable("XDG_RUNTIME_DIR") + text("/services/org.velkasettings.Search.service"),
                     "[D-BUS Service]\nName=org.velkasettings.Search\nExec=" SEARCH_PROVIDER " --rest " + rest
                         + '\n');
    return QDBusReply<void>(QDBusConnection::sessionBus().interface()->call(text("ReloadConfig"))).isValid();
}

/// Returns what the program, which fails with @p arguments, prints.
QByteArray failureOf(const QStringList &arguments)
{
    QProcess program;
    program.start(text(SEARCH_PROVIDER), arguments);
    program.waitForFinished();
    return program.exitStatus() == QProcess::NormalExit && program.exitCode() == 1 ? program.readAllStandardError()
                                                                                   : QByteArray();
}

/// Returns each method of @p interface in @p xml with the directions and types of its arguments.
QStringList methodsOf(const QString &interface, const QByteArray &xml)
{
    QStringList methods;
    QDomDocument document;
    document.setContent(xml);
    const QDomNodeList interfaces = document.elementsByTagName(text("interface"));
    for (int i = 0; i < interfaces.size(); ++i) {
        const QDomElement found = interfaces.at(i).toElement();
        if (found.attribute(text("name")) != interface) {
            continue;
        }
        for (QDomElement method = found.firstChildElement(text("method")); !method.isNull();
             method = method.nextSiblingElement(text("method"))) {
            QString signature = method.attribute(text("name"));
            for (QDomElement arg = method.firstChildElement(text("arg")); !arg.isNull();
                 arg = arg.nextSiblingElement(text("arg"))) {
                signature += text(" ") + arg.attribute(text("direction"), text("in")) + text(" ")
                             + arg.attribute(text("type"));
            }
            methods.append(signature);
        }
    }
    methods.sort();
    return methods;
}

QByteArray publishedXml(const QString &interface)
{
    QFile file(QStringLiteral(PUBLISHED_INTERFACES "/") + interface + text(".xml"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
}

/// The program that launchers ask, as the session bus starts it.
class SearchProviderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void interfacesAreThePublishedOnes_data();
    void interfacesAreThePublishedOnes();
    void shellFindsEntries();
    void subsearchOnlyShrinks();
    void metasDescribeResults();
    void unknownResultsAreLeftOut();
    void runnerFindsEntries();
    void onlyStrictMatchesAreFound();
    void resultIsOpened();
    void resultsSurviveTheBus();
    void longTextsAreCut();
    void hugeLocationsAreNotOpened();
    void hostileTermsDoNoHarm_data();
    void hostileTermsDoNoHarm();
    void refusesAnInvalidRest_data();
    void refusesAnInvalidRest();
    void saysThatItsNameIsTaken();
    void programEndsAfterItsRest();
    void callsAtTheEndOfTheRestAreAnswered();

private:
    std::unique_ptr<DBusPeer> m_application;
};

void SearchProviderTest::initTestCase()
{
    World::reset();
    World::writeEntries(text("sound.json"), R"({"entries": [
        {"path": "system_settings", "title": "Settings"},
        {"path": "system_settings/sound", "title": "Sound", "icon": "audio-volume-high"},
        {"path": "system_settings/sound/volume", "title": "Volume", "icon": "audio-volume-high"},
        {"path": "system_settings/sound/alarm volume", "title": "Alarm volume", "icon": "/etc/passwd"},
        {"path": "system_settings/cut", "title": "Umlaut"},
        {"path": "system_settings/cut\u0000off", "title": "Umlaut"},
        {"path": "system_settings/half\ud800", "title": "Umlaut"}
    ]})");
    QVERIFY(installService("3000"));
    World::writeEntries(text("gigantic.json"),
                        "{\"entries\": [{\"path\": \"system_settings/gigantic\", \"title\": \""
                            + QByteArray("Gigantic ").repeated(1000) + "\"}]}");
    m_application = std::make_unique<DBusPeer>(QDBusConnection::SessionBus, text("org.velkasettings.Demo"),
                                               text("/org/velkasettings/Demo"),
                                               text("org.freedesktop.Application"));
    m_application->addMethod(text("Open"), text("asa{sv}"));
    m_application->addMethod(text("Activate"), text("a{sv}"));
}

void SearchProviderTest::interfacesAreThePublishedOnes_data()
{
    QTest::addColumn<QString>("interface");
    QTest::addColumn<QString>("optional");
    QTest::newRow("GNOME Shell") << s_shell << QString();
    // Only runners of another version of the interface have it.
    QTest::newRow("KRunner") << s_runner << text("Config out {sv}");
}

void SearchProviderTest::interfacesAreThePublishedOnes()
{
    QFETCH(QString, interface);
    QFETCH(QString, optional);
    const QDBusMessage reply = QDBusConnection::sessionBus().call(QDBusMessage::createMethodCall(
        s_name, pathOf(interface), text("org.freedesktop.DBus.Introspectable"), text("Introspect")));
    QStringList published = methodsOf(interface, publishedXml(interface));
    published.removeAll(optional);
    QVERIFY(!published.isEmpty());
    QCOMPARE(methodsOf(interface, reply.arguments().value(0).toString().toUtf8()), published);
}

void SearchProviderTest::shellFindsEntries()
{
    QCOMPARE(resultsOf({text("volume")}), QStringList({s_volume, s_alarm}));
    QCOMPARE(resultsOf({text("Vol"), text("AL")}), QStringList(s_alarm));
    QCOMPARE(resultsOf({text("umbrella")}), QStringList());
    QCOMPARE(resultsOf({}), QStringList());
}

void SearchProviderTest::subsearchOnlyShrinks()
{
    const auto subsearch = [](const QStringList &previous, const QStringList &terms) {
        const QDBusMessage reply = call(s_shell, text("GetSubsearchResultSet"), {previous, terms});
        return reply.arguments().value(0).toStringList();
    };
    QCOMPARE(subsearch({s_volume}, {text("volume")}), QStringList(s_volume));
    QCOMPARE(subsearch({s_volume, s_alarm}, {text("volume"), text("alarm")}), QStringList(s_alarm));
    QCOMPARE(subsearch({}, {text("volume")}), QStringList());
}

void SearchProviderTest::metasDescribeResults()
{
    const QDBusMessage reply = call(s_shell, text("GetResultMetas"), {QStringList({s_volume, s_alarm})});
    QCOMPARE(reply.signature(), text("aa{sv}"));
    const QList<QVariantMap> metas = metasOf({s_volume, s_alarm});
    QCOMPARE(metas.size(), 2);
    const QVariantMap volume = metas[0];
    QCOMPARE(volume[text("id")].toString(), s_volume);
    QCOMPARE(volume[text("name")].toString(), text("Volume"));
    QCOMPARE(volume[text("description")].toString(), QStringLiteral("Settings › Sound"));
    const auto icon = volume[text("icon")].value<QDBusArgument>();
    QCOMPARE(icon.currentSignature(), text("(sv)"));
    // A file of the machine is no icon of the theme.
    QVERIFY(!metas[1].contains(text("icon")));
}

void SearchProviderTest::unknownResultsAreLeftOut()
{
    QCOMPARE(metasOf({text("system_settings/none"), s_volume, QString()}).size(), 1);
}

void SearchProviderTest::runnerFindsEntries()
{
    QCOMPARE(call(s_runner, text("Match"), {text("volume")}).signature(), text("a(sssida{sv})"));
    QCOMPARE(call(s_runner, text("Actions")).signature(), text("a(sss)"));
    QCOMPARE(call(s_runner, text("Teardown")).type(), QDBusMessage::ReplyMessage);
    QCOMPARE(matchesOf(text("volume")), QStringList({QStringLiteral("Volume: Settings › Sound"),
                                                     QStringLiteral("Alarm volume: Settings › Sound")}));
    QCOMPARE(matchesOf(text("umbrella")), QStringList());
}

void SearchProviderTest::onlyStrictMatchesAreFound()
{
    QCOMPARE(resultsOf({text("volmue")}), QStringList());
    QCOMPARE(matchesOf(text("volume umbrella")), QStringList());
}

void SearchProviderTest::resultIsOpened()
{
    call(s_shell, text("ActivateResult"), {s_alarm, QStringList(text("alarm")), 4711U});
    QTRY_COMPARE(m_application->calls(text("Open")).size(), 1);
    const QVariantList opened = m_application->calls(text("Open")).first();
    QCOMPARE(opened[0].toString(), text("asa{sv}"));
    QCOMPARE(unwrapped(opened[1]).toStringList(),
             QStringList(text("velka-settings:/system_settings/sound/alarm%20volume")));
    QCOMPARE(unwrapped(opened[2]).toMap(), QVariantMap({{text("desktop-startup-id"), text("_TIME4711")}}));

    call(s_runner, text("Run"), {s_volume, QString()});
    QTRY_COMPARE(m_application->calls(text("Open")).size(), 2);
    call(s_shell, text("LaunchSearch"), {QStringList(text("alarm")), 0U});
    QTRY_COMPARE(m_application->calls(text("Activate")).size(), 1);
}

void SearchProviderTest::resultsSurviveTheBus()
{
    const QStringList found = resultsOf({text("umlaut")});
    QCOMPARE(found, QStringList(text("system_settings/cut")));
    QCOMPARE(metasOf(found).size(), 1);
    QCOMPARE(matchesOf(text("umlaut")).size(), 1);
    const QVector<Match> matches = runnerMatches(text("volume"));
    QCOMPARE(matches.value(0).icon, text("audio-volume-high"));
    QCOMPARE(matches.value(1).icon, QString()); // no file of the machine
}

void SearchProviderTest::longTextsAreCut()
{
    constexpr int Most = 500;
    const QStringList found = resultsOf({text("gigantic")});
    QCOMPARE(found, QStringList(text("system_settings/gigantic")));
    QCOMPARE(metasOf(found).value(0)[text("name")].toString().size(), Most);
    QCOMPARE(matchesOf(text("gigantic")).value(0).section(QLatin1Char(':'), 0, 0).size(), Most);
}

void SearchProviderTest::hugeLocationsAreNotOpened()
{
    const QString huge(25 << 20, QLatin1Char('"'));
    const int opened = m_application->calls(text("Open")).size();
    for (const QString &location : {huge, QString()}) {
        QCOMPARE(call(s_shell, text("ActivateResult"), {location, QStringList(), 0U}).type(),
                 QDBusMessage::ReplyMessage);
        QCOMPARE(call(s_runner, text("Run"), {location, QString()}).type(), QDBusMessage::ReplyMessage);
    }
    call(s_runner, text("Run"), {s_volume, QString()});
    QTRY_COMPARE(m_application->calls(text("Open")).size(), opened + 1);
    QVERIFY(isRunning());
}

void SearchProviderTest::hostileTermsDoNoHarm_data()
{
    QTest::addColumn<QStringList>("terms");
    QTest::newRow("quotes") << QStringList(text("\"'`\\%q*[](?.)"));
    QTest::newRow("markup") << QStringList(text("<b>&amp;"));
    QTest::newRow("controls") << QStringList(text("\x01\x1b\u202e\ufeff"));
    QTest::newRow("null characters") << QStringList(text("zz") + QChar() + text("volume"));
    QTest::newRow("half a letter") << QStringList(QString(QChar(0xd800)));
    QTest::newRow("four megabytes") << QStringList(QString(4 << 20, QLatin1Char('x')));
    QStringList many;
    for (int i = 0; i < 10000; ++i) {
        many.append(QString::number(i));
    }
    QTest::newRow("ten thousand") << many;
    QTest::newRow("empty ones") << QStringList({QString(), text(" "), QString()});
}

void SearchProviderTest::hostileTermsDoNoHarm()
{
    QFETCH(QStringList, terms);
    QCOMPARE(resultsOf(terms), QStringList());
    QVERIFY(metasOf(terms).isEmpty());
    QCOMPARE(matchesOf(terms.join(QLatin1Char(' '))), QStringList());
    const QDBusMessage subsearch = call(s_shell, text("GetSubsearchResultSet"), {terms, terms});
    QCOMPARE(subsearch.type(), QDBusMessage::ReplyMessage);
    QCOMPARE(subsearch.arguments().value(0).toStringList(), QStringList());
    QCOMPARE(resultsOf({text("volume")}).size(), 2);
}

void SearchProviderTest::refusesAnInvalidRest_data()
{
    QTest::addColumn<QString>("rest");
    for (const char *rest : {"x", "", "-1", "1.5", "99999999999"}) {
        QTest::newRow(rest) << text(rest);
    }
}

void SearchProviderTest::refusesAnInvalidRest()
{
    QFETCH(QString, rest);
    QCOMPARE(failureOf({text("--rest=") + rest}), "\"" + rest.toUtf8() + "\" is not a number of milliseconds.\n");
}

void SearchProviderTest::saysThatItsNameIsTaken()
{
    QCOMPARE(resultsOf({text("volume")}).size(), 2); // the one that the bus starts
    QCOMPARE(failureOf({}),
             QByteArray("Can't search for launchers: the name org.velkasettings.Search is taken\n"));
}

void SearchProviderTest::programEndsAfterItsRest()
{
    QCOMPARE(resultsOf({text("volume")}).size(), 2);
    const QDBusConnectionInterface *const bus = QDBusConnection::sessionBus().interface();
    const QString connection = bus->serviceOwner(s_name);
    QVERIFY(!connection.isEmpty());
    QTRY_VERIFY_WITH_TIMEOUT(!bus->isServiceRegistered(connection), 30000);
    // The bus starts it again.
    QCOMPARE(resultsOf({text("volume")}).size(), 2);
}

void SearchProviderTest::callsAtTheEndOfTheRestAreAnswered()
{
    QVERIFY(installService("0"));
    QTRY_VERIFY_WITH_TIMEOUT(!isRunning(), 30000);
    const int opened = m_application->calls(text("Open")).size();
    for (int i = 1; i <= 10; ++i) {
        QCOMPARE(resultsOf({text("volume")}).size(), 2);
        QCOMPARE(call(s_runner, text("Run"), {s_volume, QString()}).errorMessage(), QString());
        QTRY_COMPARE(m_application->calls(text("Open")).size(), opened + i);
    }
}

QTEST_GUILESS_MAIN(SearchProviderTest)
#include "tst_searchprovider.moc"
