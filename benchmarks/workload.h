// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QString>
#include <QStringList>

/**
 * Made-up registration files: five entries each, of seven keys ("params" is an object of one more), spread over
 * sections; one translation catalog for all. Besides them the blacklist of favourites, which is empty.
 *
 * They are written once, next to the entries directory, and moved into its place when they are needed.
 * Ends the process outside the sandbox.
 */
class Workload
{
public:
    static constexpr int EntriesPerFile = 5;

    explicit Workload(int fileCount, int sectionCount = 40);

    int fileCount() const;
    /// Full paths, once the workload is in place.
    QStringList files() const;
    QString fileName(int index) const;
    QStringList entryPaths() const;
    void putInPlace() const;
    void takeAway() const;
    /// Moves @p count files, from the one with the index @p first on, out of the directory that is in place.
    void hide(int first, int count) const;
    void show(int first, int count) const;

private:
    QString storage() const;
    QString hidden() const;

    const int m_fileCount;
    const int m_sectionCount;
};
