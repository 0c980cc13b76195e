// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>

/// Runs one input. Ends the process if a check fails.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);
/// Prepares the process. Called once, before the first input.
extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv);

/// Ends the process with the text @p what unless @p holds is true.
void require(bool holds, const char *what);

/// Disables the leak checker during its lifetime: Qt's JSON parser leaks memory for some broken documents.
class LeakPermission
{
public:
    explicit LeakPermission(bool granted);
    ~LeakPermission();
    LeakPermission(const LeakPermission &) = delete;
    LeakPermission &operator=(const LeakPermission &) = delete;

private:
    const bool m_granted;
};
bool isJson(const QByteArray &bytes);

/// A directory for the files that a target writes.
class Scratch
{
public:
    QString path(const QString &name = {}) const;
    void makeDirectory(const QString &name) const;
    void write(const QString &name, const QByteArray &content) const;
    void remove(const QString &name) const;

private:
    const QTemporaryDir m_directory;
};
