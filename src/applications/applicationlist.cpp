// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications/applicationlist.h"

const QStringList &ApplicationList::ids() const
{
    return m_list.ids();
}

bool ApplicationList::contains(const QString &id) const
{
    return m_list.contains(id);
}

void ApplicationList::forget()
{
    m_list = IdList();
}

bool ApplicationList::store(const std::optional<QStringList> &ids)
{
    const bool changes = ids && *ids != m_list.ids();
    if (!ids || changes) {
        m_list = IdList(ids.value_or(QStringList()));
    }
    return changes;
}

void ApplicationList::announce()
{
    emitAll<ApplicationList>(this, {&ApplicationList::listChanged, &ApplicationList::selectionChanged,
                                    &ApplicationList::membersChanged});
}

#include "moc_applicationlist.cpp"
