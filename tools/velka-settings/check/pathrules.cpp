// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "pathrules.h"

#include "rules.h"

namespace Check
{
namespace
{
void missingPath(const Entry &entry, Findings *findings)
{
    if (!contains(*entry.written, "path")) {
        findings->atValue(Tag::PathMissing, *entry.written,
                          QStringLiteral("the entry has no \"path\" and is skipped"));
    }
}

void emptyPath(const Entry &entry, Findings *findings)
{
    const Json::Value *path = member(*entry.written, "path");
    if (path && splitPath(entryPath(entry)).isEmpty()) {
        findings->atValue(Tag::PathEmpty, *path,
                          QStringLiteral("the path holds no name: the entry is never shown"));
    }
}

void slashes(const Entry &entry, Findings *findings)
{
    if (const Json::Value *path = member(*entry.written, "path")) {
        checkSlashes(entryPath(entry), *path, findings);
    }
}

void blanks(const Entry &entry, Findings *findings)
{
    const QStringList names = splitPath(entryPath(entry));
    for (const QString &name : names) {
        if (name.trimmed() != name) {
            findings->atValue(Tag::PathBlanks, *member(*entry.written, "path"),
                              QStringLiteral("%1 begins or ends with a blank").arg(quoted(name)));
            return;
        }
    }
}
}

QStringList splitPath(const QString &path)
{
    return path.split(QLatin1Char('/'), Qt::SkipEmptyParts);
}

QString entryPath(const Entry &entry)
{
    return readString(entry.read, QLatin1String("path"));
}

void checkSlashes(const QString &path, const Json::Value &written, Findings *findings)
{
    const QString usual = splitPath(path).join(QLatin1Char('/'));
    if (!usual.isEmpty() && usual != path) {
        findings->atValue(Tag::PathSlashes, written,
                          QStringLiteral("slashes at the ends or doubled ones: write %1").arg(quoted(usual)));
    }
}

QVector<EntryRule> pathRules()
{
    return {missingPath, emptyPath, slashes, blanks};
}
}
