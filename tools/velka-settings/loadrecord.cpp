// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "loadrecord.h"

LoadRecord::LoadRecord(const Progress &progress)
    : m_progress(progress)
{
}

const QVector<FileReport> &LoadRecord::files() const
{
    return m_files;
}

QVector<LoadRecord::Entry> LoadRecord::entriesOf(const QString &fileName) const
{
    return m_entries.value(fileName);
}

const QVector<LoadRecord::Catalog> &LoadRecord::catalogs() const
{
    return m_catalogs;
}

void LoadRecord::scanStarted(int newFiles)
{
    m_fileCount = newFiles;
}

void LoadRecord::fileRead(const FileReport &report)
{
    m_files.append(report);
    if (report.file) {
        m_files.last().content.clear(); // report.file has all of it
    }
    if (m_progress) {
        m_progress(m_files.size(), m_fileCount);
    }
}

void LoadRecord::entryRead(const QString &fileName, int index, EntryStatus status, const TreeItem *item)
{
    Q_UNUSED(index)
    m_entries[fileName].append({status, item});
}

void LoadRecord::catalogInstalled(const QString &catalog, const CatalogTranslator *translator)
{
    m_catalogs.append({catalog, translator});
}
