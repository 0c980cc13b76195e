// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "catalogs.h"
#include "checkedfiles.h"
#include "hostvocabulary.h"
#include "setrules.h"

#include <functional>

namespace Check
{
class Findings;
struct Document;

/// Which vocabulary is used: the one of the command line, else the one with each file, else that of the system.
struct VocabularyChoice {
    std::optional<HostVocabulary> named;
    bool admitsSystem = true; ///< whether that of the system is used
};

/// Checks files as the library would load them.
class Checker
{
public:
    using Progress = std::function<void(int done, int total)>;

    /// Looks for catalogs in the directory @p translations, or if that is empty, in the directory of each file.
    Checker(const QString &translations, Progress progress, const VocabularyChoice &vocabulary = {});

    std::vector<FileFindings> check(const CheckedFiles &files);
    /// Returns the findings of the files in @p arguments, which are existing files and directories.
    std::vector<FileFindings> check(const QStringList &arguments);

private:
    void checkTogether(const FileGroup &files, std::vector<FileFindings> *results);
    FileFindings checkFile(const CheckedFile &file, FileSummary *summary);
    void checkText(Document *document, bool isLoaded, Catalogs *catalogs, Findings *findings,
                   FileSummary *summary);
    Catalogs *catalogsOf(const CheckedFile &file);
    const HostVocabulary *vocabularyOf(const CheckedFile &file);

    const QString m_translations;
    std::map<QString, Catalogs> m_catalogs; ///< by directory
    const VocabularyChoice m_vocabulary;
    std::map<QString, std::optional<HostVocabulary>> m_vocabularies; ///< by path, missing when they cannot be used
    const Progress m_progress;
    int m_done = 0;
    int m_total = 0;
};
}
