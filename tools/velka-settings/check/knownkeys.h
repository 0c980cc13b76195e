// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QStringList>

/// The keys in the schema.
namespace Check::KnownKeys
{
const QStringList &topLevel();
const QStringList &entry();
const QStringList &params();
/// Returns the keys of "params" that describe a D-Bus call.
QStringList action();
}
