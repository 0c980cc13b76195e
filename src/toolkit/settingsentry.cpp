// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "toolkit/settingsentry.h"

#include "common/constants.h"
#include "toolkit/entrypath.h"
#include "toolkit/entrywatcher.h"
#include "toolkit/favoriteslist.h"

#include <QMetaMethod>
#include <QPointer>

#include <array>
#include <iterator>
#include <utility>

namespace
{
template<auto read>
bool differs(const EntryChange &change)
{
    return (change.before.*read)() != (change.now.*read)();
}

template<auto read>
bool hasOtherText(const EntryChange &change)
{
    return change.hasUnknownTitles || differs<read>(change);
}

bool hasOtherBreadcrumb(const EntryChange &change)
{
    return change.hasOtherBreadcrumb && (change.before.exists() || change.now.exists());
}
}

const SettingsEntry::Property SettingsEntry::s_properties[11] = {
    {&SettingsEntry::existsChanged, differs<&EntryState::exists>},
    {&SettingsEntry::titleChanged, hasOtherText<&EntryState::title>},
    {&SettingsEntry::shortTitleChanged, hasOtherText<&EntryState::shortTitle>},
    {&SettingsEntry::iconChanged, differs<&EntryState::icon>},
    {&SettingsEntry::controlIconChanged, differs<&EntryState::controlIcon>},
    {&SettingsEntry::typeChanged, differs<&EntryState::type>},
    {&SettingsEntry::paramsChanged, differs<&EntryState::params>},
    {&SettingsEntry::dataChanged, differs<&EntryState::data>},
    {&SettingsEntry::fileChanged, differs<&EntryState::file>},
    {&SettingsEntry::breadcrumbChanged, hasOtherBreadcrumb},
    {&SettingsEntry::childCountChanged, differs<&EntryState::childCount>},
};

SettingsEntry::SettingsEntry(QObject *parent)
    : QObject(parent)
    , m_favoritesKey(Constants::FavoritesKey)
{
}

SettingsEntry::~SettingsEntry()
{
    if (m_watched) {
        EntryWatcher::instance()->unwatch(m_watched, this);
    }
}

QString SettingsEntry::path() const
{
    return m_path;
}

void SettingsEntry::setPath(const QString &path)
{
    if (path == m_path) {
        return;
    }
    const QPointer<SettingsEntry> self(this);
    const QString parentBefore = parentPath();
    EntryChange change;
    change.before = state();
    const WatchedPath *before = m_watched;
    m_path = path;
    watch();
    change.now = state();
    change.hasOtherBreadcrumb = m_watched != before;
    const bool hasOtherParent = parentPath() != parentBefore;

    Q_EMIT pathChanged();
    if (self && hasOtherParent) {
        Q_EMIT parentPathChanged();
    }
    if (self) {
        notify(change);
    }
    if (self) {
        updateFavorite();
    }
}

bool SettingsEntry::exists() const
{
    return state().exists();
}

QString SettingsEntry::title() const
{
    return state().title();
}

QString SettingsEntry::shortTitle() const
{
    return state().shortTitle();
}

QString SettingsEntry::icon() const
{
    return state().icon();
}

QString SettingsEntry::controlIcon() const
{
    return state().controlIcon();
}

QString SettingsEntry::type() const
{
    return state().type();
}

QVariantMap SettingsEntry::params() const
{
    return state().params();
}

QVariantMap SettingsEntry::data() const
{
    return state().data();
}

QString SettingsEntry::file() const
{
    return state().file();
}

QVariantList SettingsEntry::breadcrumb() const
{
    return m_watched ? EntryWatcher::breadcrumb(m_watched) : QVariantList();
}

QString SettingsEntry::parentPath() const
{
    QStringList names = EntryPath::names(m_path);
    if (!names.isEmpty()) {
        names.removeLast();
    }
    return EntryPath::joined(names);
}

int SettingsEntry::childCount() const
{
    return state().childCount();
}

bool SettingsEntry::favorite() const
{
    return m_favorites && m_favorites->contains(normalizedPath());
}

void SettingsEntry::setFavorite(bool favorite)
{
    if (!m_favorites || favorite == this->favorite()) {
        return;
    }
    const QPointer<SettingsEntry> self(this);
    const QSharedPointer<FavoritesList> favorites = m_favorites; // handlers may set another key
    favorites->setFavorite(normalizedPath(), favorite, m_userModifiedKey);
    if (self) {
        updateFavorite(); // the store may announce the list later
    }
}

QString SettingsEntry::favoritesKey() const
{
    return m_favoritesKey;
}

void SettingsEntry::setFavoritesKey(const QString &key)
{
    if (key == m_favoritesKey) {
        return;
    }
    m_favoritesKey = key;
    watch();
    const QPointer<SettingsEntry> self(this);
    Q_EMIT favoritesKeyChanged();
    if (self) {
        updateFavorite();
    }
}

QString SettingsEntry::userModifiedKey() const
{
    return m_userModifiedKey;
}

void SettingsEntry::setUserModifiedKey(const QString &key)
{
    if (key != m_userModifiedKey) {
        m_userModifiedKey = key;
        Q_EMIT userModifiedKeyChanged();
    }
}

bool SettingsEntry::isWatching(const WatchedPath *path) const
{
    return path == m_watched;
}

void SettingsEntry::notify(const EntryChange &change)
{
    if (m_announcement) { // it compares what it announced with the present state
        m_announcement->isStale = true;
        m_announcement->hasOtherBreadcrumb |= change.hasOtherBreadcrumb;
        return;
    }
    Announcement announcement{true, change.hasOtherBreadcrumb, change.hasUnknownTitles};
    m_announcement = &announcement;
    std::array<EntryState, std::size(s_properties)> announced;
    announced.fill(change.before);
    const QPointer<SettingsEntry> self(this);
    while (std::exchange(announcement.isStale, false)) {
        for (std::size_t i = 0; i < announced.size(); ++i) {
            announce(s_properties[i], &announced[i]);
            if (!self) {
                return;
            }
        }
        announcement.hasUnknownTitles = false;
    }
    m_announcement = nullptr;
}

/// Announces one property if it has another value than in the state that was @p announced last.
void SettingsEntry::announce(const Property &property, EntryState *announced)
{
    const QMetaMethod signal = QMetaMethod::fromSignal(property.changed);
    const EntryChange change{std::exchange(*announced, state()), state(), m_announcement->hasUnknownTitles,
                             m_announcement->hasOtherBreadcrumb};
    if (property.changed == &SettingsEntry::breadcrumbChanged) {
        m_announcement->hasOtherBreadcrumb = false;
    }
    // Without a connection nothing is read from the entry's file.
    if (isSignalConnected(signal) && property.concerns(change)) {
        Q_EMIT(this->*property.changed)();
    }
}

void SettingsEntry::updateFavorite()
{
    const bool isFavorite = favorite();
    if (std::exchange(m_wasFavorite, isFavorite) != isFavorite) {
        Q_EMIT favoriteChanged();
    }
}

const EntryState &SettingsEntry::state() const
{
    static const EntryState none;
    return m_watched ? m_watched->state : none;
}

QString SettingsEntry::normalizedPath() const
{
    return EntryPath::normalized(m_path);
}

/// Follows the path and the keys.
void SettingsEntry::watch()
{
    const QStringList names = EntryPath::names(m_path);
    const WatchedPath *before = m_watched;
    m_watched = names.isEmpty() ? nullptr : EntryWatcher::instance()->watch(names, this);
    if (before) { // afterwards, so that what both have in common stays
        EntryWatcher::instance()->unwatch(before, this);
    }
    const bool hasFavorites = m_watched && !m_favoritesKey.isEmpty();
    m_favorites = hasFavorites ? FavoritesList::ofKey(m_favoritesKey) : nullptr;
}

#include "moc_settingsentry.cpp"
