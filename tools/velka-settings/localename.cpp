// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "localename.h"

#include <QLocale>

bool isLocale(const QString &name)
{
    return QLocale(name).language() != QLocale::C || name == QLatin1String("C");
}
