// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications/applicationrows.h"

#include "applications/applicationitem.h"

#include <launcheritem.h>

#include <utility>

const QVector<ApplicationItem *> &ApplicationRows::items() const
{
    return m_items;
}

void ApplicationRows::append(ApplicationItem *item)
{
    dropIndex();
    m_items.append(item);
}

QVector<ApplicationItem *> ApplicationRows::takeAll()
{
    dropIndex();
    return std::exchange(m_items, {});
}

int ApplicationRows::rowOfApplicationId(const QString &applicationId)
{
    buildIndex();
    return m_byApplicationId.value(applicationId, -1);
}

ApplicationItem *ApplicationRows::itemOfDesktopFile(const QString &name)
{
    buildIndex();
    return m_byDesktopFile.value(name);
}

void ApplicationRows::buildIndex()
{
    if (m_isIndexed) {
        return;
    }
    m_isIndexed = true;
    for (int row = m_items.size() - 1; row >= 0; --row) { // backwards: the first of equal ones stays
        ApplicationItem *item = m_items.at(row);
        m_byApplicationId.insert(item->dBusServiceName(), row);
        m_byDesktopFile.insert(item->desktopFile(), item);
        if (const LauncherItem *launcherItem = item->launcherItem()) {
            connect(launcherItem, &LauncherItem::itemChanged, this, &ApplicationRows::dropIndex,
                    Qt::UniqueConnection);
            connect(launcherItem, &QObject::destroyed, this, &ApplicationRows::dropIndex, Qt::UniqueConnection);
        }
    }
}

void ApplicationRows::dropIndex()
{
    m_isIndexed = false;
    m_byApplicationId.clear();
    m_byDesktopFile.clear();
}

#include "moc_applicationrows.cpp"
