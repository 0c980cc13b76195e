// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "registry/nodedata.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QStringList>

#include <future>

class TreeItem;

/// The texts of an entry that are searched.
struct EntryTexts {
    QString title; ///< as it is displayed
    QString englishTitle; ///< empty when it is the title
    QStringList keywords; ///< in the language of the title
    QStringList englishKeywords; ///< empty when they are the keywords
    QString description;
    QString type;
    bool isSearchable = true;
};

/// Reads the texts of entries. The parse of a file is kept only as long as its entries are read. For a large file,
/// another thread can parse it, and delete the parse.
class EntryTextReader
{
public:
    EntryTextReader() = default;
    ~EntryTextReader();
    Q_DISABLE_COPY_MOVE(EntryTextReader)

    /// Begins to parse the file of @p item in another thread if it is large.
    void open(const TreeItem *item);
    /// Returns false while a file is parsed. Until then, read() waits.
    bool isReady() const;
    EntryTexts read(const TreeItem *item);

private:
    QJsonObject entryOf(const NodeData &data);

    NodeData::Entries m_file;
    QJsonArray m_entries; ///< of m_file
    std::future<QJsonArray> m_parse; ///< of m_file, not valid unless another thread has parsed it
};
