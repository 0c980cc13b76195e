// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "problems.h"

#include "brokenjson.h"
#include "loadrecord.h"
#include "printable.h"
#include "terminal.h"

namespace
{
QString problemOf(const FileReport &report)
{
    switch (report.status) {
    case FileStatus::Unreadable:
        return QStringLiteral("cannot be read");
    case FileStatus::NotJson:
        return BrokenJson::errorOf(report.content, report.error);
    case FileStatus::NotAnObject:
        return QStringLiteral("the top level is not an object");
    case FileStatus::Loaded:
    case FileStatus::LacksGroup:
    case FileStatus::HasGroup:
        break;
    }
    return {};
}
}

void printProblems(const LoadRecord &record)
{
    const Terminal err(stderr);
    for (const FileReport &report : record.files()) {
        const QString name = printable(report.name);
        const QString problem = problemOf(report);
        if (!problem.isEmpty()) {
            err.writeLine(QStringLiteral("%1: %2").arg(name, err.bad(problem)));
        }
        const QVector<LoadRecord::Entry> entries = record.entriesOf(report.name);
        for (int i = 0; i < entries.size(); ++i) {
            if (entries.at(i).status == EntryStatus::Pathless) {
                err.writeLine(QStringLiteral("%1: entry %2 %3")
                                  .arg(name, QString::number(i + 1), err.bad(QStringLiteral("has no path"))));
            }
        }
    }
}
