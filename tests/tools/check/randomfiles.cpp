// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "randomfiles.h"

namespace
{
const QList<QByteArray> s_types{"section", "page", "bool", "integer", "enum", "action", "custom_tile"};
const QList<QByteArray> s_keys{
    "path",           "type",  "title",    "translation_id", "title_short", "translation_id_short",
    "icon",           "order", "params",   "controlIcon",    "from_file",   "x_own",
    "allow_favorite", "Title", "PATH",     "simpleGrid",     "remote-path", "path\\u0000",
    "\\u0070ath",     "",      "__proto__"};
const QList<QByteArray> s_topLevel{"required_group",
                                   "disabled_group",
                                   "translation_catalog",
                                   "complementary_translation_catalog",
                                   "$schema",
                                   "entry",
                                   "x_own",
                                   "entries"};
const QList<QByteArray> s_values{"null",
                                 "true",
                                 "false",
                                 "0",
                                 "-1",
                                 "1.5",
                                 "2.5",
                                 "-0",
                                 "3e9",
                                 "1e308",
                                 "1e400",
                                 "-2147483649",
                                 "2147483648",
                                 "9007199254740993",
                                 "18446744073709551616",
                                 "123456789012345678901234567890",
                                 "0.1",
                                 "1e-400",
                                 ".5",
                                 "1.",
                                 "-.5",
                                 "01",
                                 "NaN",
                                 "[]",
                                 "{}",
                                 "[null]",
                                 "[[]]",
                                 "{\"a\": null}",
                                 "{\"type\": 5}",
                                 "\"\"",
                                 "\"/\"",
                                 "\"//\"",
                                 "\"a//b\"",
                                 "\"/a\"",
                                 "\" a \"",
                                 "\"5\"",
                                 "\"x\"",
                                 "\"2.7\"",
                                 "\"\\u0000\"",
                                 "\"\\ud800\"",
                                 "\"\\udc00\\ud800\"",
                                 "\"\\ud83d\\ude00\"",
                                 "\"\xc3\xa9\"",
                                 "\"\xff\"",
                                 "\"\xc0\x80\"",
                                 "\"\xed\xa0\x80\"",
                                 "\"\n\"",
                                 "\"\r\"",
                                 "\"\t\"",
                                 "\"\\x\"",
                                 "'a'",
                                 "\"page\"",
                                 "\"action\"",
                                 "\"custom\"",
                                 "\"Page\"",
                                 "\"!!\"",
                                 "\"\\\\\\\"\"",
                                 "\"a\\/b\""};
const QList<QByteArray> s_names{"com.example.torch",
                                "com.example",
                                "torch",
                                "",
                                ":1.5",
                                "com..example",
                                ".com",
                                "com.",
                                "com.2torch",
                                "com.example-torch",
                                "/",
                                "/com/example",
                                "/com/",
                                "//",
                                "com/example",
                                "org.freedesktop.DBus.Local",
                                "/org/freedesktop/DBus/Local",
                                "toggle",
                                "2toggle",
                                "tog-gle",
                                "t\xc3\xb6ggle",
                                "a\\u0000b"};
const QList<QByteArray> s_arguments{"[]",
                                    "[true]",
                                    "[\"a\", 1.5]",
                                    "[1]",
                                    "[null]",
                                    "[[null]]",
                                    "[{\"a\": null}]",
                                    "[{\"a\": [1]}]",
                                    "\"a\"",
                                    "{}",
                                    "5",
                                    "null",
                                    "[[[[[]]]]]"};
const QList<QByteArray> s_suffixes{".JSON", ".json.bak", ".Json", ".json~"};

QByteArray quoted(const QByteArray &text)
{
    return '"' + text + '"';
}

QByteArray object(const QList<QByteArray> &members)
{
    return '{' + members.join(", ") + '}';
}

QByteArray nested(int depth)
{
    return QByteArray(depth, '[') + QByteArray(depth, ']');
}
}

RandomFiles::RandomFiles(quint32 seed, const QString &group)
    : m_random(seed)
    , m_group(group.toUtf8())
{
}

RandomFiles::File RandomFiles::next()
{
    const QByteArray number = QByteArray::number(++m_count);
    const QByteArray prefix = chance(3) ? "fake" : chance(3) ? "." : chance(30) ? "Set" : "set";
    const QByteArray suffix = chance(4) ? pick(s_suffixes) : QByteArray(".json");
    const QString name = QString::fromLatin1(prefix + number + suffix);
    switch (below(10)) {
    case 0:
    case 1:
    case 2:
        return {name, document(false)};
    case 3:
    case 4:
    case 5:
        return {name, damaged(document(false))};
    case 6:
        return {name, damaged(document(true))};
    case 7:
        return {name, strange()};
    default:
        return {name, document(true)};
    }
}

QByteArray RandomFiles::blacklist()
{
    QList<QByteArray> elements;
    for (int i = below(5); i > 0; --i) {
        elements.append(chance(20) ? pick(s_values) : path());
    }
    const QByteArray array = '[' + elements.join(", ") + ']';
    return chance(20) ? damaged(array) : array;
}

int RandomFiles::below(int bound)
{
    return int(m_random() % quint32(bound));
}

bool RandomFiles::chance(int percent)
{
    return below(100) < percent;
}

QByteArray RandomFiles::pick(const QList<QByteArray> &from)
{
    return from.at(below(from.size()));
}

QByteArray RandomFiles::path()
{
    if (chance(5)) {
        return quoted("shared/place" + QByteArray::number(below(30)) + (chance(10) ? "/" : ""));
    }
    const QByteArray number = QByteArray::number(++m_paths);
    return quoted(chance(50) ? "page" + number
                             : "settings/section" + QByteArray::number(below(50)) + "/page" + number);
}

QByteArray RandomFiles::value(bool hostile)
{
    return hostile ? pick(s_values) : quoted("text " + QByteArray::number(below(1000)));
}

QByteArray RandomFiles::entry(bool hostile)
{
    const QByteArray type = pick(s_types);
    QList<QByteArray> members;
    if (!hostile || chance(90)) {
        members.append("\"path\": " + (hostile && chance(10) ? pick(s_values) : path()));
    }
    members.append("\"title\": " + quoted("Title " + QByteArray::number(m_paths)));
    members.append("\"type\": " + quoted(type));
    members.append("\"params\": " + params(type, hostile));
    if (chance(50)) {
        members.append("\"order\": " + QByteArray::number(below(500) - 100));
    }
    if (hostile) {
        for (int i = below(3); i > 0; --i) {
            members.append(quoted(pick(s_keys)) + ": " + value(true));
        }
    }
    return object(members);
}

QByteArray RandomFiles::params(const QByteArray &type, bool hostile)
{
    if (hostile && chance(5)) {
        return pick(s_values);
    }
    if (type == "action") {
        return action(hostile && chance(50));
    }
    if (type == "custom_tile") {
        return "{\"type\": \"grid\", \"simpleGrid\": true}";
    }
    return type == "page" ? "{\"allow_favorite\": false, \"source\": \"main.qml\"}" : "{}";
}

QByteArray RandomFiles::action(bool hostile)
{
    const auto name = [&](const QByteArray &good) {
        if (hostile && chance(25)) {
            return chance(80) ? quoted(pick(s_names)) : pick(s_values);
        }
        return quoted(good);
    };
    QList<QByteArray> members;
    const QList<QPair<QByteArray, QByteArray>> names{{"remote-service", "com.example.torch"},
                                                     {"remote-path", "/com/example/torch"},
                                                     {"remote-interface", "com.example.torch"},
                                                     {"remote-method", "toggle"}};
    for (const auto &[key, good] : names) {
        if (!hostile || chance(95)) {
            members.append(quoted(key) + ": " + name(good));
        }
    }
    members.append("\"remote-arguments\": " + (hostile ? pick(s_arguments) : QByteArray("[true, \"a\", 1.5]")));
    if (hostile && chance(10)) {
        members.append("\"remote-arguments\": [" + QByteArray("1.5,").repeated(250 + below(10)) + "true]");
    }
    if (hostile && chance(10)) {
        members.append("\"remote-arguments\": [" + nested(25 + below(15)) + ']');
    }
    return object(members);
}

QByteArray RandomFiles::document(bool hostile)
{
    QList<QByteArray> members;
    if (chance(10)) {
        members.append("\"required_group\": " + quoted(chance(80) ? m_group : QByteArray("no-such-group")));
    }
    if (chance(10)) {
        members.append("\"disabled_group\": " + quoted(chance(20) ? m_group : QByteArray("no-such-group")));
    }
    QList<QByteArray> entries;
    for (int i = 1 + below(4); i > 0; --i) {
        entries.append(hostile && chance(5) ? pick(s_values) : entry(hostile));
    }
    if (hostile && chance(20)) {
        members.append(quoted(pick(s_topLevel)) + ": " + value(true));
    }
    members.append("\"entries\": [" + entries.join(",\n        ") + ']');
    return object(members) + '\n';
}

QByteArray RandomFiles::damaged(QByteArray content)
{
    static constexpr char Bytes[] = "{}[]\",:\\/ntfe0123456789.-+u\0\n\r\xff\xc3 ";
    static const QByteArray bytes(Bytes, sizeof(Bytes) - 1);
    for (int i = 1 + below(3); i > 0 && !content.isEmpty(); --i) {
        const int place = below(content.size());
        switch (below(5)) {
        case 0:
            content.remove(place, 1 + below(4));
            break;
        case 1:
            content.insert(place, bytes.at(below(bytes.size())));
            break;
        case 2:
            content[place] = bytes.at(below(bytes.size()));
            break;
        case 3:
            content[place] = char(content.at(place) ^ (1 << below(8)));
            break;
        default:
            if (chance(20)) {
                content.truncate(place);
            }
            break;
        }
    }
    return content;
}

QByteArray RandomFiles::strange()
{
    switch (below(8)) {
    case 0:
        return {};
    case 1:
        return "\xef\xbb\xbf" + document(false);
    case 2:
        return document(false).replace("\n", "\r\n");
    case 3:
        return "{\"entries\": [{\"path\": " + path()
               + ", \"title\": \"T\", \"x_deep\": " + nested(1015 + below(12)) + "}]}";
    case 4:
        return pick(s_values);
    case 5:
        return '[' + document(false) + ']';
    case 6:
        return document(false) + document(false);
    default:
        return "{\"entries\": " + pick(s_values) + '}';
    }
}
