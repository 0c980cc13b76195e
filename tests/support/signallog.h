// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QAbstractItemModel>
#include <QStringList>

/// Records a model's signals in their order: "rowsInserted 0-0", "rowsMoved 0 3", "modelReset", "countChanged", ...
class SignalLog : public QObject
{
    Q_OBJECT

public:
    /// Signals of the model's own class are recorded by their names.
    explicit SignalLog(QAbstractItemModel *model);

    /// Returns the signals since the last call.
    QStringList take();

private Q_SLOTS:
    void recordOwn();

private:
    void record(const char *signal, int first, int last);

    QStringList m_signals;
};
