// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "catalogparts.h"

#include <QRegularExpression>

namespace
{
constexpr char s_end[] = "</context>";

/// Returns where the root element of @p ts begins.
int rootOf(const QByteArray &ts)
{
    int root = ts.indexOf("<TS");
    int comment = ts.indexOf("<!--");
    while (comment >= 0 && comment < root) {
        const int end = ts.indexOf("-->", comment);
        root = end > root ? ts.indexOf("<TS", end) : root;
        comment = end < 0 ? -1 : ts.indexOf("<!--", end);
    }
    return root;
}

/// Returns where the XML declaration of @p ts ends.
int declarationEnd(const QByteArray &ts)
{
    const int end = ts.indexOf("?>");
    return ts.contains("<?xml") && end < rootOf(ts) ? end + 2 : 0;
}

/// Returns whether @p context has a name and no ids.
bool isOther(const QByteArray &context)
{
    static const QRegularExpression id(QStringLiteral("<message\\s[^>]*\\bid="));
    const int name = context.indexOf("<name>") + 6;
    const int end = context.indexOf("</name>");
    return name >= 6 && !context.mid(name, end - name).trimmed().isEmpty()
           && !id.match(QString::fromUtf8(context)).hasMatch();
}

/// Moves the other contexts of @p ts to the result.
QByteArray takeOthers(QByteArray *ts)
{
    QByteArray others;
    int end = rootOf(*ts);
    int begin = ts->indexOf("<context", end);
    while (begin >= 0) {
        end = ts->indexOf(s_end, begin);
        end = end < 0 ? ts->size() : end + int(qstrlen(s_end));
        const QByteArray context = ts->mid(begin, end - begin);
        if (isOther(context)) {
            others += context + '\n';
            ts->remove(begin, end - begin);
            end = begin;
        }
        begin = ts->indexOf("<context", end);
    }
    return others;
}
}

QByteArray CatalogParts::merged(const QByteArray &ts)
{
    QByteArray rest = ts;
    takeOthers(&rest);
    return rest;
}

QByteArray CatalogParts::withOthers(QByteArray updated, QByteArray ts)
{
    if (ts.isEmpty()) {
        return updated;
    }
    const int begin = declarationEnd(ts);
    const QByteArray comments = ts.mid(begin, rootOf(ts) - begin);
    updated.insert(updated.lastIndexOf("</TS>"), takeOthers(&ts));
    const int place = declarationEnd(updated);
    return updated.replace(place, rootOf(updated) - place, comments);
}
