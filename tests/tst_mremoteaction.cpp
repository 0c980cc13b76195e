// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "text.h"

#include <mremoteaction.h>

#include <QDataStream>
#include <QDebug>
#include <QTest>

#include <cstring>
#include <limits>

namespace
{
QString written(const QVariantList &arguments)
{
    return MRemoteAction(text("com.velka.service"), text("/path"), text("com.velka.interface"), text("method"),
                         arguments)
        .toString();
}

QVariant read(const QString &argument)
{
    const auto decoded = QByteArray::fromBase64Encoding(argument.toLatin1(),
                                                        QByteArray::AbortOnBase64DecodingErrors);
    QDataStream stream(*decoded);
    QVariant value(text("not read"));
    stream >> value;
    return stream.atEnd() && stream.status() == QDataStream::Ok ? value : text("not read to the end");
}

quint64 bits(double number)
{
    quint64 bits = 0;
    static_assert(sizeof bits == sizeof number);
    std::memcpy(&bits, &number, sizeof bits);
    return bits;
}

QVariantMap map(const char *key, const QVariant &value)
{
    return {{text(key), value}};
}

/// Returns @p value and its elements with their types.
QString typed(const QVariant &value)
{
    QString text;
    QDebug(&text) << value;
    return text;
}
}

class MRemoteActionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void writesNamesInOrder();
    void keepsEmptyNames();
    void keepsArgument_data();
    void keepsArgument();
    void keepsDoubles_data();
    void keepsDoubles();
    void keepsOrderOfArguments();
    void writesKnownBytes();
    void returnsTheSameTextAgain();
};

void MRemoteActionTest::writesNamesInOrder()
{
    QCOMPARE(written({}), text("com.velka.service /path com.velka.interface method"));
}

void MRemoteActionTest::keepsEmptyNames()
{
    QCOMPARE(MRemoteAction({}, {}, {}, {}).toString(), text("   "));
    QCOMPARE(MRemoteAction(text("a"), {}, {}, text("d"), {true}).toString().section(QLatin1Char(' '), 0, 3),
             text("a   d"));
}

void MRemoteActionTest::keepsArgument_data()
{
    QTest::addColumn<QVariant>("argument");
    QTest::newRow("true") << QVariant(true);
    QTest::newRow("false") << QVariant(false);
    QTest::newRow("null") << QVariant::fromValue(nullptr);
    QTest::newRow("invalid") << QVariant();
    QTest::newRow("string") << QVariant(text("value"));
    QTest::newRow("empty string") << QVariant(text(""));
    QTest::newRow("null string") << QVariant(QString());
    QTest::newRow("blanks") << QVariant(text(" two  words\n"));
    QTest::newRow("null character") << QVariant(QString::fromLatin1("a\0b", 3));
    QTest::newRow("Latin-1") << QVariant(QStringLiteral(u"\u00e4\u00df"));
    QTest::newRow("astral plane") << QVariant(QString::fromUtf8("\xf0\x9f\x90\xa7"));
    QTest::newRow("lone surrogate") << QVariant(QString(QChar(0xd800)));
    QTest::newRow("long string") << QVariant(QString(100000, QLatin1Char('x')));
    QTest::newRow("empty list") << QVariant(QVariantList());
    QTest::newRow("list of all types") << QVariant(
        QVariantList{true, 2.0, text("three"), QVariant::fromValue(nullptr), QVariantList(), QVariantMap()});
    const QVariant inner = QVariantList{text("in"), QVariantList()};
    QTest::newRow("nested lists") << QVariant(QVariantList{inner, 1.0, QVariantList{inner, inner}});
    QTest::newRow("empty map") << QVariant(QVariantMap());
    QTest::newRow("nested maps") << QVariant(map("a", map("b c", map("", 1.0))));
    QTest::newRow("maps in lists in maps") << QVariant(map("list", QVariantList{map("a", QVariantList{false})}));
}

void MRemoteActionTest::keepsArgument()
{
    QFETCH(QVariant, argument);
    const QStringList parts = written({argument}).split(QLatin1Char(' '));
    QCOMPARE(parts.size(), 5);
    const QVariant value = read(parts[4]);
    QCOMPARE(value.userType(), argument.userType());
    QCOMPARE(value, argument);
    QCOMPARE(typed(value), typed(argument));
}

void MRemoteActionTest::keepsDoubles_data()
{
    QTest::addColumn<double>("number");
    using Limits = std::numeric_limits<double>;
    for (const double number : {0.0, -0.0, 1.0, -2.0, 0.1, 9007199254740993.0, 1e300, Limits::max(),
                                Limits::lowest(), Limits::min(), Limits::denorm_min()}) {
        QTest::addRow("%a", number) << number;
    }
}

void MRemoteActionTest::keepsDoubles()
{
    QFETCH(double, number);
    const QVariant value = read(written({number}).section(QLatin1Char(' '), 4));
    QCOMPARE(value.userType(), int(QMetaType::Double));
    QCOMPARE(bits(value.toDouble()), bits(number));
}

void MRemoteActionTest::keepsOrderOfArguments()
{
    const QStringList parts = written({1.0, text("two"), QVariant(), text("two")}).split(QLatin1Char(' '));
    QCOMPARE(parts.size(), 8);
    QCOMPARE(read(parts[4]), QVariant(1.0));
    QCOMPARE(read(parts[5]), QVariant(text("two")));
    QCOMPARE(read(parts[6]), QVariant());
    QCOMPARE(parts[7], parts[5]);
}

void MRemoteActionTest::writesKnownBytes()
{
    // The type as 32 bits, a byte that is 1 for a null variant, the value; all big-endian
    QCOMPARE(written({true, text("a")}).section(QLatin1Char(' '), 4), text("AAAAAQAB AAAACgAAAAACAGE="));
}

void MRemoteActionTest::returnsTheSameTextAgain()
{
    const MRemoteAction action(text("a.b"), text("/"), text("c.d"), text("e"), {text("f")});
    const QString first = action.toString();
    QCOMPARE(action.toString(), first);
}

QTEST_GUILESS_MAIN(MRemoteActionTest)
#include "tst_mremoteaction.moc"
