// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications/idlist.h"

#include "common/logging.h"
#include "common/messages.h"
#include "common/messagesize.h"

IdList::IdList(const QStringList &ids)
    : m_ids(ids)
    , m_set(ids.cbegin(), ids.cend())
{
}

const QStringList &IdList::ids() const
{
    return m_ids;
}

bool IdList::contains(const QString &id) const
{
    return m_set.contains(id);
}

void IdList::append(const QString &id)
{
    m_ids.append(id);
    m_set.insert(id);
}

void IdList::removeAll(const QString &id)
{
    m_ids.removeAll(id);
    m_set.remove(id);
}

bool canBeSent(const QStringList &ids)
{
    if (fitsIntoMessage(ids)) {
        return true;
    }
    qCWarning(lcSettings) << Messages::TooLargeToSend << ids.size() << "ids";
    return false;
}
