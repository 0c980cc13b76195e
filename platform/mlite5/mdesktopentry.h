// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QString>

#include <memory>

class MDesktopEntryPrivate;

/**
 * The content of a desktop file at the time of construction. Functions take a group and a key, or both as "Group/Key".
 *
 * The user's languages are those of LANGUAGE, or else of LC_ALL, LC_MESSAGES or LANG.
 */
class Q_DECL_EXPORT MDesktopEntry
{
public:
    explicit MDesktopEntry(const QString &fileName);
    ~MDesktopEntry();
    MDesktopEntry(const MDesktopEntry &) = delete;
    MDesktopEntry &operator=(const MDesktopEntry &) = delete;

    QString fileName() const;
    /// Returns whether the file was read and has the required keys, Type and Name in the group "Desktop Entry".
    bool isValid() const;
    /// Returns why the file could not be read; empty if it was read.
    QString errorString() const;
    /// Returns whether descriptors or memory were short. Then reading the file later may succeed.
    bool isErrorTemporary() const;

    bool containsGroup(const QString &group) const;
    bool contains(const QString &path) const;
    bool contains(const QString &group, const QString &key) const;
    /// Returns the untranslated value with its escape sequences resolved. Null when there is none.
    QString value(const QString &path) const;
    QString value(const QString &group, const QString &key) const;
    /// Returns the value in the first of the user's languages that has one, or else the untranslated value.
    QString localizedValue(const QString &group, const QString &key) const;

private:
    const std::unique_ptr<MDesktopEntryPrivate> d;
};
