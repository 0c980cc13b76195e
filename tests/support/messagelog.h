// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QStringList>
#include <QtGlobal>

/// Collects what is logged while it lives, each message as "level category: text".
class MessageLog
{
public:
    MessageLog();
    ~MessageLog();
    MessageLog(const MessageLog &) = delete;
    MessageLog &operator=(const MessageLog &) = delete;

    /// The messages since the last call.
    static QStringList take();

private:
    const QtMessageHandler m_previous;
};

/// What a warning of the library's category looks like in the log.
QString settingsWarning(const char *message, const QString &quoted);
