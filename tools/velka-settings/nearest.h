// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QString>
#include <QStringList>

/// Returns how many letters have to be changed, added, removed or swapped with the next one to turn @p a into @p b.
int editDistance(const QString &a, const QString &b);

/// Returns whether @p name can be a misspelling of @p other: one mistake in up to five letters, two in more. Case, and
/// how words are joined, does not count. Returns false for equal names.
bool isMisspelling(const QString &name, const QString &other);

/// Returns the one of @p known that is most similar to @p name; empty when none is similar enough.
QString nearest(const QString &name, const QStringList &known);
