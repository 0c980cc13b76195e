// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "differenceformats.h"

#include "printable.h"
#include "terminal.h"
#include "values.h"

#include <QJsonArray>

namespace
{
/// Returns any @p text as a code span of Markdown in a table.
QString codeSpan(const QString &text)
{
    int longest = 0;
    int run = 0;
    for (const QChar character : text) {
        run = character == QLatin1Char('`') ? run + 1 : 0;
        longest = std::max(longest, run);
    }
    const QString fence(longest + 1, QLatin1Char('`'));
    const QString space = longest > 0 ? QStringLiteral(" ") : QString();
    QString content = printable(text);
    content.replace(QLatin1Char('|'), QLatin1String("\\|")); // a bar ends a cell, also in code
    return fence + space + content + space + fence;
}

QString valueSpan(const QJsonValue &value)
{
    return value.isUndefined() ? QString() : codeSpan(Values::toText(value));
}

void printList(const QString &heading, const QStringList &paths, const Terminal &out)
{
    if (paths.isEmpty()) {
        return;
    }
    out.writeLine(QStringLiteral("## %1\n").arg(heading));
    for (const QString &path : paths) {
        out.writeLine(QStringLiteral("- %1").arg(codeSpan(path)));
    }
    out.writeLine({});
}
}

void DifferenceFormats::printText(const EntryDifference &difference, const Terminal &out)
{
    for (const QString &path : difference.removed) {
        out.writeLine(out.bad(QStringLiteral("- ") + printable(path)));
    }
    for (const QString &path : difference.added) {
        out.writeLine(out.good(QStringLiteral("+ ") + printable(path)));
    }
    for (const ChangedEntry &entry : difference.changed) {
        out.writeLine(out.notable(QStringLiteral("~ ") + printable(entry.path)));
        for (const ChangedKey &key : entry.keys) {
            out.writeLine(QStringLiteral("    %1: %2 -> %3")
                              .arg(printable(key.key), Values::toText(key.before), Values::toText(key.after)));
        }
    }
}

void DifferenceFormats::printMarkdown(const EntryDifference &difference, const Terminal &out)
{
    if (difference.isEmpty()) {
        out.writeLine(QStringLiteral("No entry is added, removed or changed."));
        return;
    }
    printList(QStringLiteral("Removed"), difference.removed, out);
    printList(QStringLiteral("Added"), difference.added, out);
    if (difference.changed.isEmpty()) {
        return;
    }
    out.writeLine(QStringLiteral("## Changed\n\n| Entry | Key | Before | After |\n|---|---|---|---|"));
    for (const ChangedEntry &entry : difference.changed) {
        for (const ChangedKey &key : entry.keys) {
            out.writeLine(
                QStringLiteral("| %1 | %2 | %3 | %4 |")
                    .arg(codeSpan(entry.path), codeSpan(key.key), valueSpan(key.before), valueSpan(key.after)));
        }
    }
}

QJsonObject DifferenceFormats::toJson(const EntryDifference &difference)
{
    QJsonArray changed;
    for (const ChangedEntry &entry : difference.changed) {
        QJsonObject keys;
        for (const ChangedKey &key : entry.keys) {
            QJsonObject values;
            if (!key.before.isUndefined()) {
                values.insert(QStringLiteral("before"), key.before);
            }
            if (!key.after.isUndefined()) {
                values.insert(QStringLiteral("after"), key.after);
            }
            keys.insert(key.key, values);
        }
        changed.append(QJsonObject{{QStringLiteral("path"), entry.path}, {QStringLiteral("keys"), keys}});
    }
    return {{QStringLiteral("removed"), QJsonArray::fromStringList(difference.removed)},
            {QStringLiteral("added"), QJsonArray::fromStringList(difference.added)},
            {QStringLiteral("changed"), changed}};
}
