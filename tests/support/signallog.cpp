// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "signallog.h"

#include <QMetaMethod>

#include <utility>

SignalLog::SignalLog(QAbstractItemModel *model)
{
    using Model = QAbstractItemModel;
    const auto logRows = [this](const char *signal) {
        return [this, signal](const QModelIndex &, int first, int last) { record(signal, first, last); };
    };
    connect(model, &Model::rowsInserted, this, logRows("rowsInserted"));
    connect(model, &Model::rowsAboutToBeRemoved, this, logRows("rowsAboutToBeRemoved"));
    connect(model, &Model::rowsRemoved, this, logRows("rowsRemoved"));
    connect(model, &Model::rowsMoved, this,
            [this](const QModelIndex &, int first, int last, const QModelIndex &, int destination) {
                record("rowsMoved", first, last);
                m_signals.last() += QStringLiteral(" to %1").arg(destination);
            });
    connect(model, &Model::dataChanged, this,
            [this](const QModelIndex &first, const QModelIndex &last, const QVector<int> &roles) {
                record(roles.isEmpty() ? "dataChanged" : "dataChanged of roles", first.row(), last.row());
            });
    connect(model, &Model::modelAboutToBeReset, this,
            [this] { m_signals.append(QStringLiteral("modelAboutToBeReset")); });
    connect(model, &Model::modelReset, this, [this] { m_signals.append(QStringLiteral("modelReset")); });

    const QMetaMethod slot = metaObject()->method(metaObject()->indexOfSlot("recordOwn()"));
    const QMetaObject *meta = model->metaObject();
    for (int i = meta->methodOffset(); i < meta->methodCount(); ++i) {
        if (meta->method(i).methodType() == QMetaMethod::Signal) {
            connect(model, meta->method(i), this, slot);
        }
    }
}

QStringList SignalLog::take()
{
    return std::exchange(m_signals, {});
}

void SignalLog::recordOwn()
{
    m_signals.append(QString::fromLatin1(sender()->metaObject()->method(senderSignalIndex()).name()));
}

void SignalLog::record(const char *signal, int first, int last)
{
    m_signals.append(QStringLiteral("%1 %2-%3").arg(QLatin1String(signal)).arg(first).arg(last));
}
