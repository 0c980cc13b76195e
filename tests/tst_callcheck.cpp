// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "actions/callcheck.h"

#include "callnames.h"
#include "dbuspeer.h"
#include "growth.h"
#include "text.h"
#include "world.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QMap>
#include <QProcess>
#include <QTest>
#include <QUrl>

#include <sys/resource.h>

namespace
{
const QString s_send = QStringLiteral("--send");

// Each takes 16 bytes in a list: the type, which is padded, and the number.
constexpr int NumbersOf16MiB = 1024 * 1024;

const QString s_tooManyArguments = QStringLiteral("There are too many arguments");
const QString s_tooDeep = QStringLiteral("The arguments are nested too deeply");
const QString s_tooLarge = QStringLiteral("The call is too large");

// libdbus only compares the beginning.
const QStringList s_reservedPaths{QStringLiteral("/org/freedesktop/DBus/Local"),
                                  QStringLiteral("/org/freedesktop/DBus/Local/below"),
                                  QStringLiteral("/org/freedesktop/DBus/LocalToo")};
const QStringList s_reservedInterfaces{QStringLiteral("org.freedesktop.DBus.Local"),
                                       QStringLiteral("org.freedesktop.DBus.Local.below"),
                                       QStringLiteral("org.freedesktop.DBus.LocalToo")};

QDBusMessage call(const QVariantList &arguments)
{
    QDBusMessage call = QDBusMessage::createMethodCall(text("com.velka.nobody"), text("/"),
                                                       text("com.velka.nobody"), text("call"));
    call.setArguments(arguments);
    return call;
}

QDBusMessage call(CallNames::Part part, const QString &value)
{
    QString names[] = {text("com.velka.nobody"), text("/"), text("com.velka.nobody"), text("call")};
    names[part] = value;
    return QDBusMessage::createMethodCall(names[CallNames::Service], names[CallNames::Path],
                                          names[CallNames::Interface], names[CallNames::Method]);
}

QVariantList copies(int count, const QVariant &value)
{
    QVariantList list;
    list.reserve(count);
    for (int i = 0; i < count; ++i) {
        list.append(value);
    }
    return list;
}

QVariant inLists(int depth, QVariant value)
{
    for (int i = 0; i < depth; ++i) {
        value = QVariantList{value};
    }
    return value;
}

QVariant inMaps(int depth, QVariant value)
{
    for (int i = 0; i < depth; ++i) {
        value = QVariantMap{{text("key"), value}};
    }
    return value;
}

// Qt passes these on to libdbus.
const QMap<QString, QDBusMessage> s_fatalCalls{
    {text("service of one part"), call(CallNames::Service, text("abc"))},
    {text("null in a map"), call({inMaps(1, QVariant::fromValue(nullptr))})},
    {text("invalid value in a map"), call({inMaps(1, QVariant())})},
    {text("null in a map in a list"), call({inLists(1, inMaps(1, QVariant::fromValue(nullptr)))})},
    {text("type of C++ in a map"), call({inMaps(1, QUrl(text("a:b")))})},
    {text("null in a hash"), call({QVariantHash{{text("key"), QVariant()}}})}};
const QString s_goodCall = text("good call");

/// Sends the call of s_fatalCalls with that @p name, or a valid call if there is none.
int send(const QString &name)
{
    const rlimit noCore{0, 0};
    setrlimit(RLIMIT_CORE, &noCore);
    QDBusConnection::sessionBus().call(s_fatalCalls.value(name, call({text("in")})));
    return 0;
}

/// Calls send() in another process.
bool endsTheProcess(const QString &name)
{
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {s_send, name});
    return process.waitForFinished() && process.exitStatus() == QProcess::CrashExit;
}

/// A connection that only this object uses, because the bus may end it.
class Connection
{
public:
    Connection()
        : m_name(text("connection %1").arg(++s_count))
        , m_bus(QDBusConnection::connectToBus(QDBusConnection::SessionBus, m_name))
    {
    }

    ~Connection()
    {
        QDBusConnection::disconnectFromBus(m_name);
    }

    /// Returns true if the call reaches the bus, which finds no receiver for it, and the connection stays.
    bool passes(const QDBusMessage &call)
    {
        return m_bus.call(call).errorName() == QDBusError::errorString(QDBusError::ServiceUnknown)
               && m_bus.isConnected();
    }

    bool isEndedBy(const QDBusMessage &call)
    {
        m_bus.call(call);
        return !m_bus.isConnected();
    }

    QDBusConnection bus()
    {
        return m_bus;
    }

private:
    static int s_count;
    const QString m_name;
    QDBusConnection m_bus;
};

int Connection::s_count = 0;
}

Q_DECLARE_METATYPE(CallNames::Part)

class CallCheckTest : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE void receive(const QVariantList &list, const QVariantMap &map);

private Q_SLOTS:
    void names_data();
    void names();
    void emptyCallIsLeftToQt();
    void refusedCallsEndTheProcess_data();
    void refusedCallsEndTheProcess();
    void goodCallDoesNotEndTheProcess();
    void reservedNamesEndTheConnection();
    void acceptsArguments_data();
    void acceptsArguments();
    void refusesArguments_data();
    void refusesArguments();
    void refusesNulls_data();
    void refusesNulls();
    void refusesOtherTypesInMapsOnly();
    void tooDeepArgumentsEndTheConnection_data();
    void tooDeepArgumentsEndTheConnection();
    void deepestArgumentsArrive();
    void sizeIsThatOfTheBytes();
    void hugePathIsRefused();
    void isLinearInElements();
    void isLinearInKeys();

private:
    QVariantList m_received;
};

void CallCheckTest::receive(const QVariantList &list, const QVariantMap &map)
{
    m_received = {unwrapped(list), unwrapped(map)};
}

void CallCheckTest::names_data()
{
    QTest::addColumn<CallNames::Part>("part");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isRefused");
    for (const CallNames::Name &name : CallNames::all()) {
        for (int i = 0; i < CallNames::PartCount; ++i) {
            const auto part = CallNames::Part(i);
            QTest::addRow("%s: %s", CallNames::title(part), name.title.constData())
                << part << name.value << (name.outcomes[part] == CallNames::Outcome::RefusedBefore);
        }
    }
}

void CallCheckTest::names()
{
    QFETCH(CallNames::Part, part);
    QFETCH(QString, name);
    QFETCH(bool, isRefused);
    const QDBusError error = validateCall(call(part, name));
    QCOMPARE(error.type(), isRefused ? QDBusError::InvalidArgs : QDBusError::NoError);
    QCOMPARE(error.message().isEmpty(), !isRefused);
}

void CallCheckTest::emptyCallIsLeftToQt()
{
    QVERIFY(!validateCall(QDBusMessage()).isValid());
}

void CallCheckTest::refusedCallsEndTheProcess_data()
{
    QTest::addColumn<QString>("name");
    for (auto it = s_fatalCalls.cbegin(); it != s_fatalCalls.cend(); ++it) {
        QTest::newRow(qPrintable(it.key())) << it.key();
    }
}

void CallCheckTest::refusedCallsEndTheProcess()
{
    QFETCH(QString, name);
    QCOMPARE(validateCall(s_fatalCalls.value(name)).type(), QDBusError::InvalidArgs);
    QVERIFY(endsTheProcess(name));
}

// Sends another call in the same way, so that the test above cannot succeed for another reason.
void CallCheckTest::goodCallDoesNotEndTheProcess()
{
    QVERIFY(!endsTheProcess(s_goodCall));
}

void CallCheckTest::reservedNamesEndTheConnection()
{
    for (const QString &path : s_reservedPaths) {
        QVERIFY2(Connection().isEndedBy(call(CallNames::Path, path)), qPrintable(path));
    }
    for (const QString &interface : s_reservedInterfaces) {
        QVERIFY2(Connection().isEndedBy(call(CallNames::Interface, interface)), qPrintable(interface));
    }
}

void CallCheckTest::acceptsArguments_data()
{
    QTest::addColumn<QVariantList>("arguments");
    const auto row = [](const char *title, const QVariantList &arguments) { QTest::newRow(title) << arguments; };
    row("none", {});
    row("255 of one character", copies(255, true));
    row("127 lists and a string", copies(127, QVariantList{true}) + QVariantList{text("a")});
    row("51 maps", copies(51, QVariantMap()));
    row("10,000 elements", {QVariant(copies(10000, 1.0))});
    row("10,000 lists in a list", {QVariant(copies(10000, QVariantList{true}))});
    row("lists 32 deep", {inLists(32, true)});
    row("lists 33 deep, the last one empty", {inLists(33 - 1, QVariantList())});
    row("maps 21 deep", {inMaps(21, true)});
    row("maps 22 deep, the last one empty", {inMaps(22 - 1, QVariantMap())});
    row("an empty list in maps 21 deep", {inMaps(21, QVariantList())});
    row("lists 2 deep in maps 20 deep", {inMaps(20, inLists(2, text("in")))});
    row("maps 20 deep in lists 2 deep", {inLists(2, inMaps(20, text("in")))});
    row("255 deep ones", copies(51, inMaps(21, true)));
    row("hostile strings",
        {QString(QChar(0xd800)), QString(QChar(0xfffe)), QString(QChar(QChar::Null)),
         QVariantMap{{QString(QChar(0xdc00)), true}, {QString(QChar(0xffff)), true}, {QString(), true}}});
    row("16 MiB of numbers less one", {QVariant(copies(NumbersOf16MiB - 1, 1.0))});
    row("16 MiB less 1 KiB", {QString(16 * 1024 * 1024 - 1024, QLatin1Char('x'))});
}

void CallCheckTest::acceptsArguments()
{
    QFETCH(QVariantList, arguments);
    const QDBusMessage message = call(arguments);
    // Checks the test's own criterion first.
    QVERIFY(Connection().passes(message));
    QVERIFY2(!validateCall(message).isValid(), qPrintable(validateCall(message).message()));
}

void CallCheckTest::refusesArguments_data()
{
    QTest::addColumn<QVariantList>("arguments");
    QTest::addColumn<QString>("error");
    const auto row = [](const char *title, const QString &error, const QVariantList &arguments) {
        QTest::newRow(title) << arguments << error;
    };
    row("256 of one character", s_tooManyArguments, copies(256, true));
    row("128 lists", s_tooManyArguments, copies(128, QVariantList{true}));
    row("51 maps and a string", s_tooManyArguments, copies(51, QVariantMap()) + QVariantList{text("a")});
    row("10,000 arguments", s_tooManyArguments, copies(10000, 1.0));
    row("10,000 lists", s_tooManyArguments, copies(10000, QVariantList()));
    row("lists 33 deep", s_tooDeep, {inLists(33, true)});
    row("lists 34 deep, the last one empty", s_tooDeep, {inLists(34 - 1, QVariantList())});
    row("maps 22 deep", s_tooDeep, {inMaps(22, true)});
    row("maps 23 deep, the last one empty", s_tooDeep, {inMaps(23 - 1, QVariantMap())});
    row("a list in maps 21 deep", s_tooDeep, {inMaps(21, inLists(1, true))});
    row("lists 3 deep in maps 20 deep", s_tooDeep, {inMaps(20, inLists(3, true))});
    row("maps 20 deep in lists 3 deep", s_tooDeep, {inLists(3, inMaps(20, true))});
    row("a deep one behind flat ones", s_tooDeep,
        {true, QVariantList{1.0, QVariantMap(), inLists(32, true), 2.0}});
    row("a deep one as the first of two", s_tooDeep, {inLists(33, true), true});
    row("lists 400 deep", s_tooDeep, {inLists(400, true)});
    row("maps 400 deep", s_tooDeep, {inMaps(400, true)});
    row("16 MiB", s_tooLarge, {QString(16 * 1024 * 1024, QLatin1Char('x'))});
    row("40 MiB", s_tooLarge, {QString(40 * 1024 * 1024, QLatin1Char('x'))});
    row("two strings of 9 MiB", s_tooLarge, copies(2, QString(9 * 1024 * 1024, QLatin1Char('x'))));
    row("a string of 17 MiB in a list", s_tooLarge, {inLists(2, QString(17 * 1024 * 1024, QLatin1Char('x')))});
    row("a key of 17 MiB", s_tooLarge, {QVariantMap{{QString(17 * 1024 * 1024, QLatin1Char('x')), true}}});
    row("16 MiB of numbers", s_tooLarge, {QVariant(copies(NumbersOf16MiB, 1.0))});
}

void CallCheckTest::refusesArguments()
{
    QFETCH(QVariantList, arguments);
    const QDBusError refusal = validateCall(call(arguments));
    QCOMPARE(refusal.name(), text("org.freedesktop.DBus.Error.InvalidArgs"));
    QTEST(refusal.message(), "error");
}

void CallCheckTest::refusesNulls_data()
{
    QTest::addColumn<QVariantList>("arguments");
    for (const QVariant &null : {QVariant::fromValue(nullptr), QVariant()}) {
        const char *type = null.isValid() ? "null" : "invalid";
        QTest::addRow("%s", type) << QVariantList{null};
        QTest::addRow("%s behind others", type) << QVariantList{true, text("in"), null};
        QTest::addRow("%s in a list", type) << QVariantList{QVariantList{true, null}};
        QTest::addRow("%s in a map", type) << QVariantList{inMaps(1, null)};
        QTest::addRow("%s in maps 2 deep", type) << QVariantList{inMaps(2, null)};
        QTest::addRow("%s in a map in a list", type) << QVariantList{inLists(1, inMaps(1, null))};
        QTest::addRow("%s in a list in a map", type) << QVariantList{inMaps(1, inLists(1, null))};
        QTest::addRow("%s beside others", type)
            << QVariantList{QVariantMap{{text("a"), true}, {text("b"), null}, {text("c"), true}}};
    }
}

void CallCheckTest::refusesNulls()
{
    QFETCH(QVariantList, arguments);
    QCOMPARE(validateCall(call(arguments)).message(), text("The arguments hold a null"));
}

// Files hold no such values, but data of a program may. In a map they end the process, elsewhere Qt refuses them.
void CallCheckTest::refusesOtherTypesInMapsOnly()
{
    const QVariant url = QUrl(text("a:b"));
    QCOMPARE(validateCall(call({inMaps(1, url)})).message(), text("A map holds a value that cannot be sent"));
    QVERIFY(!validateCall(call({url})).isValid());
    QVERIFY(!validateCall(call({inLists(1, url)})).isValid());
    QVERIFY(!validateCall(call({inMaps(1, QStringList(text("in")))})).isValid());
}

void CallCheckTest::tooDeepArgumentsEndTheConnection_data()
{
    QTest::addColumn<QVariant>("argument");
    QTest::newRow("lists 33 deep") << inLists(33, true);
    QTest::newRow("lists 34 deep, the last one empty") << inLists(34 - 1, QVariantList());
    QTest::newRow("maps 22 deep") << inMaps(22, true);
    QTest::newRow("a list in maps 21 deep") << inMaps(21, inLists(1, true));
    QTest::newRow("lists 3 deep in maps 20 deep") << inMaps(20, inLists(3, true));
    QTest::newRow("maps 20 deep in lists 3 deep") << inLists(3, inMaps(20, true));
}

void CallCheckTest::tooDeepArgumentsEndTheConnection()
{
    QFETCH(QVariant, argument);
    const QDBusMessage message = call({argument});
    QVERIFY(validateCall(message).isValid());
    QVERIFY(Connection().isEndedBy(message));
}

void CallCheckTest::deepestArgumentsArrive()
{
    const QVariantList arguments{inLists(32, text("in lists")), inMaps(21, text("in maps"))};
    Connection sender;
    Connection receiver;
    QVERIFY(receiver.bus().registerObject(text("/"), this, QDBusConnection::ExportAllInvokables));
    QDBusMessage message = QDBusMessage::createMethodCall(receiver.bus().baseService(), text("/"), {},
                                                          text("receive"));
    message.setArguments(arguments);
    QVERIFY(!validateCall(message).isValid());
    sender.bus().asyncCall(message);
    QTRY_COMPARE(m_received, arguments);
    QVERIFY(sender.bus().isConnected());
    QVERIFY(receiver.bus().isConnected());
}

void CallCheckTest::sizeIsThatOfTheBytes()
{
    const int length = 9 * 1024 * 1024;
    QVERIFY(!validateCall(call({QString(length, QLatin1Char('u'))})).isValid());
    QCOMPARE(validateCall(call({QString(length, QChar(0xfc))})).message(), s_tooLarge);
}

void CallCheckTest::hugePathIsRefused()
{
    QVERIFY(!validateCall(call(CallNames::Path, text("/") + QString(1024 * 1024, QLatin1Char('a')))).isValid());
    QCOMPARE(
        validateCall(call(CallNames::Path, text("/") + QString(17 * 1024 * 1024, QLatin1Char('a')))).message(),
        s_tooLarge);
}

void CallCheckTest::isLinearInElements()
{
    QVERIFY(Growth::isLinear(
        [](int size) {
            const QDBusMessage message = call({QVariant(copies(size, QVariantList{true}))});
            CpuTimer timer;
            timer.start();
            return validateCall(message).isValid() ? -1 : timer.nsecsElapsed();
        },
        30000));
}

void CallCheckTest::isLinearInKeys()
{
    QVERIFY(Growth::isLinear(
        [](int size) {
            QVariantMap map;
            for (int i = 0; i < size; ++i) {
                map.insert(QString::number(i), text("value"));
            }
            const QDBusMessage message = call({map});
            CpuTimer timer;
            timer.start();
            return validateCall(message).isValid() ? -1 : timer.nsecsElapsed();
        },
        20000));
}

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 3 && arguments[1] == s_send) {
        return send(arguments[2]);
    }
    CallCheckTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_callcheck.moc"
