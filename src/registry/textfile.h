// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QByteArray>

#include <optional>

class QString;

/// Returns the content of the file at @p path without carriage returns, or nothing when it is not a regular file or
/// cannot be read. If that is because descriptors or memory are short, @p shortage gets the error's text.
std::optional<QByteArray> readTextFile(const QString &path, QString *shortage = nullptr);
