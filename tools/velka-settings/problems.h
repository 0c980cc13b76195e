// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

class LoadRecord;

/// Tells on standard error what is wrong with the files of @p record.
void printProblems(const LoadRecord &record);
