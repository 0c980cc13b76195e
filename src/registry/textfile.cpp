// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/textfile.h"

#include <regularfile.h>

#include <cstring>

namespace
{
constexpr qint64 MaxSize = 64 << 20; // parsed, it can take eight times as much
}

std::optional<QByteArray> readTextFile(const QString &path, QString *shortage)
{
    FileContent content = readRegularFile(path, MaxSize);
    if (!content.error.isEmpty()) {
        if (shortage && content.isShortage) {
            *shortage = content.error;
        }
        return {};
    }
    // As QIODevice::Text does, at a fraction of its cost
    if (std::memchr(content.bytes.constData(), '\r', size_t(content.bytes.size()))) {
        content.bytes.replace('\r', "");
    }
    return content.bytes;
}
