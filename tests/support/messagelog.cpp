// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "messagelog.h"

#include <QHash>

#include <utility>

namespace
{
QStringList s_messages;

void collect(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    static const QHash<QtMsgType, QString> levels{{QtDebugMsg, QStringLiteral("debug")},
                                                  {QtInfoMsg, QStringLiteral("info")},
                                                  {QtWarningMsg, QStringLiteral("warning")},
                                                  {QtCriticalMsg, QStringLiteral("critical")},
                                                  {QtFatalMsg, QStringLiteral("fatal")}};
    s_messages.append(levels.value(type) + QLatin1Char(' ') + QLatin1String(context.category) + QLatin1String(": ")
                      + message);
}
}

MessageLog::MessageLog()
    : m_previous(qInstallMessageHandler(collect))
{
    s_messages.clear();
}

MessageLog::~MessageLog()
{
    qInstallMessageHandler(m_previous);
}

QStringList MessageLog::take()
{
    return std::exchange(s_messages, {});
}

QString settingsWarning(const char *message, const QString &quoted)
{
    return QStringLiteral("warning org.orvantaos.settings.framework: %1 \"%2\"")
        .arg(QString::fromUtf8(message), quoted);
}

QString settingsWarning(const char *message, const QString &quoted, const char *reason)
{
    return settingsWarning(message, quoted) + QStringLiteral(": ") + QString::fromUtf8(reason);
}
