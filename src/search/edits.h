// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QStringView>

/// Returns whether up to @p edits edits make @p word the other one: a letter that is added, left out or replaced, or two
/// that change places.
bool isWithinEdits(QStringView word, QStringView other, int edits);
/// Returns whether up to @p edits edits make @p word the start of the other one.
bool isStartWithinEdits(QStringView word, QStringView other, int edits);
