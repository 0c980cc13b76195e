// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "registry/nodedata.h"

#include <QString>
#include <QVariantMap>

class TreeItem;

/// What the tree says of one path at one time. Values are read from the entry's file when they are asked for.
class EntryState
{
public:
    /// The state of a path without a node, which has empty values.
    EntryState() = default;
    /// @p item may be null.
    explicit EntryState(const TreeItem *item);

    /// Returns true if both have the same values, except for titles in different languages.
    bool operator==(const EntryState &other) const;

    bool exists() const;
    QString title() const; ///< as it was when it was read first
    QString shortTitle() const; ///< read together with the title
    QString icon() const;
    QString controlIcon() const;
    QString type() const;
    QVariantMap params() const;
    QVariantMap data() const;
    QString file() const;
    int childCount() const;

    /// Returns true if the titles depend on the language and were never read, so that earlier ones are unknown.
    bool mayHaveHadOtherTitles() const;

private:
    void readTitles() const;

    QString m_name;
    NodeData m_data;
    int m_childCount = 0;
    bool m_exists = false;
    mutable bool m_knowsTitles = false;
    mutable QString m_title;
    mutable QString m_shortTitle;
};
