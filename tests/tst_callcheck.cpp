// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "actions/callcheck.h"

#include "dbuspeer.h"
#include "growth.h"
#include "text.h"
#include "world.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QTest>

namespace
{
const QString s_tooManyArguments = QStringLiteral("There are too many arguments");
const QString s_tooDeep = QStringLiteral("The arguments are nested too deeply");
const QString s_tooLarge = QStringLiteral("The call is too large");

// libdbus looks at the beginning only.
const QStringList s_reservedPaths{QStringLiteral("/org/freedesktop/DBus/Local"),
                                  QStringLiteral("/org/freedesktop/DBus/Local/below"),
                                  QStringLiteral("/org/freedesktop/DBus/LocalToo")};
const QStringList s_reservedInterfaces{QStringLiteral("org.freedesktop.DBus.Local"),
                                       QStringLiteral("org.freedesktop.DBus.Local.below"),
                                       QStringLiteral("org.freedesktop.DBus.LocalToo")};

enum class Name { Service, Path, Interface, Member };

QDBusMessage call(const QVariantList &arguments)
{
    QDBusMessage call = QDBusMessage::createMethodCall(text("com.velka.nobody"), text("/"),
                                                       text("com.velka.nobody"), text("call"));
    call.setArguments(arguments);
    return call;
}

QDBusMessage call(Name name, const QString &value)
{
    const auto nameOr = [&](Name other, const char *usual) { return name == other ? value : text(usual); };
    return QDBusMessage::createMethodCall(nameOr(Name::Service, "com.velka.nobody"), nameOr(Name::Path, "/"),
                                          nameOr(Name::Interface, "com.velka.nobody"),
                                          nameOr(Name::Member, "call"));
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

QString longName(int length)
{
    return text("a.") + QString(length - 2, QLatin1Char('b'));
}

/// A connection that only this object uses: the bus may end it.
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

    /// Whether the call comes to the bus, which finds no receiver for it and goes on.
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

Q_DECLARE_METATYPE(Name)

class CallCheckTest : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE void receive(const QVariantList &list, const QVariantMap &map);

private Q_SLOTS:
    void acceptsNames_data();
    void acceptsNames();
    void refusesNames_data();
    void refusesNames();
    void emptyCallIsRefused();
    void reservedNamesEndTheConnection();
    void acceptsArguments_data();
    void acceptsArguments();
    void refusesArguments_data();
    void refusesArguments();
    void refusesMapsWithoutValue_data();
    void refusesMapsWithoutValue();
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

void CallCheckTest::acceptsNames_data()
{
    QTest::addColumn<Name>("name");
    QTest::addColumn<QString>("value");
    const auto row = [](const char *title, Name name, const QString &value) {
        QTest::newRow(title) << name << value;
    };
    row("service with two parts", Name::Service, text("a.b"));
    row("service of 255 characters", Name::Service, longName(255));
    row("service with dashes and digits", Name::Service, text("_com.-velka.x1"));
    row("unique service", Name::Service, text(":1.4242"));
    row("service with the reserved interface's name", Name::Service, text("org.freedesktop.DBus.Local"));
    row("root", Name::Path, text("/"));
    row("path that begins with digits", Name::Path, text("/1/_/a2"));
    row("path of 256 characters", Name::Path, text("/a") + QString(254, QLatin1Char('b')));
    row("path above the reserved one", Name::Path, text("/org/freedesktop/DBus"));
    row("null interface", Name::Interface, QString());
    row("empty interface", Name::Interface, text(""));
    row("interface with two parts", Name::Interface, text("a.b"));
    row("interface of 255 characters", Name::Interface, longName(255));
    row("interface with digits", Name::Interface, text("_a.b2"));
    row("interface above the reserved one", Name::Interface, text("org.freedesktop.DBus"));
    row("member of one character", Name::Member, text("m"));
    row("member of 255 characters", Name::Member, QString(255, QLatin1Char('m')));
    row("member with digits", Name::Member, text("_m2"));
}

void CallCheckTest::acceptsNames()
{
    QFETCH(Name, name);
    QFETCH(QString, value);
    const QDBusMessage message = call(name, value);
    QVERIFY2(!objectionTo(message).isValid(), qPrintable(objectionTo(message).message()));
    QVERIFY(Connection().passes(message));
}

void CallCheckTest::refusesNames_data()
{
    QTest::addColumn<Name>("name");
    QTest::addColumn<QString>("value");
    const QString nullInside = QString::fromLatin1("a.b\0c", 5);
    const QString nonAscii = QStringLiteral(u"a.\u00e4");
    const QString surrogate = text("a.b") + QChar(0xd800);
    const auto row = [](const char *title, Name name, const QString &value) {
        QTest::newRow(title) << name << value;
    };

    row("null service", Name::Service, QString());
    row("empty service", Name::Service, text(""));
    row("service with one part", Name::Service, text("service"));
    row("service of 256 characters", Name::Service, longName(256));
    row("service with a digit first", Name::Service, text("a.1b"));
    row("service with an empty part", Name::Service, text("a..b"));
    row("service with a dot first", Name::Service, text(".a.b"));
    row("service with a dot last", Name::Service, text("a.b."));
    row("service with a blank", Name::Service, text("a.b c"));
    row("service with a slash", Name::Service, text("a.b/c"));
    row("service with non-ASCII", Name::Service, nonAscii);
    row("service with a lone surrogate", Name::Service, surrogate);
    row("service with null", Name::Service, nullInside);
    row("service with null last", Name::Service, QString::fromLatin1("a.b\0", 4));

    row("null path", Name::Path, QString());
    row("empty path", Name::Path, text(""));
    row("path without a slash", Name::Path, text("a/b"));
    row("path with a slash last", Name::Path, text("/a/"));
    row("path with two slashes", Name::Path, text("/a//b"));
    row("path of two slashes", Name::Path, text("//"));
    row("path with a dash", Name::Path, text("/a-b"));
    row("path with a dot", Name::Path, text("/a.b"));
    row("path with a blank", Name::Path, text("/a b"));
    row("path with non-ASCII", Name::Path, QStringLiteral(u"/\u00e4"));
    row("path with a lone surrogate", Name::Path, text("/a") + QChar(0xd800));
    row("path with null", Name::Path, QString::fromLatin1("/a\0b", 4));
    for (const QString &path : s_reservedPaths) {
        row(qPrintable(path), Name::Path, path);
    }

    row("interface with one part", Name::Interface, text("interface"));
    row("interface of 256 characters", Name::Interface, longName(256));
    row("interface with a dash", Name::Interface, text("a.b-c"));
    row("interface with a digit first", Name::Interface, text("a.1b"));
    row("interface with an empty part", Name::Interface, text("a..b"));
    row("interface with a dot first", Name::Interface, text(".a.b"));
    row("interface with a dot last", Name::Interface, text("a.b."));
    row("interface with a colon", Name::Interface, text(":1.b"));
    row("interface with non-ASCII", Name::Interface, nonAscii);
    row("interface with null", Name::Interface, nullInside);
    row("interface of null alone", Name::Interface, QString(QChar(QChar::Null)));
    for (const QString &interface : s_reservedInterfaces) {
        row(qPrintable(interface), Name::Interface, interface);
    }

    row("null member", Name::Member, QString());
    row("empty member", Name::Member, text(""));
    row("member of 256 characters", Name::Member, QString(256, QLatin1Char('m')));
    row("member with a dot", Name::Member, text("a.b"));
    row("member with a dash", Name::Member, text("a-b"));
    row("member with a blank", Name::Member, text("a b"));
    row("member with a digit first", Name::Member, text("1m"));
    row("member with non-ASCII", Name::Member, QStringLiteral(u"m\u00e4"));
    row("member with null", Name::Member, QString::fromLatin1("m\0", 2));
}

void CallCheckTest::refusesNames()
{
    QFETCH(Name, name);
    QFETCH(QString, value);
    const QDBusError objection = objectionTo(call(name, value));
    QCOMPARE(objection.name(), text("org.freedesktop.DBus.Error.InvalidArgs"));
    QVERIFY(!objection.message().isEmpty());
}

void CallCheckTest::emptyCallIsRefused()
{
    QCOMPARE(objectionTo(QDBusMessage()).type(), QDBusError::InvalidArgs);
}

void CallCheckTest::reservedNamesEndTheConnection()
{
    for (const QString &path : s_reservedPaths) {
        QVERIFY2(Connection().isEndedBy(call(Name::Path, path)), qPrintable(path));
    }
    for (const QString &interface : s_reservedInterfaces) {
        QVERIFY2(Connection().isEndedBy(call(Name::Interface, interface)), qPrintable(interface));
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
    row("16 MiB less 1 KiB", {QString(16 * 1024 * 1024 - 1024, QLatin1Char('x'))});
}

void CallCheckTest::acceptsArguments()
{
    QFETCH(QVariantList, arguments);
    const QDBusMessage message = call(arguments);
    // First, for this is what the check is measured by
    QVERIFY(Connection().passes(message));
    QVERIFY2(!objectionTo(message).isValid(), qPrintable(objectionTo(message).message()));
}

void CallCheckTest::refusesArguments_data()
{
    QTest::addColumn<QVariantList>("arguments");
    QTest::addColumn<QString>("objection");
    const auto row = [](const char *title, const QString &objection, const QVariantList &arguments) {
        QTest::newRow(title) << arguments << objection;
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
    row("a million numbers", s_tooLarge, {QVariant(copies(1000000, 1.0))});
}

void CallCheckTest::refusesArguments()
{
    QFETCH(QVariantList, arguments);
    QFETCH(QString, objection);
    const QDBusError error = objectionTo(call(arguments));
    QCOMPARE(error.name(), text("org.freedesktop.DBus.Error.InvalidArgs"));
    QCOMPARE(error.message(), objection);
}

void CallCheckTest::refusesMapsWithoutValue_data()
{
    QTest::addColumn<QVariant>("argument");
    for (const QVariant &nothing : {QVariant::fromValue(nullptr), QVariant()}) {
        const char *type = nothing.isValid() ? "null" : "invalid";
        QTest::addRow("%s in a map", type) << inMaps(1, nothing);
        QTest::addRow("%s in maps 2 deep", type) << inMaps(2, nothing);
        QTest::addRow("%s in a map in a list", type) << inLists(1, inMaps(1, nothing));
        QTest::addRow("%s in a list in a map", type) << inMaps(1, inLists(1, nothing));
    }
    QTest::newRow("beside others") << QVariant(
        QVariantMap{{text("a"), true}, {text("b"), QVariant::fromValue(nullptr)}, {text("c"), true}});
}

// Qt writes a key alone then, at which libdbus ends the process. With a list between, it only leaks.
void CallCheckTest::refusesMapsWithoutValue()
{
    QFETCH(QVariant, argument);
    QCOMPARE(objectionTo(call({argument})).type(), QDBusError::InvalidArgs);
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
    QVERIFY(objectionTo(message).isValid());
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
    QVERIFY(!objectionTo(message).isValid());
    sender.bus().asyncCall(message);
    QTRY_COMPARE(m_received, arguments);
    QVERIFY(sender.bus().isConnected());
    QVERIFY(receiver.bus().isConnected());
}

void CallCheckTest::sizeIsThatOfTheBytes()
{
    const int length = 9 * 1024 * 1024;
    QVERIFY(!objectionTo(call({QString(length, QLatin1Char('u'))})).isValid());
    QCOMPARE(objectionTo(call({QString(length, QChar(0xfc))})).message(), s_tooLarge);
}

void CallCheckTest::hugePathIsRefused()
{
    QVERIFY(!objectionTo(call(Name::Path, text("/") + QString(1024 * 1024, QLatin1Char('a')))).isValid());
    QCOMPARE(objectionTo(call(Name::Path, text("/") + QString(17 * 1024 * 1024, QLatin1Char('a')))).message(),
             s_tooLarge);
}

void CallCheckTest::isLinearInElements()
{
    QVERIFY(Growth::isLinear(
        [](int size) {
            const QDBusMessage message = call({QVariant(copies(size, QVariantList{true}))});
            CpuTimer timer;
            timer.start();
            return objectionTo(message).isValid() ? -1 : timer.nsecsElapsed();
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
            return objectionTo(message).isValid() ? -1 : timer.nsecsElapsed();
        },
        20000));
}

QTEST_GUILESS_MAIN(CallCheckTest)
#include "tst_callcheck.moc"
