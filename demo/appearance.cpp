// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "appearance.h"

#include <QCoreApplication>
#include <QFont>
#include <QGuiApplication>
#include <QIcon>
#include <QMutex>
#include <QString>
#include <QStringList>

#include <algorithm>
#include <atomic>

namespace
{
std::atomic_int s_warnings{0};
QtMessageHandler s_printMessage = nullptr;

struct {
    QMutex mutex; // any thread may warn
    QString beginning;
    bool came = false;
} s_expected;

bool isExpected(const QString &message)
{
    const QMutexLocker locker(&s_expected.mutex);
    const bool expected = !s_expected.beginning.isEmpty() && message.startsWith(s_expected.beginning);
    s_expected.came |= expected;
    return expected;
}

void countWarnings(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    // Warnings about a machine without a desktop
    static const QStringList harmless = {
        QStringLiteral("This plugin does not support propagateSizeHints()"),
        QStringLiteral("This plugin does not support raise()"),
        QStringLiteral("Failed to find a Kirigami platform plugin"),
        // Warnings about a page that is closed before its tool bar is complete, on a busy machine
        QStringLiteral("Could not create delegate for ToolBarLayout"),
        QStringLiteral("ActionToolBar.qml: Object or context destroyed during incubation"),
    };
    const bool isHarmless = std::any_of(harmless.cbegin(), harmless.cend(),
                                        [&message](const QString &text) { return message.contains(text); });
    if (isHarmless || isExpected(message)) {
        return;
    }
    if (type != QtDebugMsg && type != QtInfoMsg) {
        ++s_warnings;
    }
    s_printMessage(type, context, message);
}
}

void prepareApplication()
{
    s_printMessage = qInstallMessageHandler(countWarnings);
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
}

void setAppearance()
{
    // The offscreen platform has no directory of icons.
    QIcon::setThemeSearchPaths(QIcon::themeSearchPaths() << QStringLiteral("/usr/share/icons"));
    QIcon::setThemeName(QStringLiteral("breeze"));
    QGuiApplication::setFont(QFont(QStringLiteral("Noto Sans"), 10));
}

int warningCount()
{
    return s_warnings;
}

void expectWarning(const QString &beginning)
{
    const QMutexLocker locker(&s_expected.mutex);
    s_expected.beginning = beginning;
    s_expected.came = false;
}

bool expectedWarningCame()
{
    const QMutexLocker locker(&s_expected.mutex);
    return s_expected.came;
}
