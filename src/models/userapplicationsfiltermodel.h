// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QSortFilterProxyModel>

/**
 * The applications of an ApplicationsSettingsModel that are allowed, by the user or always (filter 0), or that are
 * started automatically (filter 1). Any other filter shows none.
 */
class UserApplicationsFilterModel : public QSortFilterProxyModel
{
    Q_OBJECT
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    Q_PROPERTY(int filter READ filter WRITE setFilter NOTIFY filterChanged)

public:
    explicit UserApplicationsFilterModel(QObject *parent = nullptr);

    int count() const;
    int filter() const;
    void setFilter(int filter);
    /// A source that uses this model, directly or through other proxies, is refused with a warning.
    void setSourceModel(QAbstractItemModel *source) override;

Q_SIGNALS:
    void countChanged();
    void filterChanged();

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const override;

private:
    int m_filter = 0;
};
