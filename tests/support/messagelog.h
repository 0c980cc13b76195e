// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QStringList>
#include <QtGlobal>

/// Collects all messages during its lifetime, each as "level category: text".
class MessageLog
{
public:
    MessageLog();
    ~MessageLog();
    MessageLog(const MessageLog &) = delete;
    MessageLog &operator=(const MessageLog &) = delete;

    /// Returns the messages since the last call.
    static QStringList take();

private:
    const QtMessageHandler m_previous;
};

/// Returns a warning of the library's category as the log has it.
QString settingsWarning(const char *message, const QString &quoted);
/// Returns it with a reason at its end.
QString settingsWarning(const char *message, const QString &quoted, const char *reason);
