// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "actions/quickactionreader.h"

#include "callnames.h"
#include "messagelog.h"
#include "quickactions.h"
#include "text.h"

#include <QDBusConnection>
#include <QTest>

#include <memory>

using namespace QuickActions;
using CallNames::Outcome;
using CallNames::Part;

Q_DECLARE_METATYPE(CallNames::Outcome)
Q_DECLARE_METATYPE(CallNames::Part)

namespace
{
const char *const s_keys[] = {"remote-service", "remote-path", "remote-interface", "remote-method"};

QString refusal(Part part)
{
    return part == Part::Service ? text("The name of the service has no dot")
                                 : text("The path or the interface is reserved");
}

QString errorOfQt(Part part, const QString &name)
{
    switch (part) {
    case Part::Service:
        return text("org.qtproject.QtDBus.Error.InvalidService Invalid service name: ") + name;
    case Part::Path:
        return text("org.qtproject.QtDBus.Error.InvalidObjectPath ")
               + (name.isEmpty() ? text("Object path cannot be empty") : text("Invalid object path: ") + name);
    case Part::Interface:
        return text("org.qtproject.QtDBus.Error.InvalidInterface Invalid interface class: ") + name;
    case Part::Method:
        return text("org.qtproject.QtDBus.Error.InvalidMember ")
               + (name.isEmpty() ? text("method name cannot be empty") : text("Invalid method name: ") + name);
    }
    return {};
}

/// Returns the error of the bus for a call of @p service, which does not exist.
QString errorOfBus(const QString &service)
{
    if (service.isEmpty()) { // such a call is for the bus itself
        return text("org.freedesktop.DBus.Error.UnknownMethod Method \"act\" with signature \"\" on interface "
                    "\"com.velka.interface\" doesn't exist\n");
    }
    return text("org.freedesktop.DBus.Error.ServiceUnknown The name %1 was not provided by any .service files")
        .arg(service);
}

/// Returns the reader's messages so far, without Qt's own message for each call that it refuses.
QStringList takeMessages(const MessageLog &log)
{
    return log.take().filter(text("QML QuickActionReader: "));
}
}

/// The calls that are sent, and the messages for others. None of them ends the process or the connection.
class QuickActionCallsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void cleanupTestCase();

    void names_data();
    void names();
    void severalBadNames_data();
    void severalBadNames();
    void refusesArguments_data();
    void refusesArguments();
    void nullTextIsSent();

private:
    std::unique_ptr<Target> m_target;
    int m_callCount = 0;
};

void QuickActionCallsTest::initTestCase()
{
    m_target = std::make_unique<Target>();
}

/// Checks that a valid call still arrives, and only this one.
void QuickActionCallsTest::cleanup()
{
    const MessageLog log;
    QVERIFY(QDBusConnection::sessionBus().isConnected());
    QuickActionReader reader(nullptr);
    reader.trigger(actionOf(s_service));
    settle();
    QCOMPARE(m_target->calls().size(), ++m_callCount);
    settle();
    QCOMPARE(log.take(), QStringList());
}

void QuickActionCallsTest::cleanupTestCase()
{
    m_target.reset();
}

void QuickActionCallsTest::names_data()
{
    QTest::addColumn<Part>("part");
    QTest::addColumn<QString>("name");
    QTest::addColumn<Outcome>("outcome");
    for (const CallNames::Name &name : CallNames::all()) {
        for (int i = 0; i < CallNames::PartCount; ++i) {
            const auto part = Part(i);
            QTest::addRow("%s: %s", CallNames::title(part), name.title.constData())
                << part << name.value << name.outcomes[part];
        }
    }
}

void QuickActionCallsTest::names()
{
    QFETCH(Part, part);
    QFETCH(QString, name);
    QFETCH(Outcome, outcome);
    const QVariantMap action = with(actionOf(s_missing), s_keys[part], name);
    const MessageLog log;
    QuickActionReader reader(nullptr);
    reader.trigger(action);
    QStringList expected;
    if (outcome == Outcome::RefusedBefore) {
        expected.append(queueFailure(action, refusal(part)));
    }
    QCOMPARE(takeMessages(log), expected);
    settleFailures();
    if (outcome == Outcome::RefusedByQt) {
        expected.append(failure(action, errorOfQt(part, name)));
    } else if (outcome == Outcome::Sent) {
        expected.append(failure(action, errorOfBus(action.value(text("remote-service")).toString())));
    } else {
        expected.clear();
    }
    QCOMPARE(takeMessages(log), expected);
}

void QuickActionCallsTest::severalBadNames_data()
{
    QTest::addColumn<QVariantMap>("action");
    QTest::addColumn<QString>("error");
    QTest::newRow("no names") << QVariantMap() << errorOfQt(Part::Path, {});
    QTest::newRow("percent signs") << QVariantMap{{text("remote-service"), text("%2")},
                                                  {text("remote-path"), text("%1")},
                                                  {text("remote-interface"), text("%6 %5")},
                                                  {text("remote-method"), text("%5%1")}}
                                   << errorOfQt(Part::Service, text("%2"));
    QTest::newRow("number as service") << with(actionOf(s_service), "remote-service", 1.0)
                                       << errorOfQt(Part::Service, text("1"));
    QTest::newRow("list as path") << with(actionOf(s_service), "remote-path", QVariantList{text("/")})
                                  << errorOfQt(Part::Path, {});
}

void QuickActionCallsTest::severalBadNames()
{
    QFETCH(QVariantMap, action);
    QFETCH(QString, error);
    const MessageLog log;
    QuickActionReader reader(nullptr);
    reader.trigger(action);
    QCOMPARE(takeMessages(log), QStringList());
    settleFailures();
    QCOMPARE(takeMessages(log), QStringList(failure(action, error)));
}

void QuickActionCallsTest::refusesArguments_data()
{
    QTest::addColumn<QVariantList>("arguments");
    QTest::addColumn<QString>("error");
    const auto row = [](const char *title, const char *error, const QVariantList &arguments) {
        QTest::newRow(title) << arguments << text(error);
    };
    QVariantList numbers;
    for (int i = 0; i < 10000; ++i) {
        numbers.append(double(i));
    }
    row("10,000", "There are too many arguments", numbers);
    row("400 deep", "The arguments are nested too deeply", {inLists(400, true)});
    row("40 MiB", "The call is too large", {QString(40 * 1024 * 1024, QLatin1Char('x'))});
    const QVariant null = QVariant::fromValue(nullptr);
    row("null", "The arguments hold a null", {null});
    row("null last", "The arguments hold a null", {1.0, text("a"), null});
    row("null in a list", "The arguments hold a null", {QVariantList{1.0, null}});
    row("null in a map", "The arguments hold a null", {QVariantMap{{text("key"), null}}});
    row("invalid", "The arguments hold a null", {QVariant()});
}

void QuickActionCallsTest::refusesArguments()
{
    QFETCH(QVariantList, arguments);
    QFETCH(QString, error);
    const QVariantMap action = with(actionOf(s_service), "remote-arguments", arguments);
    const MessageLog log;
    QuickActionReader reader(nullptr);
    reader.trigger(action);
    QCOMPARE(log.take(), QStringList(queueFailure(action, error)));
    settleFailures();
    QCOMPARE(log.take(), QStringList());
}

// A text that was never set is an empty text, not a null.
void QuickActionCallsTest::nullTextIsSent()
{
    Target target(s_missing, {}, text("s"));
    const MessageLog log;
    QuickActionReader reader(nullptr);
    reader.trigger(with(actionOf(s_missing), "remote-arguments", QVariantList{QString()}));
    settle();
    QCOMPARE(target.calls(), (QList<QVariantList>{{text("s"), text("")}}));
    QCOMPARE(log.take(), QStringList());
}

QTEST_GUILESS_MAIN(QuickActionCallsTest)
#include "tst_quickactioncalls.moc"
