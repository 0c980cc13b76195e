// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QDBusContext>
#include <QObject>

/// A service that can simulate faults.
class FaultyService : public QObject, protected QDBusContext
{
    Q_OBJECT

public Q_SLOTS:
    void setFault(const QString &fault);

protected:
    /// Each method must call this first. If it returns true, the call already has its reply.
    bool isSpoiled();

private:
    QString m_fault;
};
