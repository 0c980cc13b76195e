// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "stablelist.h"

#include "text.h"

StableList::StableList(QAbstractItemModel *source, const char *keyRole)
{
    m_model.setKeyRole(text(keyRole));
    m_model.setSourceModel(source);
    m_log.take();
}

StableListModel *StableList::operator->()
{
    return &m_model;
}

QStringList StableList::takeSignals()
{
    QStringList signalLog = m_log.take();
    for (const QString &before : signalLog.filter(text("AboutToBe"))) {
        signalLog.removeAll(before);
    }
    return signalLog;
}

bool StableList::isConsistent() const
{
    const QAbstractItemModel *source = m_model.sourceModel();
    bool isEqual = m_keys.isEqual() && m_values.isEqual() && m_objects.isEqual()
                   && m_model.rowCount() == (source ? source->rowCount() : 0);
    for (int row = 0; isEqual && row < m_model.rowCount(); ++row) {
        for (const int role : source->roleNames().keys()) {
            isEqual = isEqual && m_model.data(m_model.index(row), role) == source->index(row, 0).data(role);
        }
    }
    return isEqual;
}
