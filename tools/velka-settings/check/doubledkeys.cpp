// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "doubledkeys.h"

#include "document.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSet>

namespace Check
{
namespace
{
struct Container {
    bool isObject;
    bool isKeyNext;
    QSet<QString> keys;
};

int endOfString(const QByteArray &text, int start)
{
    int end = start + 1;
    while (end < text.size() && text.at(end) != '"') {
        end += text.at(end) == '\\' ? 2 : 1;
    }
    return end;
}

QString unescaped(const QByteArray &literal)
{
    return QJsonDocument::fromJson('[' + literal + ']').array().at(0).toString();
}
}

void reportDoubledKeys(const QByteArray &text, Findings *findings)
{
    QVector<Container> containers{{false, false, {}}};
    for (int i = 0; i < text.size(); ++i) {
        Container &container = containers.last();
        switch (text.at(i)) {
        case '{':
            containers.append({true, true, {}});
            break;
        case '[':
            containers.append({false, false, {}});
            break;
        case '}':
        case ']':
            containers.removeLast();
            break;
        case ',':
            container.isKeyNext = container.isObject;
            break;
        case '"': {
            const int end = endOfString(text, i);
            if (container.isKeyNext) {
                const QString key = unescaped(text.mid(i, end - i + 1));
                if (container.keys.contains(key)) {
                    findings->atOffset(
                        Tag::DoubledKey, i,
                        QStringLiteral("%1 stands in this object before; that value is lost").arg(quoted(key)));
                }
                container.keys.insert(key);
                container.isKeyNext = false;
            }
            i = end;
            break;
        }
        default:
            break;
        }
    }
}
}
