// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "written.h"

#include <QStringList>

/// The keys in the schema.
namespace Check::KnownKeys
{
const QStringList &topLevel();
const QStringList &entry();
const QStringList &params();
/// Returns the keys of "params" that describe a D-Bus call.
QStringList action();

/// Returns the one of @p known keys that @p key, which is not one of them, seems to be meant as: because it is similar,
/// or because other formats call it so and @p object does not have it. Empty when there is none.
QString meantBy(const QString &key, const Written &object, const QStringList &known);
}
