// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "commands.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <vector>

#include <unistd.h>

namespace
{
/// The program that makes the preview: where it is installed, or was built.
QString previewProgram()
{
    for (const char *place : {"/" VELKA_TO_PROGRAMS "/preview", "/../../demo/preview/preview"}) {
        QString path = QCoreApplication::applicationDirPath() + QLatin1String(place);
        if (QFileInfo(path).isExecutable()) {
            return path;
        }
    }
    return {};
}
}

int Commands::preview(const QStringList &arguments)
{
    const QString program = previewProgram();
    if (program.isEmpty()) {
        std::fputs("velka-settings: the preview is not installed\n", stderr);
        return CannotRun;
    }
    std::vector<QByteArray> words{QFile::encodeName(program)};
    for (const QString &argument : arguments) {
        words.push_back(QFile::encodeName(argument));
    }
    std::vector<char *> pointers;
    pointers.reserve(words.size() + 1);
    for (QByteArray &word : words) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    execv(pointers.front(), pointers.data()); // returns only when it fails
    std::fprintf(stderr, "velka-settings: cannot start %s: %s\n", words.front().constData(), std::strerror(errno));
    return CannotRun;
}
