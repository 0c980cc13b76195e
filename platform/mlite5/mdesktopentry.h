// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef MDESKTOPENTRY_H
#define MDESKTOPENTRY_H

#include <QString>

#include <memory>

class MDesktopEntryPrivate;

/**
 * The content that a desktop file had when this was made. A key is named by its group and itself, or by both as
 * "Group/Key".
 *
 * The user's languages are those of LANGUAGE, else of LC_ALL, LC_MESSAGES or LANG.
 */
class Q_DECL_EXPORT MDesktopEntry
{
public:
    explicit MDesktopEntry(const QString &fileName);
    ~MDesktopEntry();
    MDesktopEntry(const MDesktopEntry &) = delete;
    MDesktopEntry &operator=(const MDesktopEntry &) = delete;

    QString fileName() const;
    /// Whether the file could be read and has what each needs: a group "Desktop Entry" with Type and Name.
    bool isValid() const;
    /// Why the file could not be read, empty if it could.
    QString errorString() const;

    bool containsGroup(const QString &group) const;
    bool contains(const QString &path) const;
    bool contains(const QString &group, const QString &key) const;
    /// The untranslated value, its escape sequences resolved. Null when there is none.
    QString value(const QString &path) const;
    QString value(const QString &group, const QString &key) const;
    /// The value in the first of the user's languages that has one, else the untranslated one.
    QString localizedValue(const QString &group, const QString &key) const;

private:
    const std::unique_ptr<MDesktopEntryPrivate> d;
};

#endif
