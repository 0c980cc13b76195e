// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

class LoadRecord;

/// Prints the problems with the files of @p record on standard error.
void printProblems(const LoadRecord &record);
