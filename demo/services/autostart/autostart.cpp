// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "autostart.h"

QStringList Autostart::GetEnabled(int uid)
{
    return isSpoiled() ? QStringList() : listOf(uid);
}

void Autostart::SetEnabled(int uid, const QString &application, bool enable)
{
    if (isSpoiled()) {
        return;
    }
    QStringList list = listOf(uid);
    list.removeAll(application);
    if (enable) {
        list.append(application);
    }
    m_lists.insert(uid, list);
}

/// The list that each user has at first.
QStringList Autostart::listOf(int uid) const
{
    return m_lists.value(uid,
                         {QStringLiteral("enabledMode"), QStringLiteral("calendar"), QStringLiteral("messages")});
}

#include "moc_autostart.cpp"
