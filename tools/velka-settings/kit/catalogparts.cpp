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

/// Returns whether @p message has a place that is not in a registration file. Relative places leave out the name of the
/// @p file if it is that of the place before.
bool isOfProgram(const QString &message, QString *file)
{
    static const QRegularExpression location(QStringLiteral("<location\\s+(?:filename=\"([^\"]*)\")?"));
    bool isOfProgram = false;
    for (auto matches = location.globalMatch(message); matches.hasNext();) {
        const QString name = matches.next().captured(1);
        *file = name.isEmpty() ? *file : name;
        isOfProgram = isOfProgram || !file->endsWith(QLatin1String(".json"));
    }
    return isOfProgram;
}

/// Moves the messages of a program, except those with @p ids, from @p context to the result.
QByteArray takeOtherMessages(QByteArray *context, const QSet<QString> &ids)
{
    static const QRegularExpression message(QStringLiteral("\\s*<message\\s[^>]*\\bid=\"([^\"]*)\".*?</message>"),
                                            QRegularExpression::DotMatchesEverythingOption);
    const QString text = QString::fromUtf8(*context);
    QString rest;
    QString others;
    QString file;
    int end = 0;
    for (auto matches = message.globalMatch(text); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        rest += text.midRef(end, match.capturedStart() - end);
        const bool isOther = isOfProgram(match.captured(), &file) && !ids.contains(match.captured(1));
        (isOther ? others : rest) += match.captured();
        end = match.capturedEnd();
    }
    *context = (rest + text.midRef(end)).toUtf8();
    return others.toUtf8();
}

/// Moves the other contexts and messages of @p ts to the result.
QByteArray takeOthers(QByteArray *ts, const QSet<QString> &ids)
{
    QByteArray others;
    QByteArray messages;
    int end = rootOf(*ts);
    int begin = ts->indexOf("<context", end);
    while (begin >= 0) {
        end = ts->indexOf(s_end, begin);
        end = end < 0 ? ts->size() : end + int(qstrlen(s_end));
        QByteArray context = ts->mid(begin, end - begin);
        if (isOther(context)) {
            others += context + '\n';
            context.clear();
        } else {
            messages += takeOtherMessages(&context, ids);
        }
        ts->replace(begin, end - begin, context);
        begin = ts->indexOf("<context", begin + context.size());
    }
    return messages.isEmpty() ? others : "<context>\n    <name></name>" + messages + "\n</context>\n" + others;
}
}

QByteArray CatalogParts::merged(const QByteArray &ts, const QSet<QString> &ids)
{
    QByteArray rest = ts;
    takeOthers(&rest, ids);
    return rest;
}

QByteArray CatalogParts::withOthers(QByteArray updated, QByteArray ts, const QSet<QString> &ids)
{
    if (ts.isEmpty()) {
        return updated;
    }
    const int begin = declarationEnd(ts);
    const QByteArray comments = ts.mid(begin, rootOf(ts) - begin);
    updated.insert(updated.lastIndexOf("</TS>"), takeOthers(&ts, ids));
    const int place = declarationEnd(updated);
    return updated.replace(place, rootOf(updated) - place, comments);
}
