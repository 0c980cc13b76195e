// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QString>
#include <QStringList>

/**
 * Generated registration files, with five entries each. An entry has seven keys ("params" is an object with one more).
 * The entries are spread over sections, and one translation catalog serves all. The blacklist of favourites is empty.
 *
 * The files are written once, next to the entries directory, and moved into its place when they are needed.
 * The constructor ends the process outside the sandbox.
 */
class Workload
{
public:
    static constexpr int EntriesPerFile = 5;

    explicit Workload(int fileCount, int sectionCount = 40);

    int fileCount() const;
    /// Returns the full paths that the files have while the workload is installed.
    QStringList files() const;
    QString fileName(int index) const;
    QStringList entryPaths() const;
    void putInPlace() const;
    void takeAway() const;
    /// Moves @p count files, beginning with the index @p first, out of the entries directory.
    void hide(int first, int count) const;
    void show(int first, int count) const;

private:
    QString storage() const;
    QString hidden() const;

    const int m_fileCount;
    const int m_sectionCount;
};
