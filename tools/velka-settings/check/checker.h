// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "catalogs.h"
#include "setrules.h"

#include <functional>

namespace Check
{
/// Checks files and directories as the library would load them.
class Checker
{
public:
    using Progress = std::function<void(int done, int total)>;

    Checker(const QString &translations, Progress progress);

    /// Returns the findings of the files in @p arguments, which are existing files and directories.
    std::vector<FileFindings> check(const QStringList &arguments);

private:
    void checkTogether(const QStringList &paths, std::vector<FileFindings> *results);
    FileFindings checkFile(const QString &path, FileSummary *summary);

    Catalogs m_catalogs;
    const Progress m_progress;
    int m_done = 0;
    int m_total = 0;
};
}
