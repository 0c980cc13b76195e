// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

class CatalogTranslator;
class QString;
class TreeItem;
struct FileReport;

enum class EntryStatus {
    Inserted,
    Pathless, ///< no object, or one without a path
    Masked,
};

/// Notified of what an EntryTree does with each file and entry.
class LoadObserver
{
public:
    LoadObserver() = default;
    virtual ~LoadObserver() = default;
    LoadObserver(const LoadObserver &) = delete;
    LoadObserver &operator=(const LoadObserver &) = delete;

    /// Before the first of @p newFiles registration files is read.
    virtual void scanStarted(int newFiles) = 0;
    /// Before the file's entries, if it gives any.
    virtual void fileRead(const FileReport &report) = 0;
    /// The element @p index of the file's entries. @p item is the node that took its data, null when none did.
    virtual void entryRead(const QString &fileName, int index, EntryStatus status, const TreeItem *item) = 0;
    /// Translators that are installed later take precedence. @p translator is empty if there was nothing to load.
    virtual void catalogInstalled(const QString &catalog, const CatalogTranslator *translator) = 0;
};
