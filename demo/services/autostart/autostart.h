// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "faultyservice.h"

#include <QHash>
#include <QStringList>

/// Stores which applications start with each user's session, and starts none.
class Autostart : public FaultyService
{
    Q_OBJECT

public Q_SLOTS:
    QStringList GetEnabled(int uid);
    void SetEnabled(int uid, const QString &application, bool enable);

private:
    QStringList listOf(int uid) const;

    QHash<int, QStringList> m_lists;
};
