// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "setrules.h"

#include "pathsuggestion.h"
#include "printable.h"
#include "registry/registrationfile.h"

#include <QFileInfo>

#include <algorithm>
#include <utility>

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

/// Returns whether @p path has no slashes that another rule reports.
bool isNormal(const QString &path)
{
    return path == splitPath(path).join(QLatin1Char('/'));
}

/// Returns whether a finding with @p tag at a path is a reason why the path is not the one that others lead through.
bool isAboutSpelling(Tag tag)
{
    return tag == Tag::PathSeparator || tag == Tag::PathBlanks || tag == Tag::ControlCharacter
           || tag == Tag::NotNormalized || tag == Tag::NotPortable || tag == Tag::WrongType;
}

/// Finds for each declaration the next one in the same file with an equal entry.
class NextEqual
{
public:
    explicit NextEqual(const QVector<Declared> &declarations)
        : m_next(declarations.size(), -1)
    {
        QHash<QPair<int, uint>, int> seen;
        for (int i = declarations.size() - 1; i >= 0; --i) {
            const Declared &declaration = declarations.at(i);
            int &next = seen[{declaration.file, qHash(declaration.written->entry)}];
            if (next > 0 && declarations.at(next).written->entry == declaration.written->entry) {
                m_next[i] = next;
            }
            next = i;
        }
    }

    int of(int index) const
    {
        return m_next.at(index);
    }

private:
    QVector<int> m_next;
};
}

DirectoryRules::DirectoryRules(const std::vector<FileSummary> &files, std::vector<FileFindings> *findings)
    : m_files(files)
    , m_findings(findings)
    , m_tree(files)
    , m_isReported(int(m_tree.nodes().size()), false)
{
    for (int i = 0; i < int(findings->size()); ++i) {
        for (const Finding &finding : std::as_const((*findings)[std::size_t(i)].findings)) {
            if (isAboutSpelling(finding.tag)) {
                m_misspelt.insert({i, finding.offset});
            }
        }
    }
}

void DirectoryRules::checkDuplicates()
{
    for (const PathTree::Node &node : m_tree.nodes()) {
        if (node.declarations.size() > 1) {
            checkDuplicatesAt(node);
        }
    }
}

void DirectoryRules::checkDuplicatesAt(const PathTree::Node &node)
{
    const QVector<Declared> &declarations = node.declarations;
    const NextEqual nextEqual(declarations);
    for (int i = 0; i < declarations.size(); ++i) {
        const Declared &earlier = declarations.at(i);
        if (const int next = nextEqual.of(i); next >= 0) {
            report(earlier, Tag::EntryRepeated,
                   QStringLiteral("the entry is repeated %1").arg(describe(declarations.at(next), earlier)));
            continue;
        }
        for (int later = i + 1; later < declarations.size(); ++later) {
            if (reportReplaced(earlier, declarations.at(later))) {
                break; // one replacement is enough
            }
        }
    }
}

bool DirectoryRules::reportReplaced(const Declared &earlier, const Declared &later)
{
    const FileSummary &a = fileOf(earlier);
    const FileSummary &b = fileOf(later);
    if (earlier.file == later.file || comesWith(a, b)) {
        reportConflict(earlier, later, Tag::DuplicatePath,
                       QStringLiteral("the entry is never shown: the one %1 has the same path and replaces it"),
                       QStringLiteral("this entry has the same path as the one %1 and replaces it"));
        return true;
    }
    if (excludeEachOther(a, b)) {
        return false;
    }
    reportConflict(earlier, later, Tag::DuplicatePathGroups,
                   QStringLiteral("users who get both files see only the entry %1"),
                   QStringLiteral("users who get both files do not see the entry %1"));
    return true;
}

void DirectoryRules::checkBlacklist()
{
    if (m_tree.isEmpty()) {
        return;
    }
    const QStringList known = m_tree.declaredPaths();
    for (int i = 0; i < int(m_files.size()); ++i) {
        for (const WrittenPath &written : m_files[std::size_t(i)].blacklisted) {
            const Declared element{i, &written};
            const int node = m_tree.find(written.path);
            const QVector<Declared> &declared = m_tree.node(node).declarations;
            const bool isKnown = std::any_of(
                declared.cbegin(), declared.cend(),
                [&written](const Declared &other) { return other.written->path == written.path; });
            if (declared.isEmpty() && !m_tree.isDeclared(node)) {
                const QString meant = suggestPath(written.path, known);
                report(
                    element, Tag::BlacklistUnknown,
                    QStringLiteral("no checked file declares %1").arg(quoted(written.path))
                        + (meant.isEmpty() ? QString() : QStringLiteral(": did you mean %1?").arg(quoted(meant))));
            } else if (!declared.isEmpty() && !isKnown && isNormal(written.path)) {
                report(element, Tag::PathSpelling,
                       QStringLiteral("the entry is spelled %1 %2")
                           .arg(quoted(declared.first().written->path), describe(declared.first(), element)));
            }
        }
    }
}

void DirectoryRules::report(const Declared &declaration, Tag tag, const QString &text)
{
    if (!fileOf(declaration).isInstalled) {
        (*m_findings)[std::size_t(declaration.file)].findings.append(
            {tag, declaration.written->offset, text, declaration.written->place});
    }
}

void DirectoryRules::reportPath(const Declared &declaration, Tag tag, const QString &text)
{
    if (m_misspelt.contains({declaration.file, declaration.written->offset})) {
        return;
    }
    if (tag != Tag::UndeclaredParent) {
        withdrawHostPlace(declaration);
    }
    report(declaration, tag, text);
}

void DirectoryRules::withdrawHostPlace(const Declared &declaration)
{
    QVector<Finding> &findings = (*m_findings)[std::size_t(declaration.file)].findings;
    const auto isWithdrawn = [&declaration](const Finding &finding) {
        return finding.tag == Tag::HostPlace && finding.offset == declaration.written->offset;
    };
    findings.erase(std::remove_if(findings.begin(), findings.end(), isWithdrawn), findings.end());
}

void DirectoryRules::reportConflict(const Declared &earlier, const Declared &later, Tag tag,
                                    const QString &aboutEarlier, const QString &aboutLater)
{
    if (fileOf(earlier).isInstalled) {
        report(later, tag, aboutLater.arg(describe(earlier, later)));
    } else {
        report(earlier, tag, aboutEarlier.arg(describe(later, earlier)));
    }
}

QString DirectoryRules::describe(const Declared &declaration, const Declared &seenFrom) const
{
    const Place &place = declaration.written->place;
    const QString position = QStringLiteral("%1:%2").arg(place.line).arg(place.column);
    if (declaration.file == seenFrom.file) {
        return QStringLiteral("at %1").arg(position);
    }
    const QFileInfo file(fileOf(declaration).path);
    const bool isBeside = file.absolutePath() == QFileInfo(fileOf(seenFrom).path).absolutePath();
    return QStringLiteral("in %1:%2").arg(printable(isBeside ? file.fileName() : file.filePath()), position);
}

const FileSummary &DirectoryRules::fileOf(const Declared &declaration) const
{
    return m_files[std::size_t(declaration.file)];
}
}
