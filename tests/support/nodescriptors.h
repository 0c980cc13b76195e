// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QtGlobal>

#include <sys/resource.h>

/// While it lives, this process can open no file.
class NoDescriptors
{
public:
    NoDescriptors();
    ~NoDescriptors();
    Q_DISABLE_COPY(NoDescriptors)

private:
    rlimit m_limit;
};
