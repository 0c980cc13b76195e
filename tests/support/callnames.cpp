// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "callnames.h"

#include "text.h"

namespace CallNames
{
namespace
{
/// @p outcomes has a letter for each part of a call: s for sent, q for refused by Qt, b for refused before that.
Name name(const char *title, const QString &value, const char *outcomes)
{
    Name name{title, value, {}};
    for (int part = 0; part < PartCount; ++part) {
        const char letter = outcomes[part];
        name.outcomes[part] = letter == 's'   ? Outcome::Sent
                              : letter == 'q' ? Outcome::RefusedByQt
                                              : Outcome::RefusedBefore;
    }
    return name;
}

/// The title is the name itself.
Name name(const char *value, const char *outcomes)
{
    return name(value, text(value), outcomes);
}

QVector<Name> emptyAndShort()
{
    return {name("none", QString(), "sqsq"),
            name("empty", text(""), "sqsq"),
            name("a", "bqqs"),
            name("abc", "bqqs"),
            name("_", "bqqs"),
            name("a-b", "bqqq"),
            name("-", "bqqq"),
            name("1", "qqqq"),
            name("a b", "qqqq"),
            name("*", "qqqq"),
            name("%1 %6", "qqqq"),
            name(".", "qqqq"),
            name("..", "qqqq")};
}

QVector<Name> withDots()
{
    return {name("a.b", "sqsq"),
            name("_a.b2", "sqsq"),
            name("-a.-b", "sqqq"),
            name("a..b", "qqqq"),
            name(".a.b", "qqqq"),
            name("a.b.", "qqqq"),
            name("a.1b", "qqqq"),
            name("1a.b", "qqqq"),
            name("a.b c", "qqqq"),
            name("a.b/c", "qqqq"),
            name("line feed last", text("a.b\n"), "qqqq"),
            name("org.freedesktop.DBus.Local", "sqbq"),
            name("org.freedesktop.DBus.Local.below", "sqbq"),
            name("org.freedesktop.DBus.LocalToo", "sqbq")};
}

QVector<Name> unique()
{
    return {name(":1.4242", "sqqq"), name(":1", "sqqq"),  name(":abc", "sqqq"), name(":", "qqqq"),
            name(":.", "qqqq"),      name(":1.", "qqqq"), name(":1..2", "qqqq")};
}

QVector<Name> withSlashes()
{
    return {name("/", "qsqq"),
            name("/a", "qsqq"),
            name("/1/_/a2", "qsqq"),
            name("//", "qqqq"),
            name("/a/", "qqqq"),
            name("/a//b", "qqqq"),
            name("a/b", "qqqq"),
            name("/a-b", "qqqq"),
            name("/a.b", "qqqq"),
            name("/a b", "qqqq"),
            name("/org/freedesktop/DBus", "qsqq"),
            name("/org/freedesktop/DBus/local", "qsqq"),
            name("/org/freedesktop/DBus/Local", "qbqq"),
            name("/org/freedesktop/DBus/Local/", "qbqq"),
            name("/org/freedesktop/DBus/Local/below", "qbqq"),
            name("/org/freedesktop/DBus/LocalToo", "qbqq")};
}

QVector<Name> withOtherCharacters()
{
    return {name("non-ASCII", QStringLiteral(u"a.\u00e4"), "qqqq"),
            name("non-ASCII path", QStringLiteral(u"/\u00e4"), "qqqq"),
            name("non-ASCII letters in one part", QStringLiteral(u"\uff21\uff22"), "qqqq"),
            name("non-ASCII digit", QStringLiteral(u"/\u0661"), "qqqq"),
            name("lone surrogate", text("a.b") + QChar(0xd800), "qqqq"),
            name("lone surrogate in a path", text("/a") + QChar(0xd800), "qqqq"),
            name("null alone", QString(QChar(QChar::Null)), "qqqq"),
            name("null last", QString::fromLatin1("a.b\0", 4), "qqqq"),
            name("null last in one part", QString::fromLatin1("abc\0", 4), "qqqq"),
            name("null inside", QString::fromLatin1("a.b\0c", 5), "qqqq"),
            name("null in a path", QString::fromLatin1("/a\0b", 4), "qqqq")};
}

QVector<Name> longOnes()
{
    const QString twoParts = text("a.") + QString(253, QLatin1Char('b'));
    const QString onePart(255, QLatin1Char('m'));
    const QString unique = text(":1.") + QString(252, QLatin1Char('1'));
    return {name("255 characters", twoParts, "sqsq"),
            name("256 characters", twoParts + QLatin1Char('b'), "qqqq"),
            name("255 characters in one part", onePart, "bqqs"),
            name("256 characters in one part", onePart + QLatin1Char('m'), "qqqq"),
            name("255 characters of a unique one", unique, "sqqq"),
            name("256 characters of a unique one", unique + QLatin1Char('1'), "qqqq"),
            name("path of 256 characters", text("/a") + QString(254, QLatin1Char('b')), "qsqq"),
            name("path of a million characters", text("/") + QString(1000000, QLatin1Char('a')), "qsqq"),
            name("a million characters", QString(1000000, QLatin1Char('m')), "qqqq")};
}
}

QVector<Name> all()
{
    return emptyAndShort() + withDots() + unique() + withSlashes() + withOtherCharacters() + longOnes();
}

const char *title(Part part)
{
    constexpr const char *titles[] = {"service", "path", "interface", "method"};
    return titles[part];
}
}
