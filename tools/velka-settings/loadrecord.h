// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "registry/filereport.h"
#include "registry/loadobserver.h"

#include <QHash>
#include <QVector>

#include <functional>

/// Records what an EntryTree does with each file, entry and catalog.
class LoadRecord final : public LoadObserver
{
public:
    struct Entry {
        EntryStatus status;
        const TreeItem *item;
    };
    struct Catalog {
        QString name;
        const CatalogTranslator *translator;
    };
    using Progress = std::function<void(int done, int total)>;

    explicit LoadRecord(const Progress &progress);

    const QVector<FileReport> &files() const; ///< in the order of loading
    QVector<Entry> entriesOf(const QString &fileName) const; ///< in the order of the file
    const QVector<Catalog> &catalogs() const; ///< the last one is looked up first

    void scanStarted(int newFiles) override;
    void fileRead(const FileReport &report) override;
    void entryRead(const QString &fileName, int index, EntryStatus status, const TreeItem *item) override;
    void catalogInstalled(const QString &catalog, const CatalogTranslator *translator) override;

private:
    const Progress m_progress;
    int m_fileCount = 0;
    QVector<FileReport> m_files;
    QHash<QString, QVector<Entry>> m_entries;
    QVector<Catalog> m_catalogs;
};
