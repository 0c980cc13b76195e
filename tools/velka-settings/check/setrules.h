// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "finding.h"

#include <QHash>
#include <QJsonObject>
#include <QPair>
#include <QStringList>

#include <vector>

namespace Check
{
/// A path of an entry or in the favourites blacklist.
struct WrittenPath {
    QString path;
    int offset;
    Place place;
    QJsonObject entry = {}; ///< the declaring entry, as the library reads it
};

/// The contents of a file that matter for the other files.
struct FileSummary {
    QString path;
    QString requiredGroup;
    QString disabledGroup;
    QVector<WrittenPath> declared; ///< in the order of the file
    QVector<WrittenPath> blacklisted;
};

/// Rules for the paths that the files of a directory declare together.
class DirectoryRules
{
public:
    /// Reports to @p findings, which has a list for each of @p files. The files are in the order of loading.
    DirectoryRules(const std::vector<FileSummary> &files, std::vector<FileFindings> *findings);

    void checkDuplicates();
    void checkSpelling();
    void checkParents();
    void checkBlacklist();

private:
    struct Declaration {
        int file;
        const WrittenPath *written;
    };
    struct Node {
        int parent;
        QString name;
        QVector<Declaration> declarations;
        bool isReported = false;
    };

    int node(const QString &path);
    int find(const QString &path) const;
    void report(const Declaration &declaration, Tag tag, const QString &text);
    /// Calls @p report with a declaration and each later one until it reports one. Returns whether it did.
    bool reportFirst(const QVector<Declaration> &declarations, int earlier,
                     bool (DirectoryRules::*report)(const Declaration &, const Declaration &));
    bool reportRepeated(const Declaration &earlier, const Declaration &later);
    bool reportReplaced(const Declaration &earlier, const Declaration &later);
    QString describe(const Declaration &declaration, const Declaration &seenFrom) const;

    const std::vector<FileSummary> &m_files;
    std::vector<FileFindings> *const m_findings;
    std::vector<Node> m_nodes;
    QHash<QPair<int, QString>, int> m_children;
    bool m_hasDeclarations = false;
};
}
