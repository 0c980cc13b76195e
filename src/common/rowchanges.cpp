// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "common/rowchanges.h"

#include <QPointer>

#include <utility>

RowChanges::RowChanges(const QObject *model, Change rebuild)
    : m_model(model)
    , m_rebuild(std::move(rebuild))
{
}

bool RowChanges::isRunning() const
{
    return m_isRunning;
}

void RowChanges::defer()
{
    m_isDeferred = true;
}

void RowChanges::run(const Change &change, const Change &notify)
{
    if (m_isRunning) {
        defer();
        return;
    }
    const QPointer<const QObject> model(m_model);
    m_isRunning = true;
    change();
    if (!model) {
        return;
    }
    m_isRunning = false;
    if (notify) {
        notify();
    }
    if (model && std::exchange(m_isDeferred, false)) {
        m_rebuild();
    }
}
