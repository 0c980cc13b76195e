// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "listsource.h"
#include "modelreplica.h"
#include "signallog.h"
#include "toolkit/stablelistmodel.h"

#include <QAbstractItemModelTester>

/// A StableListModel, and all that watches the signals of a model.
class StableList
{
public:
    explicit StableList(QAbstractItemModel *source, const char *keyRole = "key");

    StableListModel *operator->();

    /// Returns the signals since the last call, without those that precede a change.
    QStringList takeSignals();

    /// Returns true if the rows are those of the source, and what was announced is what happened.
    bool isConsistent() const;

private:
    StableListModel m_model;
    const QAbstractItemModelTester m_tester{&m_model, QAbstractItemModelTester::FailureReportingMode::QtTest};
    const ModelReplica m_keys{&m_model, ListSource::KeyRole};
    const ModelReplica m_values{&m_model, ListSource::ValueRole};
    const ModelReplica m_objects{&m_model, ListSource::ObjectRole};
    SignalLog m_log{&m_model};
};
