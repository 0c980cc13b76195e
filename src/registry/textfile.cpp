// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/textfile.h"

#include <QFile>
#include <QFileInfo>

std::optional<QByteArray> readTextFile(const QString &path)
{
    QFile file(path);
    // To open a pipe would wait for its writer.
    if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly)) {
        return {};
    }
    // What QIODevice::Text does, at a fraction of its cost
    QByteArray content = file.readAll();
    if (content.contains('\r')) {
        content.replace('\r', "");
    }
    return content;
}
