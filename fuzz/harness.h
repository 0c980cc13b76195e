// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>

/// Runs one input. What is wrong ends the process.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);
/// Prepares the process, once, before the first input.
extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv);

/// Ends the process, saying @p what should be, unless it @p holds.
void require(bool holds, const char *what);

/// While one lives, what is allocated may leak: Qt's JSON parser loses what it has read of a broken document.
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

/// A directory for the files that a target makes of its input.
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
