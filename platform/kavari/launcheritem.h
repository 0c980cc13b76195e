// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QObject>

#include <memory>

class MDesktopEntry;

/// An installed application, as its desktop file describes it. Created and owned by a LauncherFolderModel.
class Q_DECL_EXPORT LauncherItem : public QObject
{
    Q_OBJECT

public:
    ~LauncherItem() override;

    QString filePath() const; ///< of the desktop file
    QString fileID() const; ///< the file's path below the application directory, with "-" for each "/"
    bool isValid() const;
    QString title() const; ///< in the user's language
    QString iconId() const;
    bool isSandboxed() const;
    QString dBusServiceName() const; ///< empty when the application has none
    /// Returns any value of the desktop file, null when there is none.
    QString readValue(const QString &key, const QString &group = QStringLiteral("Desktop Entry")) const;

Q_SIGNALS:
    /// The desktop file changed. The id is still the same.
    void itemChanged();

private:
    friend class LauncherFolderModelPrivate;

    LauncherItem(const QString &fileID, std::shared_ptr<const MDesktopEntry> entry, QObject *parent);
    void setEntry(std::shared_ptr<const MDesktopEntry> entry);

    const QString m_fileID;
    std::shared_ptr<const MDesktopEntry> m_entry; ///< shared with the items of other models
    bool m_sandboxed = false;
};
