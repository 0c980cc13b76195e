// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "windowpictures.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QLocale>
#include <QQmlEngine>
#include <QQmlIncubationController>
#include <QQuickItem>
#include <QQuickItemGrabResult>
#include <QQuickWindow>
#include <QSaveFile>
#include <QTimer>

#include <cstdio>

namespace
{
constexpr int PatienceMs = 10000;

/// Returns true while objects are created asynchronously. Tool bars create their buttons so, over several frames.
bool isIncubating(const QQuickWindow *window)
{
    return qmlEngine(window)->incubationController()->incubatingObjectCount() > 0;
}
}

WindowPictures::WindowPictures(QQuickWindow *window, const QDir &directory, const Condition &isReady)
    : m_window(window)
    , m_directory(directory)
    , m_isReady(isReady)
{
}

QString WindowPictures::file(const QString &name) const
{
    const QString language = QLocale().name().section(QLatin1Char('_'), 0, 0);
    return m_directory.filePath(QStringLiteral("%1-%2.png").arg(language, name));
}

bool WindowPictures::save(const QString &name)
{
    QImage last;
    const bool steady = waitFor([this, &last] {
        if (!m_isReady() || isIncubating(m_window)) {
            return false;
        }
        const QImage previous = last;
        last = grab();
        return !last.isNull() && last == previous;
    });
    // A program that waits for the file never reads a part of it.
    QSaveFile target(file(name));
    if (!steady) {
        return fail(QStringLiteral("The window does not come to rest: ") + target.fileName());
    }
    const bool saved = target.open(QIODevice::WriteOnly) && last.save(&target, "PNG") && target.commit();
    return saved || fail(QStringLiteral("Can't write ") + target.fileName());
}

bool WindowPictures::waitFor(const Condition &condition)
{
    QElapsedTimer timer;
    timer.start();
    do {
        waitForFrame();
        if (condition()) {
            return true;
        }
    } while (!timer.hasExpired(PatienceMs));
    return false;
}

void WindowPictures::waitForFrame()
{
    QEventLoop loop;
    QObject::connect(m_window, &QQuickWindow::frameSwapped, &loop, &QEventLoop::quit);
    QTimer::singleShot(PatienceMs, &loop, &QEventLoop::quit);
    m_window->update();
    loop.exec();
}

QImage WindowPictures::grab()
{
    // QQuickWindow::grabWindow() returns nothing on the offscreen platform.
    const QSharedPointer<QQuickItemGrabResult> result = m_window->contentItem()->grabToImage();
    if (!result) {
        return {};
    }
    QEventLoop loop;
    QObject::connect(result.data(), &QQuickItemGrabResult::ready, &loop, &QEventLoop::quit);
    QTimer::singleShot(PatienceMs, &loop, &QEventLoop::quit);
    loop.exec();
    return result->image();
}

bool fail(const QString &reason)
{
    std::fprintf(stderr, "%s\n", qPrintable(reason));
    return false;
}
