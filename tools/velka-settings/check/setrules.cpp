// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "setrules.h"

#include "pathrules.h"
#include "registry/registrationfile.h"

#include <QFileInfo>

#include <algorithm>

namespace Check
{
namespace
{
/// Returns whether no user gets both files.
bool excludeEachOther(const FileSummary &a, const FileSummary &b)
{
    const auto isExclusive = [](const QString &required, const QString &disabled) {
        return !required.isEmpty() && required == disabled;
    };
    return isExclusive(a.requiredGroup, b.disabledGroup) || isExclusive(b.requiredGroup, a.disabledGroup);
}

/// Returns whether every user who gets @p a gets @p b as well.
bool comesWith(const FileSummary &a, const FileSummary &b)
{
    return (b.requiredGroup.isEmpty() || b.requiredGroup == a.requiredGroup)
           && (b.disabledGroup.isEmpty() || b.disabledGroup == a.disabledGroup);
}
}

DirectoryRules::DirectoryRules(const std::vector<FileSummary> &files, std::vector<FileFindings> *findings)
    : m_files(files)
    , m_findings(findings)
    , m_nodes(1)
{
    for (int i = 0; i < int(files.size()); ++i) {
        for (const WrittenPath &written : files[i].declared) {
            const int place = node(written.path);
            if (place != 0) { // not the root
                m_nodes[place].declarations.append({i, &written});
                m_hasDeclarations = true;
            }
        }
    }
}

int DirectoryRules::node(const QString &path)
{
    int current = 0;
    const QStringList names = splitPath(path);
    for (const QString &name : names) {
        int &child = m_children[{current, name}];
        if (child == 0) {
            child = int(m_nodes.size());
            m_nodes.push_back({current, name, {}, false});
        }
        current = child;
    }
    return current;
}

int DirectoryRules::find(const QString &path) const
{
    int current = 0;
    const QStringList names = splitPath(path);
    for (const QString &name : names) {
        current = m_children.value({current, name});
        if (current == 0) {
            break;
        }
    }
    return current;
}

void DirectoryRules::checkDuplicates()
{
    for (const Node &node : m_nodes) {
        for (int i = 0; i < node.declarations.size(); ++i) {
            // One replacement is enough.
            if (!reportFirst(node.declarations, i, &DirectoryRules::reportRepeated)) {
                reportFirst(node.declarations, i, &DirectoryRules::reportReplaced);
            }
        }
    }
}

bool DirectoryRules::reportFirst(const QVector<Declaration> &declarations, int earlier,
                                 bool (DirectoryRules::*report)(const Declaration &, const Declaration &))
{
    for (int later = earlier + 1; later < declarations.size(); ++later) {
        if ((this->*report)(declarations.at(earlier), declarations.at(later))) {
            return true;
        }
    }
    return false;
}

bool DirectoryRules::reportRepeated(const Declaration &earlier, const Declaration &later)
{
    if (later.file != earlier.file || later.written->entry != earlier.written->entry) {
        return false;
    }
    report(earlier, Tag::EntryRepeated, QStringLiteral("the entry is repeated %1").arg(describe(later, earlier)));
    return true;
}

bool DirectoryRules::reportReplaced(const Declaration &earlier, const Declaration &later)
{
    const FileSummary &a = m_files[earlier.file];
    const FileSummary &b = m_files[later.file];
    if (earlier.file == later.file || comesWith(a, b)) {
        report(earlier, Tag::DuplicatePath,
               QStringLiteral("the entry is replaced by the one %1").arg(describe(later, earlier)));
        return true;
    }
    if (excludeEachOther(a, b)) {
        return false;
    }
    report(earlier, Tag::DuplicatePathGroups,
           QStringLiteral("users who get both files see only the entry %1").arg(describe(later, earlier)));
    return true;
}

void DirectoryRules::checkSpelling()
{
    for (const Node &node : m_nodes) {
        for (int i = 1; i < node.declarations.size(); ++i) {
            const Declaration &first = node.declarations.first();
            const Declaration &other = node.declarations.at(i);
            if (first.written->path != other.written->path) {
                report(other, Tag::PathSpelling,
                       QStringLiteral("this path is spelled %1 %2")
                           .arg(quoted(first.written->path), describe(first, other)));
            }
        }
    }
}

void DirectoryRules::checkParents()
{
    for (const Node &declared : m_nodes) {
        if (declared.declarations.isEmpty()) {
            continue;
        }
        QStringList missing;
        for (int node = declared.parent; node != 0 && m_nodes[node].parent != 0 && !m_nodes[node].isReported;
             node = m_nodes[node].parent) {
            if (m_nodes[node].declarations.isEmpty()) {
                m_nodes[node].isReported = true;
                missing.prepend(m_nodes[node].name);
            }
        }
        if (!missing.isEmpty()) {
            report(declared.declarations.first(), Tag::UndeclaredParent,
                   QStringLiteral("no checked file declares the parent %1").arg(quoted(missing.first())));
        }
    }
}

void DirectoryRules::checkBlacklist()
{
    for (int i = 0; i < int(m_files.size()) && m_hasDeclarations; ++i) {
        for (const WrittenPath &written : m_files[i].blacklisted) {
            const Declaration element{i, &written};
            const QVector<Declaration> &declared = m_nodes[find(written.path)].declarations;
            const bool isKnown = std::any_of(
                declared.cbegin(), declared.cend(),
                [&written](const Declaration &other) { return other.written->path == written.path; });
            if (declared.isEmpty()) {
                report(element, Tag::BlacklistUnknown,
                       QStringLiteral("no checked file declares %1").arg(quoted(written.path)));
            } else if (!isKnown) {
                report(element, Tag::PathSpelling,
                       QStringLiteral("the entry is spelled %1 %2")
                           .arg(quoted(declared.first().written->path), describe(declared.first(), element)));
            }
        }
    }
}

void DirectoryRules::report(const Declaration &declaration, Tag tag, const QString &text)
{
    (*m_findings)[declaration.file].findings.append(
        {tag, declaration.written->offset, text, declaration.written->place});
}

QString DirectoryRules::describe(const Declaration &declaration, const Declaration &seenFrom) const
{
    const Place &place = declaration.written->place;
    const QString position = QStringLiteral("%1:%2").arg(place.line).arg(place.column);
    if (declaration.file == seenFrom.file) {
        return QStringLiteral("at %1").arg(position);
    }
    const QString name = QFileInfo(m_files[declaration.file].path).fileName();
    return QStringLiteral("in %1:%2").arg(abridged(name), position);
}
}
