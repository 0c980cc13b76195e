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
/// The path of an entry, or of the favourites blacklist.
struct WrittenPath {
    QString path;
    int offset;
    Place place;
    QJsonObject entry = {}; ///< that declares it, as the library reads it
};

/// What the other files have to know of one file.
struct FileSummary {
    QString path;
    QString requiredGroup;
    QString disabledGroup;
    QVector<WrittenPath> declared; ///< in the order of the file
    QVector<WrittenPath> blacklisted;
};

/// The places that files of one directory declare together.
class DirectoryRules
{
public:
    /// Reports into @p findings, which has a list for each of @p files. The files stand in the order of loading.
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
    bool reportRepeated(const Declaration &earlier, const Declaration *next, const Declaration *end);
    bool reportReplaced(const Declaration &earlier, const Declaration &later);
    QString describe(const Declaration &declaration, const Declaration &seenFrom) const;

    const std::vector<FileSummary> &m_files;
    std::vector<FileFindings> *const m_findings;
    std::vector<Node> m_nodes;
    QHash<QPair<int, QString>, int> m_children;
    bool m_hasDeclarations = false;
};
}
