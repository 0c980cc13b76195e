// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "pathtree.h"

#include <QSet>

namespace Check
{
/// Rules for the paths that the files of a directory declare together.
class DirectoryRules
{
public:
    /// Reports to @p findings, which has a list for each of @p files. The files are in the order of loading.
    DirectoryRules(const std::vector<FileSummary> &files, std::vector<FileFindings> *findings);

    void checkDuplicates();
    void checkParents();
    void checkBlacklist();

private:
    void checkDuplicatesAt(const PathTree::Node &node);
    /// Reports that @p later replaces @p earlier, for some users at least. Returns whether it does.
    bool reportReplaced(const Declared &earlier, const Declared &later);
    void checkRoots();
    void checkApplications();
    void checkDots();
    int firstDeclaredIn(int node) const;
    void checkParentsOf(const PathTree::Node &declared);
    QString spellingOf(int node) const;
    /// Reports that the path of @p declaration may be misspelt, unless another rule has.
    void reportPath(const Declared &declaration, Tag tag, const QString &text);
    /// Removes the finding that the host does not show the path of @p declaration, for one with a better path.
    void withdrawHostPlace(const Declared &declaration);
    void report(const Declared &declaration, Tag tag, const QString &text);
    /// Reports a conflict of two declarations at the earlier one, unless that is installed.
    void reportConflict(const Declared &earlier, const Declared &later, Tag tag, const QString &aboutEarlier,
                        const QString &aboutLater);
    QString describe(const Declared &declaration, const Declared &seenFrom) const;
    const FileSummary &fileOf(const Declared &declaration) const;

    const std::vector<FileSummary> &m_files;
    std::vector<FileFindings> *const m_findings;
    const PathTree m_tree;
    QVector<bool> m_isReported; ///< nodes whose absence was reported
    QSet<QPair<int, int>> m_misspelt; ///< file and offset of paths whose spelling was reported
};
}
