// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QStringList>

/// Half of what a message bus takes by default. It ends the connection over a larger message.
constexpr qint64 MaxMessageBytes = qint64(16) * 1024 * 1024;

/// Returns true when a message can hold @p texts.
bool fitsIntoMessage(const QStringList &texts);
