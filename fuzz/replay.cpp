// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

// Runs a target without libFuzzer on the inputs that the arguments name: files, or directories of them.

#include "harness.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdio>

namespace
{
QStringList inputsOf(const QString &path)
{
    if (!QFileInfo(path).isDir()) {
        return {path};
    }
    QStringList paths;
    const QFileInfoList files = QDir(path).entryInfoList(QDir::Files);
    for (const QFileInfo &file : files) {
        paths.append(file.filePath());
    }
    return paths;
}

void run(const QString &path)
{
    // Printed first, so that it is known after a crash.
    std::fprintf(stderr, "%s\n", qPrintable(path));
    QFile file(path);
    require(file.open(QIODevice::ReadOnly), "the input can be read");
    const QByteArray input = file.readAll();
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(input.constData()), std::size_t(input.size()));
}
}

int main(int argc, char *argv[])
{
    LLVMFuzzerInitialize(&argc, &argv);
    QStringList inputs;
    for (int i = 1; i < argc; ++i) {
        inputs += inputsOf(QFile::decodeName(argv[i]));
    }
    require(!inputs.isEmpty(), "there is an input");
    for (const QString &input : inputs) {
        run(input);
    }
}
