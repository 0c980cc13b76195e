// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef MENULAYOUT_H
#define MENULAYOUT_H

#include <QHash>
#include <QString>
#include <QVector>

/// The folders and the fixed order that a menu file gives.
struct MenuLayout {
    static constexpr int Root = -1;

    struct Place {
        int folder; ///< an index of the folders, or Root
        int rank; ///< rises in the order of the file
    };
    struct Folder {
        QString title;
        Place place;
    };

    QVector<Folder> folders; ///< a folder stands behind the one that it is in
    QHash<QString, Place> applications; ///< by file id
};

bool operator==(const MenuLayout::Place &a, const MenuLayout::Place &b);
bool operator==(const MenuLayout::Folder &a, const MenuLayout::Folder &b);
bool operator==(const MenuLayout &a, const MenuLayout &b);

/**
 * Reads a <Menu> with any number of <Filename>, the id of a desktop file, and further <Menu>, which have a <Name>
 * besides. What else is in the file is passed over. The first mention of an id counts. A document type that declares
 * something is refused.
 *
 * On success @p error is empty.
 */
MenuLayout parseMenu(const QByteArray &xml, QString *error);

#endif
