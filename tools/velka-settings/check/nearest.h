// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QString>
#include <QStringList>

namespace Check
{
/// Returns the one of @p known that is most similar to @p name; empty when none is similar enough.
QString nearest(const QString &name, const QStringList &known);
}
