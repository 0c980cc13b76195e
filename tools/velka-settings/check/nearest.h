// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QString>
#include <QStringList>

namespace Check
{
/// The one of @p known that @p name is most likely meant to be; empty when none is much like it.
QString nearest(const QString &name, const QStringList &known);
}
