// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QByteArray>

#include <optional>

class QString;

/// The content of the file at @p path without carriage returns. Nothing when it is no regular file or cannot be read.
std::optional<QByteArray> readTextFile(const QString &path);
