// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "launcheritem.h"

#include <QAbstractListModel>

#include <memory>
#include <optional>

class LauncherRows;
struct LauncherRow;

/**
 * A folder of the launcher. Each row is a LauncherItem or another folder, which the launcher model owns, also when QML
 * has it. If one is deleted nevertheless, its row is removed.
 */
class Q_DECL_EXPORT LauncherFolderItem : public QAbstractListModel
{
    Q_OBJECT
    Q_PROPERTY(QString title READ title CONSTANT)

public:
    enum Role {
        ObjectRole = Qt::UserRole + 1, ///< QObject *, the same as get()
    };
    Q_ENUM(Role)

    ~LauncherFolderItem() override;

    QString title() const; ///< empty for the launcher model itself
    int itemCount() const;
    /// Returns the LauncherItem or LauncherFolderItem in the row, null when there is no such row.
    Q_INVOKABLE QObject *get(int row) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    /// The desktop file of an item in this folder changed. The item is still the same object.
    void itemChanged(LauncherItem *item);

protected:
    LauncherFolderItem(const QString &title, QObject *parent);

private:
    friend class LauncherFolderModelPrivate;

    void addRow(const LauncherRow &row);
    /// Removes the row and resets it.
    void dropRow(std::optional<LauncherRow> *row);
    void replaceRow(std::optional<LauncherRow> *row, LauncherRow replacement);

    const QString m_title;
    const std::unique_ptr<LauncherRows> m_rows;
    bool m_isChanging = false; ///< a change of the rows was announced and has not been made
};
