// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

// Counts the method calls of the demo's pages on the two buses, which do not depend on the machine. Each page is opened
// twice, because the process keeps some of the results of the first time. Runs in the sandbox of the demo.

#include "buswatch.h"
#include "report.h"

#include "appearance.h"
#include "demowindow.h"
#include "qmlcall.h"
#include "windowinput.h"
#include "windowpictures.h"

#include <QCommandLineParser>
#include <QGuiApplication>
#include <QQuickWindow>

#include <numeric>

namespace
{
constexpr int LooksAtRest = 5;
constexpr int MaxCallsAtStart = 7;
const QStringList s_topPath = {QStringLiteral("system_settings")};
const QStringList s_entryPath = s_topPath + QStringList{QStringLiteral("connectivity"), QStringLiteral("wlan")};
const QString s_application = QStringLiteral("application maps.desktop");
const QString s_applicationEntry = QStringLiteral("entry applications/maps.desktop/offline");

struct Page {
    const char *name;
    bool (*open)(QQuickWindow *window);
    int openPages; ///< the number of open pages, this one included
    int maximum; ///< the calls of the first time, as measured today
    int maximumAgain;
};

template<typename... Arguments>
bool call(QQuickWindow *window, const char *function, const Arguments &...arguments)
{
    callQml(window, function, arguments...);
    return true;
}

// Each page is opened from the previous one or from the top page. The page of an entry may show whether the entry is a
// favourite, so it watches the stored list.
const Page s_pages[] = {
    {"entry", [](QQuickWindow *window) { return call(window, "showEntry", s_entryPath, false); }, 2, 0, 1},
    {"details", [](QQuickWindow *window) { return call(window, "showEntry", s_entryPath, true); }, 3, 0, 0},
    {"drawer", [](QQuickWindow *window) { return call(window, "setDrawerOpen", true); }, 3, 0, 0},
    {"favourites",
     [](QQuickWindow *window) { return call(window, "setDrawerOpen", false) && call(window, "openFavorites"); }, 2,
     5, 2},
    {"choice of favourites", [](QQuickWindow *window) { return call(window, "openFavoriteChoice", 1); }, 3, 0, 0},
    {"applications", [](QQuickWindow *window) { return call(window, "openApplications"); }, 2, 18, 6},
    {"application", [](QQuickWindow *window) { return click(window, s_application); }, 3, 0, 0},
    {"entry of an application", [](QQuickWindow *window) { return click(window, s_applicationEntry); }, 4, 1, 1},
};

/// Opens the pages of the demo and counts the calls.
class Tour
{
public:
    explicit Tour(const QString &packagesDirectory)
        : m_demo(packagesDirectory)
        , m_window(m_demo.open({{QStringLiteral("animated"), false}}))
        , m_frames(m_window, {}, {})
    {
        if (!m_window) {
            qFatal("The window of the demo can't be opened");
        }
    }

    QVector<Measure> walk()
    {
        addCalls(QStringLiteral("top"), MaxCallsAtStart);
        for (const Page &page : s_pages) {
            open(page);
            addCalls(QString::fromUtf8(page.name), page.maximum);
        }
        for (const Page &page : s_pages) {
            open(page);
            addCalls(QString::fromUtf8(page.name) + QStringLiteral(" again"), page.maximumAgain);
        }
        return m_measures;
    }

private:
    void open(const Page &page)
    {
        const auto isOpen = [&] { return m_window->property("openPages").toInt() == page.openPages; };
        if (!page.open(m_window) || !m_frames.waitFor(isOpen)) {
            qFatal("Can't open the page %s", page.name);
        }
    }

    /// Waits for the end of the calls and adds those since the previous page.
    void addCalls(const QString &page, int maximum)
    {
        waitForRest();
        QMap<QString, int> calls = m_session.takeCalls();
        const QMap<QString, int> systemCalls = m_system.takeCalls();
        for (auto call = systemCalls.cbegin(); call != systemCalls.cend(); ++call) {
            calls[call.key()] += *call;
        }
        const QString name = QStringLiteral("D-Bus calls, page %1").arg(page);
        const int sum = std::accumulate(calls.cbegin(), calls.cend(), 0);
        if (m_measures.isEmpty() && sum == 0) {
            qFatal("The monitor does not report the calls of the demo");
        }
        m_measures.append({name, QStringLiteral("≤ %1").arg(maximum), {double(sum)}, double(maximum)});
        for (auto call = calls.cbegin(); call != calls.cend(); ++call) {
            m_measures.append({name + QStringLiteral(", of ") + call.key(), {}, {double(*call)}});
        }
    }

    void waitForRest()
    {
        int looks = 0;
        const bool rests = m_frames.waitFor([this, &looks] {
            const bool sessionRests = m_session.isAtRest();
            const bool systemRests = m_system.isAtRest();
            const bool rests = sessionRests && systemRests && m_window->property("settled").toBool();
            looks = rests ? looks + 1 : 0;
            return looks == LooksAtRest;
        });
        if (!rests) {
            qFatal("The demo does not stop calling");
        }
    }

    BusWatch m_session{QDBusConnection::SessionBus}; // before the demo calls
    BusWatch m_system{QDBusConnection::SystemBus};
    DemoWindow m_demo;
    QQuickWindow *const m_window;
    WindowPictures m_frames;
    QVector<Measure> m_measures;
};
}

int main(int argc, char *argv[])
{
    prepareApplication();
    const QGuiApplication application(argc, argv);
    QCommandLineParser parser;
    const QCommandLineOption packages(QStringLiteral("packages"), {}, QStringLiteral("DIR"));
    const QCommandLineOption check(QStringLiteral("check"));
    parser.addOptions({packages, check});
    parser.process(application);
    setAppearance();

    // A second walk would use what the process keeps from the first one.
    Report report;
    report.measures = Tour(parser.value(packages)).walk();
    return runBenchmark(QCoreApplication::arguments(), [&report](Effort) { return report; });
}
