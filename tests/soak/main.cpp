// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applicationservices.h"
#include "common/messages.h"
#include "soak/operations.h"
#include "soak/pages.h"
#include "soak/resources.h"
#include "soak/soakworld.h"
#include "text.h"
#include "toolkit/settingsentry.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>
#include <optional>

namespace
{
constexpr int CheckpointInterval = 500; ///< operations between checks that wait
constexpr int MinWarmUp = 750; ///< operations after which everything has been used once

/// Messages that the operations cause, because services stop and entries are removed.
constexpr const char *s_expected[] = {Messages::CannotReadEntries,   Messages::NoApplicationsSection,
                                      Messages::AlwaysAllowedFailed, Messages::NotificationsListFailed,
                                      Messages::PathNotFound,        Messages::AppInfoFailed,
                                      Messages::NotAdding,           Messages::TryingAgain,
                                      Messages::CannotReadFavorites, Messages::NoTree,
                                      Messages::CannotShowPage};
/// The beginnings of other such messages.
constexpr const char *s_expectedStarts[] = {"Failed to get allowlist for uid",
                                            "Failed to get autostart list for uid",
                                            "Failed to set notifications config for", "Cant find application:"};

QString s_unexpected;
int s_messages = 0;

void judgeMessage(QtMsgType, const QMessageLogContext &, const QString &message)
{
    const auto begins = [&message](const char *start) { return message.startsWith(text(start)); };
    ++s_messages;
    if (std::none_of(std::begin(s_expected), std::end(s_expected), begins)
        && std::none_of(std::begin(s_expectedStarts), std::end(s_expectedStarts), begins)) {
        s_unexpected += message + QLatin1Char('\n');
        std::fprintf(stderr, "%s\n", qPrintable(message));
    }
}

void print(const QString &line)
{
    std::printf("%s\n", qPrintable(line));
    std::fflush(stdout);
}

class Soak
{
public:
    Soak(quint32 seed, Mode mode)
        : m_world(seed)
        , m_mode(mode)
    {
        m_services.reset();
        openAllKinds(&m_world, &m_services);
        SettingsEntry().setPath(text("system_settings")); // creates what all entries share
    }

    /// Runs operations until @p isOver returns true. Returns false after a failed check.
    template<typename IsOver>
    bool operate(const IsOver &isOver)
    {
        while (!isOver()) {
            ::operate(&m_world, &m_services, &m_pages, m_mode);
            ++m_operations;
            QCoreApplication::processEvents();
            const bool waits = m_operations % CheckpointInterval == 0;
            const QString violation = waits ? violationAfterWaiting() : this->violation();
            if (!violation.isEmpty()) {
                print(text("VIOLATION after operation %1: %2").arg(m_operations).arg(violation));
                return false;
            }
        }
        return true;
    }

    /// Measures without open pages, entries and applications.
    Resources restAndMeasure()
    {
        m_pages.clear();
        m_world.clear();
        m_services.settle();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        if (!comesTrue([] { return runningTimers() == 0; })) {
            print(text("Timers do not come to rest"));
        }
        return Resources::measured();
    }

    int operations() const
    {
        return m_operations;
    }

private:
    QString violation() const
    {
        if (!s_unexpected.isEmpty()) {
            return s_unexpected;
        }
        for (const auto &page : m_pages) {
            const QString violation = page->violation(m_world);
            if (!violation.isEmpty()) {
                return violation;
            }
        }
        return m_world.violation();
    }

    QString violationAfterWaiting() const
    {
        const auto isUpToDate = [this](const auto &page) { return page->isUpToDate(m_world); };
        if (!comesTrue([&] { return std::all_of(m_pages.cbegin(), m_pages.cend(), isUpToDate); })) {
            return text("An applications model does not show what is installed");
        }
        const QString seenOutside = m_world.violationOutside();
        return seenOutside.isEmpty() ? violation() : seenOutside;
    }

    SoakWorld m_world;
    const Mode m_mode;
    ApplicationServices m_services;
    Pages m_pages;
    int m_operations = 0;
};

/// Runs for @p minutes, or otherwise for @p operations. The first fifth is the warm-up, at least MinWarmUp operations.
bool run(quint32 seed, Mode mode, std::optional<int> minutes, int operations)
{
    QElapsedTimer timer;
    timer.start();
    Soak soak(seed, mode);
    const Resources start = soak.restAndMeasure();
    print(text("Seed %1\nAt the start:  %2").arg(seed).arg(start.toString()));

    const auto elapsedPart = [&] {
        return minutes ? double(timer.elapsed()) / (*minutes * 60000.0) : double(soak.operations()) / operations;
    };
    if (!soak.operate([&] { return elapsedPart() >= 0.2 && soak.operations() >= MinWarmUp; })) {
        return false;
    }
    const Resources warm = soak.restAndMeasure();
    print(text("After warm-up: %1").arg(warm.toString()));

    QElapsedTimer operating;
    operating.start();
    const int before = soak.operations();
    if (!soak.operate([&] { return elapsedPart() >= 1; })) {
        return false;
    }
    const double rate = (soak.operations() - before) * 1000.0 / operating.elapsed();
    const Resources end = soak.restAndMeasure();
    print(text("At the end:    %1").arg(end.toString()));
    print(text("%1 operations, %2 a second, %3 expected messages")
              .arg(soak.operations())
              .arg(rate, 0, 'f', 0)
              .arg(s_messages));
    const QString growth = end.growthSince(warm);
    if (!growth.isEmpty()) {
        print(text("GROWTH: ") + growth);
    }
    return growth.isEmpty();
}
}

int main(int argc, char *argv[])
{
    followObjects();
    QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(text("Changes files, keys and services at random and checks the models."));
    parser.addHelpOption();
    parser.addOptions(
        {{text("minutes"), text("Minutes to run."), text("number")},
         {text("operations"), text("Operations to run without --minutes."), text("number"), text("10000")},
         {text("chaos"), text("Let hosts interfere with their models, and services and descriptors fail.")},
         {text("seed"), text("Seed of the random numbers, to repeat a run."), text("number")}});
    parser.process(application);
    const quint32 seed = parser.isSet(text("seed")) ? parser.value(text("seed")).toUInt()
                                                    : QRandomGenerator::global()->generate();
    std::optional<int> minutes;
    if (parser.isSet(text("minutes"))) {
        minutes = parser.value(text("minutes")).toInt();
    }
    const Mode mode = parser.isSet(text("chaos")) ? Mode::Chaos : Mode::Usual;
    qInstallMessageHandler(judgeMessage);
    return run(seed, mode, minutes, parser.value(text("operations")).toInt()) ? EXIT_SUCCESS : EXIT_FAILURE;
}
