// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QStringList>

class QQmlEngine;
class TreeItem;

/// The QML files of entries' pages, in a working copy.
class PageFiles
{
public:
    /// Looks for the files as they are installed below @p roots, and by their names around @p entries.
    PageFiles(const QStringList &roots, const QStringList &entries);

    /// Returns the path of the page of @p item, empty without one.
    static QString sourceOf(const TreeItem *item);

    /// Links the pages of all entries to the paths where they will be installed, so that the window shows them.
    void install() const;

    /// Returns what is wrong, empty unless @p item has a page that does not exist.
    QString missing(const TreeItem *item) const;
    /// Loads the page of @p item, which @p engine then owns. Returns what is
    /// wrong, empty without a page or when it loads.
    QString load(const TreeItem *item, QQmlEngine *engine) const;

private:
    QString find(const QString &source) const;

    const QStringList m_roots;
    const QStringList m_workingCopies;
};
