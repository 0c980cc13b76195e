// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "toolkit/settingsnavigation.h"

#include "common/logging.h"
#include "common/logtext.h"
#include "common/messages.h"
#include "registry/pluginregistry.h"
#include "registry/treeitem.h"
#include "toolkit/entrypath.h"
#include "toolkit/navigationstate.h"
#include "toolkit/settingsentry.h"

namespace
{
constexpr int MaxPages = 100;
}

SettingsNavigation::SettingsNavigation(QObject *parent)
    : QObject(parent)
    , m_pageTypes{QStringLiteral("page"), QStringLiteral("section")}
    , m_announcer(
          *this,
          {
              {&SettingsNavigation::rootChanged, [](const auto &self) { return QVariant(self.root()); }},
              {&SettingsNavigation::pathsChanged, [](const auto &self) { return QVariant(self.paths()); }},
              {&SettingsNavigation::currentChanged, [](const auto &self) { return QVariant(self.current()); }},
              {&SettingsNavigation::canGoBackChanged, [](const auto &self) { return QVariant(self.canGoBack()); }},
              {&SettingsNavigation::rowChanged, [](const auto &self) { return QVariant(self.row()); }},
              {&SettingsNavigation::stateChanged, [](const auto &self) { return QVariant(self.state()); }},
          })
{
}

QString SettingsNavigation::root() const
{
    return m_root;
}

void SettingsNavigation::setRoot(const QString &root)
{
    const QString normalized = EntryPath::normalized(root);
    if (normalized != m_root) {
        m_root = normalized;
        moveTo({});
    }
}

QStringList SettingsNavigation::pageTypes() const
{
    return m_pageTypes;
}

void SettingsNavigation::setPageTypes(const QStringList &types)
{
    if (types != m_pageTypes) {
        m_pageTypes = types;
        Q_EMIT pageTypesChanged();
    }
}

QStringList SettingsNavigation::paths() const
{
    return QStringList{m_root} + m_place.pages;
}

QString SettingsNavigation::current() const
{
    return topOf(m_place.pages);
}

bool SettingsNavigation::canGoBack() const
{
    return !m_place.pages.isEmpty();
}

QString SettingsNavigation::row() const
{
    return m_place.row;
}

QString SettingsNavigation::state() const
{
    return NavigationState{m_place.pages, m_place.row}.toText();
}

void SettingsNavigation::setState(const QString &state)
{
    if (const auto saved = NavigationState::parse(state, MaxPages)) {
        restore(saved->pages, saved->row);
    } else {
        qCWarning(lcSettings) << Messages::WrongNavigationState;
    }
}

bool SettingsNavigation::open(const QString &path)
{
    return openAbove(m_place.pages, path);
}

bool SettingsNavigation::openFrom(const QString &page, const QString &path)
{
    return openAbove(pagesUpTo(EntryPath::normalized(page)), path);
}

bool SettingsNavigation::back()
{
    if (!canGoBack()) {
        return false;
    }
    Place place{m_place.pages, {}};
    place.pages.removeLast();
    moveTo(place);
    return true;
}

/// Returns the page that shows the entry at @p path, nothing if there is no such entry or page.
std::optional<SettingsNavigation::PageAndRow> SettingsNavigation::addressOf(const QString &path) const
{
    const QStringList rootNames = EntryPath::names(m_root);
    QStringList names = EntryPath::names(path);
    const QString entry = EntryPath::joined(names);
    const TreeItem *item = PluginRegistry::instance()->getItem(names);
    while (item && names != rootNames && !names.isEmpty() && !isPage(item)) {
        names.removeLast();
        item = item->parentItem();
    }
    const bool isRoot = names == rootNames; // the root is a page even if it does not exist
    if (!isRoot && (!item || names.isEmpty())) {
        return {};
    }
    const QString page = EntryPath::joined(names);
    return PageAndRow{page, page == entry ? QString() : entry};
}

bool SettingsNavigation::isPage(const TreeItem *item) const
{
    return m_pageTypes.contains(item->type());
}

/// Opens the page of @p path above @p pages, unless that is one of them.
bool SettingsNavigation::openAbove(const QStringList &pages, const QString &path)
{
    const std::optional<PageAndRow> address = addressOf(path);
    if (!address) {
        qCWarning(lcSettings) << Messages::NoPage << quoted(path.left(MaxLoggedLength));
        return false;
    }
    Place place{pages, address->row};
    if (address->page == m_root || pages.contains(address->page)) {
        place.pages = pagesUpTo(address->page);
    } else {
        place.pages = pages.mid(qMax(0, pages.size() + 1 - MaxPages)) << address->page;
    }
    const QPointer<SettingsNavigation> self(this);
    moveTo(place);
    if (self && !address->row.isEmpty()) {
        Q_EMIT rowRequested(address->row);
    }
    return true;
}

/// Returns the open pages above the root up to @p page, all if that page is not open.
QStringList SettingsNavigation::pagesUpTo(const QString &page) const
{
    const int count = paths().indexOf(page); // without the root
    return m_place.pages.mid(0, count); // a negative number means all
}

/// Returns the page on top of @p pages.
QString SettingsNavigation::topOf(const QStringList &pages) const
{
    return pages.isEmpty() ? m_root : pages.constLast();
}

void SettingsNavigation::restore(const QStringList &pages, const QString &row)
{
    Place place;
    for (const QString &page : pages) {
        const std::optional<PageAndRow> address = addressOf(page);
        const bool isOpen = address && (address->page == m_root || place.pages.contains(address->page));
        if (address && address->row.isEmpty() && !isOpen) {
            place.pages.append(address->page);
        }
    }
    const std::optional<PageAndRow> address = addressOf(row);
    if (address && address->page == topOf(place.pages)) {
        place.row = address->row;
    }
    moveTo(place);
}

void SettingsNavigation::moveTo(const Place &place)
{
    m_place = place;
    watch();
    m_announcer.announce(this);
}

/// Follows the entries of the pages and of the row, and no others.
void SettingsNavigation::watch()
{
    QHash<QString, SettingsEntry *> before;
    before.swap(m_entries);
    QStringList paths = m_place.pages;
    if (!m_place.row.isEmpty() && !paths.contains(m_place.row)) {
        paths.append(m_place.row);
    }
    for (const QString &path : qAsConst(paths)) {
        SettingsEntry *entry = before.take(path);
        m_entries.insert(path, entry ? entry : watched(path));
    }
    qDeleteAll(before);
}

SettingsEntry *SettingsNavigation::watched(const QString &path)
{
    auto *entry = new SettingsEntry(this);
    entry->setFavoritesKey({}); // nothing here reads "favorite"
    entry->setPath(path);
    connect(entry, &SettingsEntry::existsChanged, this, &SettingsNavigation::closeVanished);
    return entry;
}

void SettingsNavigation::closeVanished()
{
    Place place = m_place;
    QStringList vanished;
    for (const QString &page : qAsConst(m_place.pages)) {
        if (!exists(page)) {
            place.pages.removeOne(page);
            vanished.append(page);
        }
    }
    if (topOf(place.pages) != current() || !exists(m_place.row)) {
        place.row.clear();
    }
    const QPointer<SettingsNavigation> self(this);
    moveTo(place);
    for (const QString &path : qAsConst(vanished)) {
        if (self) {
            Q_EMIT closed(path);
        }
    }
}

bool SettingsNavigation::exists(const QString &path) const
{
    const SettingsEntry *entry = m_entries.value(path);
    return entry && entry->exists();
}

#include "moc_settingsnavigation.cpp"
