// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QObject>
#include <QPointer>
#include <QVariant>
#include <QVariantMap>

#include <optional>

class LauncherItem;
class TreeItem;

/**
 * One installed application: the values of its launcher entry, and the settings page of its own that packages may have
 * declared for it below the "applications" section, under the name of its desktop file.
 *
 * The texts are read from the launcher entry each time; they are empty once the entry is deleted.
 */
class ApplicationItem : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QVariant section READ section CONSTANT)
    Q_PROPERTY(QString iconId READ iconId CONSTANT)
    Q_PROPERTY(QString iconMode READ iconMode CONSTANT)
    Q_PROPERTY(QString name READ name CONSTANT)
    Q_PROPERTY(QString fileName READ fileName CONSTANT)
    Q_PROPERTY(QString fileId READ fileId CONSTANT)
    Q_PROPERTY(bool isValid READ isValid CONSTANT)
    Q_PROPERTY(bool sandboxed READ sandboxed NOTIFY sandboxedChanged)

public:
    /// @p item and @p applicationsSection may be null. They are not owned.
    ApplicationItem(LauncherItem *item, TreeItem *applicationsSection, QObject *parent);

    QVariant section() const; ///< the TreeItem as QObject*, invalid when there is none
    QString iconId() const;
    QString iconMode() const;
    QString name() const;
    QString fileName() const; ///< the whole path of the desktop file
    QString fileId() const; ///< the desktop file id
    bool isValid() const;
    bool sandboxed() const; ///< as the launcher entry last had it
    QString dBusServiceName() const;
    QString desktopFile() const; ///< the name of the desktop file, without its directory
    LauncherItem *launcherItem() const; ///< null after it was deleted

    /// Looks up the section again below @p applicationsSection, which may be null. Returns true if the section has
    /// appeared, disappeared or changed since the last time.
    bool updateSection(TreeItem *applicationsSection);

Q_SIGNALS:
    void sandboxedChanged();

private:
    TreeItem *lookUpSection(TreeItem *applicationsSection) const;
    void updateSandboxed();

    const QPointer<LauncherItem> m_item;
    QPointer<TreeItem> m_section;
    std::optional<QVariantMap> m_sectionData; ///< as it was last looked up
    bool m_sandboxed = false;
};
