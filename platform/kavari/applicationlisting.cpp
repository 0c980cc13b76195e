// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applicationlisting.h"

#include "printable.h"

#include <mdesktopentry.h>

#include <QStandardPaths>

#include <chrono>
#include <utility>

using namespace std::chrono_literals;

namespace
{
// Long enough to see most installations as one change, too short for the user to notice.
constexpr auto Delay = 100ms;
constexpr auto LookAgainInterval = 2s;

bool isShown(const MDesktopEntry &entry)
{
    const auto has = [&entry](const char *key, const char *value) {
        return entry.value(QStringLiteral("Desktop Entry"), QLatin1String(key)) == QLatin1String(value);
    };
    return entry.isValid() && has("Type", "Application") && !has("NoDisplay", "true") && !has("Hidden", "true");
}

QString readingError(const MDesktopEntry &entry)
{
    return QStringLiteral("cannot read \"%1\": %2").arg(entry.fileName(), entry.errorString());
}

void warn(const QString &problem)
{
    qWarning("LauncherFolderModel: %s", qUtf8Printable(printable(problem)));
}

/// Returns what decides on the content of a listing.
QStringList environment()
{
    QStringList values = QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation);
    for (const char *variable : {"LANGUAGE", "LC_ALL", "LC_MESSAGES", "LANG"}) {
        values.append(qEnvironmentVariable(variable)); // an entry has only the translations of its reader
    }
    return values;
}
}

std::shared_ptr<ApplicationListing> ApplicationListing::shared()
{
    static std::weak_ptr<ApplicationListing> s_listing;
    static QStringList s_environment;
    std::shared_ptr<ApplicationListing> listing = s_listing.lock();
    const QStringList current = environment();
    if (listing && s_environment == current) {
        listing->catchUp();
        return listing;
    }
    listing.reset(new ApplicationListing(QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation)));
    s_listing = listing;
    s_environment = current;
    return listing;
}

ApplicationListing::ApplicationListing(const QStringList &directories)
    : m_files(directories)
{
    m_delay.setSingleShot(true);
    m_delay.setInterval(Delay);
    m_lookAgain.setSingleShot(true);
    m_lookAgain.setInterval(LookAgainInterval);
    connect(&m_delay, &QTimer::timeout, this, [this] {
        update();
        announce();
    });
    connect(&m_lookAgain, &QTimer::timeout, this, [this] {
        updateAll();
        announce();
    });
    connect(&m_files, &ApplicationFiles::changed, this, &ApplicationListing::startDelay);
    readChanged(m_files.ids());
    checkProblems();
}

ApplicationListing::~ApplicationListing() = default;

QStringList ApplicationListing::ids() const
{
    return m_applications.keys();
}

std::optional<ListedApplication> ApplicationListing::application(const QString &id) const
{
    const auto found = m_applications.constFind(id);
    return found == m_applications.cend() ? std::nullopt : std::make_optional(*found);
}

/// Brings the listing up to date for a new model. The other models are notified later.
void ApplicationListing::catchUp()
{
    if (isOutdated()) {
        updateAll();
    } else {
        update();
    }
    if (!m_unannounced.isEmpty()) {
        startDelay();
    }
}

void ApplicationListing::update()
{
    m_unannounced += readChanged(m_files.update());
    checkProblems();
}

void ApplicationListing::updateAll()
{
    m_readingProblem.clear();
    m_unannounced += readChanged(m_files.updateAll());
    checkProblems();
}

void ApplicationListing::announce()
{
    const QSet<QString> ids = std::exchange(m_unannounced, {});
    if (!ids.isEmpty()) {
        const auto self = shared_from_this(); // a handler may delete the last model
        Q_EMIT changed(ids);
    }
}

void ApplicationListing::startDelay()
{
    // A running timer is not restarted: a steady stream of changes must not delay the first of them for ever.
    if (!m_delay.isActive()) {
        m_delay.start();
    }
}

/// Returns those of @p ids whose applications were added, removed or changed.
QSet<QString> ApplicationListing::readChanged(const QSet<QString> &ids)
{
    QSet<QString> changed;
    for (const QString &id : ids) {
        if (read(id)) {
            changed.insert(id);
        }
    }
    return changed;
}

bool ApplicationListing::read(const QString &id)
{
    const std::optional<ApplicationFile> file = m_files.file(id);
    if (!file) {
        return m_applications.remove(id) > 0;
    }
    const auto known = m_applications.constFind(id);
    if (known != m_applications.cend() && known->revision == file->revision) {
        return false;
    }
    std::shared_ptr<const MDesktopEntry> entry;
    if (file->regular) {
        entry = std::make_shared<const MDesktopEntry>(file->path);
        if (entry->isErrorTemporary()) {
            m_readingProblem = readingError(*entry);
            return false;
        }
        if (!entry->errorString().isEmpty()) {
            warn(readingError(*entry));
        }
    }
    m_applications.insert(id, {file->revision, entry && isShown(*entry) ? entry : nullptr});
    return true;
}

bool ApplicationListing::isOutdated() const
{
    return m_files.isOutdated() || !m_readingProblem.isEmpty();
}

void ApplicationListing::checkProblems()
{
    const QString problem = m_readingProblem.isEmpty() ? m_files.problem() : m_readingProblem;
    if (!problem.isEmpty() && !m_hasWarned) {
        warn(problem);
    }
    m_hasWarned = !problem.isEmpty();
    if (!isOutdated()) {
        m_lookAgain.stop();
    } else if (!m_lookAgain.isActive()) {
        m_lookAgain.start();
    }
}

#include "moc_applicationlisting.cpp"
