// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QHash>
#include <QString>
#include <QVector>

/// The folders and the fixed order of a menu file.
struct MenuLayout {
    static constexpr int Root = -1;

    struct Place {
        int folder; ///< an index of the folders, or Root
        int rank; ///< ascends in the order of the file
    };
    struct Folder {
        QString title;
        Place place;
    };

    QVector<Folder> folders; ///< a folder comes after the folder that contains it
    QHash<QString, Place> applications; ///< by file id
};

bool operator==(const MenuLayout::Place &a, const MenuLayout::Place &b);
bool operator==(const MenuLayout::Folder &a, const MenuLayout::Folder &b);
bool operator==(const MenuLayout &a, const MenuLayout &b);

/**
 * Parses a <Menu> with any number of <Filename>, the id of a desktop file, and of nested <Menu>, which also have a
 * <Name>. Other elements are ignored. The first occurrence of an id counts. A document type with declarations is an
 * error.
 *
 * On success @p error is empty.
 */
MenuLayout parseMenu(const QByteArray &xml, QString *error);
