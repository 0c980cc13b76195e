// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "loadrecord.h"
#include "namedsources.h"
#include "registry/entrytree.h"

#include <QObject>

/// The tree of a directory, as a program that starts now loads it, and the record of the loading.
class Inspection
{
public:
    Inspection(const NamedSources &named, const QStringList &masked, const LoadRecord::Progress &progress);

    const EntrySources &sources() const;
    const QSet<QString> &masked() const; ///< the paths of the key and the command line
    bool isMasked(const QString &path) const; ///< @p path as spelled in a registration file
    TreeItem *root() const;
    const LoadRecord &record() const;

private:
    const NamedSources m_named;
    const QSet<QString> m_masked;
    QObject m_translators; ///< outlives the tree
    LoadRecord m_record;
    EntryTree m_tree;
};
