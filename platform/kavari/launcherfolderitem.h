// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef LAUNCHERFOLDERITEM_H
#define LAUNCHERFOLDERITEM_H

#include "launcheritem.h"

#include <QAbstractListModel>

#include <vector>

struct LauncherRow;

/**
 * A folder of the launcher, and the list of what is in it: each row is a LauncherItem or another folder. The
 * launcher model owns them all.
 */
class Q_DECL_EXPORT LauncherFolderItem : public QAbstractListModel
{
    Q_OBJECT
    Q_PROPERTY(QString title READ title CONSTANT)

public:
    enum Role {
        ObjectRole = Qt::UserRole + 1, ///< QObject *, what get() returns
    };
    Q_ENUM(Role)

    ~LauncherFolderItem() override;

    QString title() const; ///< empty for the launcher model itself
    int itemCount() const;
    /// The LauncherItem or LauncherFolderItem at the row, null outside the rows.
    Q_INVOKABLE QObject *get(int row) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    /// The desktop file of an item of this folder changed, and the item is still the same.
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

#endif
