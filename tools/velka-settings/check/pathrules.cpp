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
    if (!entry.writtenPath) {
        findings->atValue(Tag::PathMissing, *entry.written,
                          QStringLiteral("the entry has no \"path\" and is ignored"));
    }
}

void emptyPath(const Entry &entry, Findings *findings)
{
    if (entry.writtenPath && entry.names.isEmpty()) {
        findings->atValue(Tag::PathEmpty, *entry.writtenPath,
                          QStringLiteral("the path contains no name: the entry is never shown"));
    }
}

void slashes(const Entry &entry, Findings *findings)
{
    if (entry.writtenPath) {
        checkSlashes(entry.path, entry.names, *entry.writtenPath, findings);
    }
}

void blanks(const Entry &entry, Findings *findings)
{
    for (const QString &name : entry.names) {
        if (name.trimmed() != name) {
            findings->atValue(Tag::PathBlanks, *entry.writtenPath,
                              QStringLiteral("%1 begins or ends with white space").arg(quoted(name)));
            return;
        }
    }
}
}

void checkSlashes(const QString &path, const QStringList &names, const Written &written, Findings *findings)
{
    const QString usual = names.join(QLatin1Char('/'));
    if (!usual.isEmpty() && usual != path) {
        findings->atValue(Tag::PathSlashes, written,
                          QStringLiteral("leading, trailing or doubled slashes: write %1").arg(quoted(usual)));
    }
}

QVector<EntryRule> pathRules()
{
    return {missingPath, emptyPath, slashes, blanks};
}
}
