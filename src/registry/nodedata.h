// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "common/velkasettings_export.h"
#include "registry/fileentries.h"

#include <QExplicitlySharedDataPointer>
#include <QString>
#include <QVariantMap>

/**
 * The data of a settings node: an entry of a registration file, which is converted when a value is read, or a map that
 * was given from C++ and is kept as it is.
 */
class VELKASETTINGS_PRIVATE_EXPORT NodeData
{
public:
    using Entries = QExplicitlySharedDataPointer<FileEntries>;

    NodeData() = default;
    explicit NodeData(const QVariantMap &map);
    /// The element @p index of @p entries, those of the file @p fromFile, whose name replaces any "from_file" in it.
    NodeData(const Entries &entries, int index, const QString &fromFile);

    QVariant value(const QString &key) const; ///< invalid when it is missing
    QVariantMap toMap() const;
    QString fromFile() const; ///< null when no file declared the node
    bool operator==(const NodeData &other) const; ///< compares the values; at once for the same entry
    Entries fileEntries() const; ///< the entries of the file, null when no file declared the node
    int entryIndex() const; ///< the place of the node's entry among them
    int order() const; ///< "order" as an int, 100 when it is missing or null

    /// Releases the other entries of the file.
    void keepEntryAlone();

private:
    QVariantMap m_map; ///< empty with an entry of a file
    Entries m_entries; ///< null without an entry of a file
    int m_index = 0; ///< in m_entries
    int m_order = DefaultOrder;
    QString m_fromFile;

    static constexpr int DefaultOrder = 100;
};
