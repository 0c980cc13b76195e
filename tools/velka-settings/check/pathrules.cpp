// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "pathrules.h"

#include "knownkeys.h"
#include "registry/registrationfile.h"
#include "rules.h"
#include "valuetext.h"

namespace Check
{
namespace
{
void missingPath(const Entry &entry, Findings *findings)
{
    if (entry.writtenPath) {
        return;
    }
    const Written *misspelt = misspeltMember(*entry.written, KnownKeys::entry(), QLatin1String("path"));
    if (misspelt) {
        findings->atKey(Tag::PathMissing, *misspelt,
                        QStringLiteral("the entry has no \"path\" and is ignored: %1 seems to be misspelt")
                            .arg(quoted(misspelt->key)));
    } else {
        findings->atValue(Tag::PathMissing, *entry.written,
                          QStringLiteral("the entry has no \"path\" and is ignored"));
    }
}

void emptyPath(const Entry &entry, Findings *findings)
{
    if (entry.writtenPath && entry.names.isEmpty()) {
        const bool isText = entry.writtenPath->kind == Written::String;
        const QString reason = isText ? QStringLiteral("the path contains no name")
                                      : QStringLiteral("\"path\" must be a string, not %1")
                                            .arg(describe(entry.read.value(QLatin1String("path"))));
        findings->atValue(Tag::PathEmpty, *entry.writtenPath,
                          reason + QStringLiteral(": the entry is never shown"));
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
        if (name.startsWith(QLatin1Char(' ')) || name.endsWith(QLatin1Char(' '))) {
            findings->atValue(Tag::PathBlanks, *entry.writtenPath,
                              QStringLiteral("%1 begins or ends with white space").arg(quoted(name)));
            return;
        }
    }
}

/// Reports what is written in place of the slash between names.
void separators(const Entry &entry, Findings *findings)
{
    if (entry.names.isEmpty()) {
        return;
    }
    const QString usual = entry.names.join(QLatin1Char('/'));
    const QString first = entry.names.first();
    QString meant = usual;
    if (usual.contains(QLatin1Char('\\'))) {
        meant.replace(QLatin1Char('\\'), QLatin1Char('/'));
    } else if (first.contains(QLatin1Char('.')) && !first.endsWith(QLatin1String(".desktop"))) {
        meant.replace(0, first.size(), QString(first).replace(QLatin1Char('.'), QLatin1Char('/')));
    }
    const QString normal = splitPath(meant).join(QLatin1Char('/'));
    if (entry.names.contains(QStringLiteral(".")) || entry.names.contains(QStringLiteral(".."))) {
        findings->atValue(
            Tag::PathSeparator, *entry.writtenPath,
            QStringLiteral("\".\" and \"..\" are names like others in a path: write it from its root"));
    } else if (normal != usual) {
        findings->atValue(
            Tag::PathSeparator, *entry.writtenPath,
            QStringLiteral("the names in a path are separated by \"/\": did you mean %1?").arg(quoted(normal)));
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
    return {missingPath, emptyPath, slashes, blanks, separators};
}
}
