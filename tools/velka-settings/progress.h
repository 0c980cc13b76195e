// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QElapsedTimer>

/// Prints on standard error how many files have been read, once reading takes longer than a second.
class Progress
{
public:
    Progress();
    ~Progress();
    Progress(const Progress &) = delete;
    Progress &operator=(const Progress &) = delete;

    void update(int done, int total);

private:
    const bool m_isTerminal;
    QElapsedTimer m_sinceReport;
    bool m_lineIsOpen = false;
};
