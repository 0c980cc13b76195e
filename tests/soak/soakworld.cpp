// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "soak/soakworld.h"

#include "common/constants.h"
#include "dconftool.h"
#include "nodescriptors.h"
#include "registry/pluginregistry.h"
#include "registry/treeitem.h"
#include "text.h"
#include "world.h"

#include <mgconfitem.h>

#include <QSet>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>
#include <utility>

namespace
{
constexpr int FileCount = 24;
constexpr int PageCount = 6;
constexpr int ApplicationCount = 12;
constexpr int CatalogCount = 3;

const QString s_custom = QStringLiteral("custom");
const QString s_page = QStringLiteral("/usr/share/velka-settings/page.qml");

PluginRegistry *registry()
{
    return PluginRegistry::instance();
}

QString fileName(int number)
{
    return QStringLiteral("file%1.json").arg(number);
}

QString catalogOf(int number)
{
    return QStringLiteral("soak%1").arg(number % CatalogCount);
}

QByteArray desktopFile(int number)
{
    return "first/app" + QByteArray::number(number) + ".desktop";
}

/// Returns the declaration of an entry that is the same whatever other paths exist: only a page can have children, and
/// it can be removed before them.
QByteArray entry(const QString &path)
{
    static const QByteArrayList types{"section", "bool", "integer", "enum", "page"};
    const QByteArray name = path.section(QLatin1Char('/'), -1).toUtf8();
    const bool mayHaveChildren = !name.contains('-') || name.endsWith('x');
    QByteArray type = mayHaveChildren ? "page" : types.at(path.size() % types.size());
    if (name.contains("custom")) {
        type = "custom";
    }
    return "{\"path\": \"" + path.toUtf8() + "\", \"type\": \"" + type + "\", \"title\": \"" + name
           + "\", \"order\": " + QByteArray::number(qHash(path, 1) % 200) + ", \"params\": {\"source\": \""
           + s_page.toUtf8() + "\"}}";
}

QString textList(const QStringList &list)
{
    return list.isEmpty() ? text("@as []") : text("['") + list.join(text("', '")) + text("']");
}

/// Returns when this process has received the change.
void storeFromOutside(const QString &key, const QStringList &before, const QStringList &after)
{
    if (after == before) {
        return;
    }
    waitForWrites();
    const MGConfItem item(key);
    const QSignalSpy changed(&item, &MGConfItem::valueChanged);
    store(key, textList(after));
    if (!comesTrue([&] { return changed.count() > 0; })) {
        qFatal("A change of %s in another process is not announced", qPrintable(key));
    }
}

/// The directories of the applications are private, but the configuration stays that of the dconf service.
QByteArray keptConfigHome()
{
    MGConfItem(Constants::FavoritesKey).value(); // dconf keeps its directory from the first use on
    return qgetenv("XDG_CONFIG_HOME");
}
}

SoakWorld::SoakWorld(quint32 seed)
    : m_random(seed)
    , m_configHome(keptConfigHome())
{
    qputenv("XDG_CONFIG_HOME", m_configHome);
    World::reset();
    World::writeFile(s_page, "import QtQuick 2.15\nItem { property var entry; property string path: entry.path }");
    World::writeEntries(text("base.json"), "{\"entries\": [" + entry(text("applications")) + "]}");
    World::rescan(registry());
    for (int number = 0; number < CatalogCount; ++number) {
        registry()->loadTranslationCatalog(catalogOf(number)); // a catalog is never unloaded
    }
}

QRandomGenerator &SoakWorld::random()
{
    return m_random;
}

int SoakWorld::below(int bound)
{
    return m_random.bounded(bound);
}

bool SoakWorld::chance(int percent)
{
    return below(100) < percent;
}

QString SoakWorld::one(const QStringList &list)
{
    return list.isEmpty() ? QString() : list.at(below(list.size()));
}

void SoakWorld::clear()
{
    for (auto it = m_files.cbegin(); it != m_files.cend(); ++it) {
        World::removeEntries(fileName(it.key()));
    }
    m_files.clear();
    World::rescan(registry());
    for (auto it = m_installed.cbegin(); it != m_installed.cend(); ++it) {
        m_applications.remove(desktopFile(it.key()).constData());
    }
    m_installed.clear();
    m_masked.clear();
    World::setMasked({});
    forgetFavorites();
}

void SoakWorld::addFile()
{
    writeSomeFile();
    World::rescan(registry());
}

void SoakWorld::addFileWithoutDescriptors()
{
    TreeItem *root = registry()->getItem({});
    const QStringList before = World::paths(root);
    writeSomeFile();
    {
        const NoDescriptors none;
        World::rescan(registry());
        m_isDamaged = World::paths(root) != before;
    }
    World::rescan(registry());
}

void SoakWorld::removeFile()
{
    const QList<int> numbers = m_files.keys();
    if (numbers.isEmpty()) {
        return;
    }
    const int number = numbers.at(below(numbers.size()));
    m_files.remove(number);
    World::removeEntries(fileName(number));
    World::rescan(registry());
}

void SoakWorld::changeFile()
{
    removeFile();
    addFile();
}

void SoakWorld::writeSomeFile()
{
    const int number = below(FileCount);
    if (m_files.contains(number)) {
        return;
    }
    QStringList paths;
    if (number < PageCount) {
        paths.append(text("page%1").arg(number));
    }
    const int count = below(8);
    for (int i = 0; i < count; ++i) {
        const QString name = text("%1-%2").arg(number).arg(below(10));
        switch (below(5)) {
        case 0:
            paths.append(name);
            break;
        case 1:
            paths.append(text("page%1/%2custom").arg(below(PageCount)).arg(name));
            break;
        case 2:
            paths.append(text("page%1/%2x").arg(below(PageCount)).arg(name));
            break;
        case 3:
            paths.append(text("page%1/%2x/below-%3").arg(below(PageCount)).arg(name).arg(below(4)));
            break;
        default:
            paths.append(text("page%1/%2").arg(below(PageCount)).arg(name));
        }
    }
    QByteArrayList entries;
    for (const QString &path : std::as_const(paths)) {
        entries.append(entry(path));
    }
    World::writeEntries(fileName(number), "{\"translation_catalog\": \"" + catalogOf(number).toUtf8()
                                              + "\", \"entries\": [" + entries.join(", ") + "]}");
    m_files.insert(number, paths);
}

QStringList SoakWorld::changedMask()
{
    QStringList masked = m_masked;
    if (!masked.isEmpty() && chance(50)) {
        masked.removeAt(below(masked.size()));
    }
    masked.append(chance(80) ? somePath() : m_applications.path(desktopFile(below(ApplicationCount)).constData()));
    masked.removeDuplicates();
    return masked.mid(qMax(0, masked.size() - 10));
}

void SoakWorld::toggleMask()
{
    m_masked = changedMask();
    World::setMasked(m_masked);
}

void SoakWorld::toggleMaskFromOutside()
{
    const QStringList masked = changedMask();
    storeFromOutside(Constants::MaskedSettingsKey, m_masked, masked);
    m_masked = masked;
}

void SoakWorld::storeFavoritesFromOutside()
{
    QStringList favorites;
    for (int i = below(8); i > 0; --i) {
        favorites.append(somePath());
    }
    storeFromOutside(Constants::FavoritesKey, m_favorites, favorites);
    m_favorites = favorites;
}

void SoakWorld::forgetFavorites()
{
    m_favorites.clear();
    MGConfItem(Constants::FavoritesKey).set({});
}

void SoakWorld::writeApplication(int number)
{
    const int version = ++m_installed[number];
    m_applications.replace(desktopFile(number).constData(),
                           application("App" + QByteArray::number(number) + '.' + QByteArray::number(version),
                                       "X-DBus-ServiceName=com.example.App" + QByteArray::number(number)));
}

void SoakWorld::addApplication()
{
    const int number = below(ApplicationCount);
    if (m_installed.isEmpty()) {
        m_applications.write(desktopFile(number).constData(), {}); // creates the directory
    }
    writeApplication(number);
}

void SoakWorld::removeApplication()
{
    const QList<int> numbers = m_installed.keys();
    if (numbers.isEmpty()) {
        return;
    }
    const int number = numbers.at(below(numbers.size()));
    m_installed.remove(number);
    m_applications.remove(desktopFile(number).constData());
}

void SoakWorld::changeApplication()
{
    const QList<int> numbers = m_installed.keys();
    if (!numbers.isEmpty()) {
        writeApplication(numbers.at(below(numbers.size())));
    }
}

QStringList SoakWorld::applications() const
{
    QStringList ids;
    for (auto it = m_installed.cbegin(); it != m_installed.cend(); ++it) {
        ids.append(text("app%1.desktop").arg(it.key()));
    }
    ids.sort();
    return ids;
}

QStringList SoakWorld::listedApplications() const
{
    QStringList ids = applications();
    const auto isMasked = [this](const QString &id) {
        return m_masked.contains(m_applications.path(("first/" + id.toUtf8()).constData()));
    };
    ids.erase(std::remove_if(ids.begin(), ids.end(), isMasked), ids.end());
    return ids;
}

QStringList SoakWorld::nodes() const
{
    QStringList declared{text("applications")};
    for (const QStringList &paths : m_files) {
        declared += paths;
    }
    QSet<QString> nodes;
    for (const QString &path : std::as_const(declared)) {
        for (QString node = path; !m_masked.contains(path) && !node.isEmpty();
             node = node.section(QLatin1Char('/'), 0, -2)) {
            nodes.insert(node);
        }
    }
    QStringList sorted = nodes.values();
    sorted.sort();
    return sorted;
}

QString SoakWorld::somePath()
{
    return chance(85) ? one(nodes()) : text("nowhere/%1").arg(below(5));
}

QStringList SoakWorld::favorites() const
{
    return m_favorites;
}

void SoakWorld::setFavorites(const QStringList &paths)
{
    m_favorites = paths;
}

QString SoakWorld::violation() const
{
    if (m_isDamaged) {
        return text("The tree changed when there were no descriptors");
    }
    TreeItem *root = registry()->getItem({});
    const QStringList broken = World::brokenInvariants(root);
    if (!broken.isEmpty()) {
        return text("Broken nodes: ") + broken.join(QLatin1Char(' '));
    }
    const QStringList there = World::paths(root);
    if (there != nodes()) {
        return text("The tree has ") + there.join(QLatin1Char(' ')) + text("\nwanted ")
               + nodes().join(QLatin1Char(' '));
    }
    const QStringList favorites = MGConfItem(Constants::FavoritesKey).value().toStringList();
    if (favorites != m_favorites) {
        return text("Stored are %1\nwanted %2").arg(textList(favorites), textList(m_favorites));
    }
    return {};
}

QString SoakWorld::violationOutside() const
{
    waitForWrites();
    for (const auto &expected :
         {std::pair(Constants::FavoritesKey, m_favorites), std::pair(Constants::MaskedSettingsKey, m_masked)}) {
        const QByteArray value = stored(expected.first);
        const bool isEmpty = expected.second.isEmpty() && value.isEmpty();
        if (!isEmpty && value != textList(expected.second).toUtf8()) {
            return text("Others see %1 in %2").arg(QString::fromUtf8(value), expected.first);
        }
    }
    return {};
}

bool isAdmitted(const QString &path)
{
    return !path.contains(s_custom);
}

bool comesTrue(const std::function<bool()> &condition)
{
    return QTest::qWaitFor(condition, 10000);
}
