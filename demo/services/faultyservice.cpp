// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "faultyservice.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QThread>

namespace
{
constexpr ulong SlownessMs = 1500;
const QString s_none = QStringLiteral("none");
const QString s_slow = QStringLiteral("slow");
const QString s_fail = QStringLiteral("fail");
const QString s_nonsense = QStringLiteral("nonsense");
}

void FaultyService::setFault(const QString &fault)
{
    if (fault != s_none && fault != s_slow && fault != s_fail && fault != s_nonsense) {
        sendErrorReply(QDBusError::InvalidArgs, QStringLiteral("There is no fault \"%1\"").arg(fault));
        return;
    }
    m_fault = fault;
}

bool FaultyService::isSpoiled()
{
    if (m_fault == s_slow) {
        QThread::msleep(SlownessMs);
    } else if (m_fault == s_fail) {
        sendErrorReply(QDBusError::Failed, QStringLiteral("The fault is set to fail"));
    } else if (m_fault == s_nonsense) {
        setDelayedReply(true); // otherwise the result of the method would be sent
        connection().send(message().createReply(s_nonsense));
    }
    return m_fault == s_fail || m_fault == s_nonsense;
}

#include "moc_faultyservice.cpp"
