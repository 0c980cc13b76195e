// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "common/logtext.h"

#include "actions/quickactionreader.h"
#include "applications/pendingreply.h"
#include "messagelog.h"
#include "models/favoritesmodel.h"
#include "printable.h"
#include "quickactions.h"
#include "registry/pluginregistry.h"
#include "text.h"
#include "world.h"

#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLoggingCategory>
#include <QTest>

#include <algorithm>

// What strangers name or write cannot forge lines of the log.
class LogTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void escapes_data();
    void escapes();
    void json_data();
    void json();
    void ordinaryTexts();
    void fileNames_data();
    void fileNames();
    void groups_data();
    void groups();
    void infoMessages_data();
    void infoMessages();
    void favorites_data();
    void favorites();
    void pathIsPrintedAsList();
    void actions_data();
    void actions();
    void errorsOfServices_data();
    void errorsOfServices();
};

namespace
{
const QString s_category = QStringLiteral("org.orvantaos.settings.framework");

/// QString::fromUcs4() takes U+FEFF as a mark of the byte order.
QString stringOf(char32_t character)
{
    return QChar::requiresSurrogates(character)
               ? QString(QChar(QChar::highSurrogate(character))) + QChar(QChar::lowSurrogate(character))
               : QString(QChar(ushort(character)));
}

void characters()
{
    QTest::addColumn<QString>("character");
    for (const char32_t character :
         {0x01,   0x07,   0x08,   0x09,   0x0a,   0x0d,   0x1b,   0x7f,   0x85,   0x9b,
          0xad,   0x061c, 0x200b, 0x200e, 0x200f, 0x2028, 0x2029, 0x202a, 0x202b, 0x202c,
          0x202d, 0x202e, 0x2066, 0x2067, 0x2068, 0x2069, 0xfeff, 0xe0001}) {
        QTest::addRow("U+%04X", uint(character)) << stringOf(character);
    }
}

bool isVisible(const QString &text)
{
    const QVector<uint> characters = text.toUcs4();
    return std::none_of(characters.cbegin(), characters.cend(), [](uint character) {
        const QChar::Category category = QChar::category(character);
        return category == QChar::Other_Control || category == QChar::Other_Format
               || category == QChar::Separator_Line || category == QChar::Separator_Paragraph;
    });
}

/// The first of @p messages that is not visible, or has nothing in it from before and after the character.
QString unsound(const QStringList &messages)
{
    const auto found = std::find_if(messages.cbegin(), messages.cend(), [](const QString &message) {
        return !isVisible(message) || !message.contains(text("be\\")) || !message.contains(text("fore"));
    });
    return found == messages.cend() ? QString() : printable(*found);
}

QString hostile()
{
    QFETCH(QString, character);
    return text("be") + character + text("fore");
}

QByteArray jsonOf(const QJsonObject &object)
{
    return QJsonDocument(object).toJson();
}
}

void LogTextTest::init()
{
    World::reset();
}

void LogTextTest::cleanup()
{
    QLoggingCategory::setFilterRules({});
}

void LogTextTest::escapes_data()
{
    characters();
}

void LogTextTest::escapes()
{
    QVERIFY(isVisible(printable(hostile())));
    QVERIFY(isVisible(quoted(hostile()).text));
    QVERIFY(isVisible(quoted(QStringList{hostile()}).text));
    QVERIFY(isVisible(unquoted(hostile()).text));
    QVERIFY(isVisible(quoted(QVariantMap{{hostile(), hostile()}}).text));
}

void LogTextTest::json_data()
{
    characters();
}

void LogTextTest::json()
{
    const QJsonObject object{{hostile(), QJsonObject{{text("a"), hostile()}}}};
    const QByteArray json = printableJson(jsonOf(object));
    QString visible = QString::fromUtf8(json);
    visible.remove(QLatin1Char('\n')); // of the layout
    QVERIFY(isVisible(visible));
    QCOMPARE(QJsonDocument::fromJson(json).object(), object);
}

void LogTextTest::ordinaryTexts()
{
    const QString ordinary = QString::fromUtf8("a \"b\" \\ é € שלום 🐧.json");
    QCOMPARE(printable(ordinary), ordinary);
    QCOMPARE(unquoted(ordinary).text, ordinary);
    QString printed;
    QDebug(&printed) << quoted(ordinary) << 1 << quoted(QStringList{text("a"), text("b")})
                     << quoted(QStringList());
    QString byQt;
    QDebug(&byQt) << ordinary << 1 << QStringList{text("a"), text("b")} << QStringList();
    QCOMPARE(printed, byQt);
    const QByteArray json = jsonOf({{ordinary, 1}});
    QCOMPARE(printableJson(json), json);
}

void LogTextTest::fileNames_data()
{
    characters();
}

void LogTextTest::fileNames()
{
    const QString name = hostile() + text(".json");
    const MessageLog log;
    for (const char *content : {"", "[]", "{\"entries\": [0]}"}) {
        World::writeEntries(name, content);
        const PluginRegistry registry;
    }
    PluginRegistry().addEntriesForFile(hostile());
    QStringList messages = log.take();
    QCOMPARE(messages.size(), 5);
    QCOMPARE(unsound(messages), QString());
}

void LogTextTest::groups_data()
{
    characters();
}

void LogTextTest::groups()
{
    World::writeEntries(text("x.json"), jsonOf({{text("required_group"), hostile()}}));
    QLoggingCategory::setFilterRules(s_category + text(".debug=true"));
    const MessageLog log;
    const PluginRegistry registry;
    const QStringList messages = log.take().filter(text("debug"));
    QCOMPARE(messages.size(), 1);
    QCOMPARE(unsound(messages), QString());
}

void LogTextTest::infoMessages_data()
{
    characters();
}

void LogTextTest::infoMessages()
{
    const QJsonObject entry{{text("path"), hostile()}, {text("title"), hostile()}};
    World::writeEntries(hostile() + text(".json"), jsonOf({{text("entries"), QJsonArray{entry}}}));
    QLoggingCategory::setFilterRules(s_category + text(".info=true"));
    const MessageLog log;
    const PluginRegistry registry;
    QVERIFY(registry.getItem({hostile()}));
    const QStringList messages = log.take();
    QCOMPARE(messages.size(), 3); // the file, the tree, the look-up
    QCOMPARE(unsound(messages), QString());
}

void LogTextTest::favorites_data()
{
    characters();
}

void LogTextTest::favorites()
{
    FavoritesModel model;
    const MessageLog log;
    model.setFilter({hostile()});
    model.setPath({hostile()});
    const QStringList messages = log.take();
    QCOMPARE(messages.size(), 2);
    QCOMPARE(unsound(messages), QString());
}

void LogTextTest::pathIsPrintedAsList()
{
    FavoritesModel model;
    const MessageLog log;
    model.setPath({text("a"), text("b")});
    QCOMPARE(log.take(),
             QStringList{text("warning ") + s_category + text(": FavoritesModel: path not found (\"a\", \"b\")")});
}

void LogTextTest::actions_data()
{
    characters();
}

// QtDBus logs invalid names, too, as they are.
void LogTextTest::actions()
{
    using namespace QuickActions;
    const MessageLog log;
    QuickActionReader reader(nullptr);
    for (const char *key : {"remote-service", "remote-path", "remote-interface", "remote-method"}) {
        reader.trigger(with(actionOf(text("com.velka.nowhere")), key, hostile()));
    }
    QStringList messages;
    QTRY_COMPARE((messages += log.take().filter(text("info default"))).size(), 4);
    QCOMPARE(unsound(messages), QString());
}

void LogTextTest::errorsOfServices_data()
{
    characters();
}

void LogTextTest::errorsOfServices()
{
    const QDBusError error(QDBusMessage::createError(hostile(), hostile()));
    const MessageLog log;
    fetch<QStringList>(PlatformServiceName::Autostart, QDBusPendingCall::fromError(error), this,
                       text("Failed. Error:"), [](const auto &) {});
    QStringList messages;
    QTRY_COMPARE((messages += log.take()).size(), 1);
    QCOMPARE(unsound(messages), QString());
}

QTEST_GUILESS_MAIN(LogTextTest)
#include "tst_logtext.moc"
