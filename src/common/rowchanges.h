// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "common/velkasettings_export.h"

#include <QObject>

#include <functional>

/**
 * Keeps the changes of a model's rows apart. Handlers of a model's signals may ask for another change in the middle of
 * one; it is deferred until the rows are complete again. Then the model rebuilds them once, whatever was deferred.
 */
class VELKASETTINGS_PRIVATE_EXPORT RowChanges
{
public:
    using Change = std::function<void()>;

    /// A member of @p model, which @p rebuild brings up to date.
    RowChanges(const QObject *model, Change rebuild);

    bool isRunning() const;
    /// Requests that the rows are rebuilt after the running change.
    void defer();
    /**
     * Runs @p change, then @p notify, then what was deferred meanwhile. Defers @p change when another one is running.
     * A @p change that has deleted the model must not touch it afterwards.
     */
    void run(const Change &change, const Change &notify = {});

private:
    const QObject *const m_model;
    const Change m_rebuild;
    bool m_isRunning = false;
    bool m_isDeferred = false;
};
