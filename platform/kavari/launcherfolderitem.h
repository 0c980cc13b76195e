// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "launcheritem.h"

#include <QAbstractListModel>

#include <vector>

struct LauncherRow;

/// A folder of the launcher. Each row is a LauncherItem or another folder, which the launcher model owns.
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

    int rowOf(const LauncherRow &row) const;
    void addRow(const LauncherRow &row);
    void dropRow(const LauncherRow &row);
    void replaceRow(const LauncherRow &old, const LauncherRow &row);

    const QString m_title;
    std::vector<LauncherRow> m_rows; ///< sorted
};
