// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "models/userapplicationsfiltermodel.h"

#include "applications/applicationssettingsmodel.h"
#include "common/logging.h"
#include "common/messages.h"
#include "common/modelsources.h"

UserApplicationsFilterModel::UserApplicationsFilterModel(QObject *parent)
    : QSortFilterProxyModel(parent)
{
    const auto notify = [this] { Q_EMIT countChanged(); };
    connect(this, &QAbstractProxyModel::sourceModelChanged, this, notify);
    connect(this, &QAbstractItemModel::rowsInserted, this, notify);
    connect(this, &QAbstractItemModel::rowsRemoved, this, notify);
    connect(this, &QAbstractItemModel::modelReset, this, notify);
}

int UserApplicationsFilterModel::count() const
{
    return rowCount();
}

int UserApplicationsFilterModel::filter() const
{
    return m_filter;
}

void UserApplicationsFilterModel::setFilter(int filter)
{
    if (filter == m_filter) {
        return;
    }
    m_filter = filter;
    invalidateFilter();
    Q_EMIT filterChanged();
}

void UserApplicationsFilterModel::setSourceModel(QAbstractItemModel *source)
{
    if (source && isBuiltOn(source, this)) {
        qCWarning(lcSettings) << Messages::SourceIsUser;
        return;
    }
    QSortFilterProxyModel::setSourceModel(source);
}

bool UserApplicationsFilterModel::filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const
{
    if (!sourceModel()) {
        return false;
    }
    const QModelIndex index = sourceModel()->index(sourceRow, 0, sourceParent);
    switch (m_filter) {
    case ApplicationsSettingsModel::AllowedOnly:
        return index.data(ApplicationsSettingsModel::AllowedRole).toBool()
               || index.data(ApplicationsSettingsModel::AlwaysAllowedRole).toBool();
    case ApplicationsSettingsModel::AutostartedOnly:
        return index.data(ApplicationsSettingsModel::AutostartedRole).toBool();
    default:
        return false;
    }
}

#include "moc_userapplicationsfiltermodel.cpp"
