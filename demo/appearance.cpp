// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "appearance.h"

#include <QCoreApplication>
#include <QFont>
#include <QGuiApplication>
#include <QIcon>
#include <QLocale>
#include <QMutex>
#include <QPalette>
#include <QString>
#include <QStringList>
#include <QTranslator>

#include <algorithm>
#include <atomic>
#include <cstring>

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
        // Entries of pages that are not installed. Their pages show the message.
        QStringLiteral("\\\"source\\\" is not the absolute path of a file"),
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

/// Qt looks up the direction of the layout as a text, whenever a translator is installed.
class DirectionTranslator : public QTranslator
{
public:
    using QTranslator::QTranslator;

    bool isEmpty() const override
    {
        return false;
    }

    QString translate(const char *, const char *sourceText, const char *, int) const override
    {
        const bool isDirection = std::strcmp(sourceText, "QT_LAYOUT_DIRECTION") == 0;
        return isDirection ? QStringLiteral("RTL") : QString();
    }
};

QPalette darkPalette()
{
    QPalette palette;
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, QColor(0xfc, 0xfc, 0xfc));
        palette.setColor(QPalette::Disabled, role, QColor(0xa1, 0xa9, 0xb1));
    }
    for (const auto role : {QPalette::Window, QPalette::ToolTipBase}) {
        palette.setColor(role, QColor(0x2a, 0x2e, 0x32));
    }
    palette.setColor(QPalette::Button, QColor(0x31, 0x36, 0x3b));
    palette.setColor(QPalette::Base, QColor(0x1b, 0x1e, 0x20));
    palette.setColor(QPalette::AlternateBase, QColor(0x23, 0x26, 0x29));
    palette.setColor(QPalette::Highlight, QColor(0x3d, 0xae, 0xe9));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(0x5f, 0xbd, 0xf2));
    palette.setColor(QPalette::LinkVisited, QColor(0xb8, 0x8f, 0xe0));
    return palette;
}
}

void prepareApplication()
{
    s_printMessage = qInstallMessageHandler(countWarnings);
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
}

void setAppearance(const Appearance &appearance)
{
    // The offscreen platform has no directory of icons.
    QIcon::setThemeSearchPaths(QIcon::themeSearchPaths() << QStringLiteral("/usr/share/icons"));
    QIcon::setThemeName(appearance.dark ? QStringLiteral("breeze-dark") : QStringLiteral("breeze"));
    QGuiApplication::setFont(QFont(QStringLiteral("Noto Sans"), qRound(10 * appearance.textScale)));
    if (appearance.dark) {
        QGuiApplication::setPalette(darkPalette());
    }
}

void setLocale(const QString &name)
{
    const QLocale locale(name);
    QLocale::setDefault(locale);
    if (locale.textDirection() == Qt::RightToLeft) {
        QCoreApplication::installTranslator(new DirectionTranslator(QCoreApplication::instance()));
    }
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
