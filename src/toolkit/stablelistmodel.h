// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "common/differencelistmodel.h"
#include "common/rowchanges.h"
#include "toolkit/listrow.h"

#include <QPointer>

/**
 * The rows of another list model. Where that one resets, this one announces what has changed: rows that go, move, come
 * and change. So rows that stay keep their delegates, their focus and their place in a view.
 *
 * Rows are the same when they have the same key: the location of an entry, the file of an application, else the text
 * of the value. The rows are copies, so that they are what was announced last, and a change that a handler asks for
 * while rows change is deferred until that is done.
 */
class StableListModel : public DifferenceListModel<ListRow::Pointer>
{
    Q_OBJECT
    /// A model that uses this one as its own source is refused with a warning.
    Q_PROPERTY(QAbstractItemModel *sourceModel READ sourceModel WRITE setSourceModel NOTIFY sourceModelChanged)
    /// The role of the keys. If the source does not have it, it is "filePath".
    Q_PROPERTY(QString keyRole READ keyRole WRITE setKeyRole NOTIFY keyRoleChanged)
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    static constexpr int MaxMoves = 500; ///< in one change; with more, a reset is cheaper

    explicit StableListModel(QObject *parent = nullptr);

    QAbstractItemModel *sourceModel() const;
    void setSourceModel(QAbstractItemModel *source);
    QString keyRole() const;
    void setKeyRole(const QString &role);
    int count() const;

    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QHash<int, QByteArray> roleNames() const override; ///< those of the source

Q_SIGNALS:
    void sourceModelChanged();
    void keyRoleChanged();
    void countChanged();

private:
    void follow(QAbstractItemModel *source);
    void sourceDestroyed();
    void change(const RowChanges::Change &change);
    void synchronize();
    void reset();
    void applyDifference();
    QVector<Update> updateRows(const QVector<int> &rows, int firstSourceRow = 0);
    void insertSourceRows(const QModelIndex &parent, int first, int last);
    void removeSourceRows(const QModelIndex &parent, int first, int last);
    void updateSourceRows(const QModelIndex &first, const QModelIndex &last);

    bool areCurrent(int first, int last) const;
    int sourceCount() const;
    ListRoles sourceRoles() const;
    Rows readRows(int first, int last, const ListRoles &roles) const;
    QStringList sourceKeys() const;

    QPointer<QAbstractItemModel> m_source;
    QMetaObject::Connection m_sourceDestroyed;
    QString m_keyRole;
    ListRoles m_roles;
    RowChanges m_changes;
    bool m_isOtherList = false; ///< with other keys or roles
    bool m_hasOtherRowNumbers = false; ///< rows came or went since all were last compared with the source
};
