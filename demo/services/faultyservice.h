// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QDBusContext>
#include <QObject>

/// A service that can be told to answer badly.
class FaultyService : public QObject, protected QDBusContext
{
    Q_OBJECT

public Q_SLOTS:
    void setFault(const QString &fault);

protected:
    /// To be asked first by whatever is called. When true, the call has been answered.
    bool isSpoiled();

private:
    QString m_fault;
};
