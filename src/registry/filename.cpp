// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/filename.h"

#include <QFile>

#include <climits>

bool isFileName(const QString &name)
{
    return QFile::encodeName(name).size() <= NAME_MAX && !name.contains(QChar::Null);
}
