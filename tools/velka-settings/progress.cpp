// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "progress.h"

#include <unistd.h>

#include <chrono>
#include <cstdio>

namespace
{
constexpr std::chrono::milliseconds Interval(1000);
}

Progress::Progress()
    : m_isTerminal(isatty(STDERR_FILENO) != 0)
{
    m_sinceReport.start();
}

Progress::~Progress()
{
    if (m_lineIsOpen) {
        std::fputs("\r\x1b[K", stderr);
    }
}

void Progress::update(int done, int total)
{
    if (!m_sinceReport.hasExpired(Interval.count())) {
        return;
    }
    m_sinceReport.restart();
    std::fprintf(stderr, m_isTerminal ? "\r%d of %d files read" : "velka-settings: %d of %d files read\n", done,
                 total);
    m_lineIsOpen = m_isTerminal;
}
