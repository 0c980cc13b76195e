// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "entryfinder.h"

#include <QDBusContext>

/// Returns a receiver that replies to the call that @p context is handling, with the results as @p convert returns them.
/// What the running slot returns is ignored.
EntryFinder::Receiver delayedReply(const QDBusContext &context,
                                   QVariant (*convert)(const QVector<SearchResult> &results));
