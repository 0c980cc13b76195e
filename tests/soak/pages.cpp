// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "soak/pages.h"

#include "applications/applicationssettingsmodel.h"
#include "applicationservices.h"
#include "modelreplica.h"
#include "models/favoritesmodel.h"
#include "models/pathlist.h"
#include "models/settingsmodel.h"
#include "models/userapplicationsfiltermodel.h"
#include "plugin/velkasettingsplugin.h"
#include "registry/treeitem.h"
#include "soak/entrypage.h"
#include "soak/linkspage.h"
#include "soak/soakworld.h"
#include "text.h"
#include "toolkit/settingsnavigation.h"
#include "toolkit/stablelistmodel.h"

#include <QQmlComponent>
#include <QQmlEngine>

#include <algorithm>

namespace
{
constexpr int MaxFavorites = 30;
constexpr uint User = 1000;

/// Returns the paths of the rows' entries, "(dead)" for a row whose entry was deleted.
QStringList rowPaths(const QAbstractItemModel &model)
{
    QStringList paths;
    for (int row = 0; row < model.rowCount(); ++row) {
        const auto *object = model.index(row, 0).data(Qt::UserRole + 1).value<QObject *>();
        const auto *item = qobject_cast<const TreeItem *>(object);
        paths.append(item ? item->location().join(QLatin1Char('/')) : text("(dead)"));
    }
    return paths;
}

QString difference(const char *what, const QStringList &actual, const QStringList &wanted)
{
    if (actual == wanted) {
        return {};
    }
    return text(what) + text(" shows ") + actual.join(QLatin1Char(' ')) + text("\nwanted ")
           + wanted.join(QLatin1Char(' '));
}

QStringList sorted(QStringList list)
{
    list.sort();
    return list;
}

void readAllRoles(const QAbstractItemModel &model)
{
    const QList<int> roles = model.roleNames().keys();
    for (int row = 0; row < model.rowCount(); ++row) {
        for (int role : roles) {
            model.index(row, 0).data(role);
        }
    }
}

/// A stable model over @p source, of which one role is compared.
class StableRows
{
public:
    StableRows(QAbstractItemModel *source, int role)
        : m_replica(&m_model, role)
        , m_role(role)
    {
        m_model.setSourceModel(source);
    }

    /// Whether it announced its rows, and they are those of the source.
    bool areRight() const
    {
        return m_replica.isEqual() && column(m_model) == column(*m_model.sourceModel());
    }

private:
    QVariantList column(const QAbstractItemModel &model) const
    {
        QVariantList values;
        for (int row = 0; row < model.rowCount(); ++row) {
            values.append(model.index(row, 0).data(m_role));
        }
        return values;
    }

    StableListModel m_model;
    const ModelReplica m_replica;
    const int m_role;
};

class SettingsPage : public Page
{
public:
    explicit SettingsPage(SoakWorld *world)
        : m_replica(&m_model, SettingsModel::ObjectRole)
    {
        turn(world);
    }

    void use(SoakWorld *world) override
    {
        readAllRoles(m_model);
        m_model.objectAt(world->below(20));
        m_model.objectForPath(world->somePath());
        navigate(world);
        if (world->chance(20)) {
            turn(world);
        }
    }

    void interfere(SoakWorld *world) override
    {
        turn(world);
    }

    QList<QAbstractItemModel *> models() override
    {
        return {&m_model};
    }

    QString violation(const SoakWorld &world) const override
    {
        if (!m_replica.isEqual()) {
            return text("A settings model did not announce its rows");
        }
        if (!m_stable.areRight()) {
            return text("A stable model does not follow a settings model");
        }
        const QStringList nodes = world.nodes();
        const QStringList pages = m_navigation.paths().mid(1);
        if (std::any_of(pages.begin(), pages.end(), [&](const QString &page) { return !nodes.contains(page); })) {
            return text("A page is open whose entry does not exist");
        }
        QStringList wanted;
        const QString above = m_model.path().join(QLatin1Char('/'));
        for (const QString &node : nodes) {
            const bool isBelow = above.isEmpty() || node.startsWith(above + QLatin1Char('/'));
            if (isBelow && node.count(QLatin1Char('/')) + 1 == m_model.path().size() + m_model.depth()) {
                wanted.append(node);
            }
        }
        return difference("A settings model", sorted(rowPaths(m_model)), wanted);
    }

private:
    void navigate(SoakWorld *world)
    {
        const QStringList nodes = world->nodes();
        if (nodes.isEmpty() || world->chance(30)) {
            m_navigation.back();
        } else {
            m_navigation.open(nodes.at(world->below(nodes.size())));
        }
    }

    void turn(SoakWorld *world)
    {
        m_model.setPath(world->chance(50) ? QStringList() : QStringList{text("page%1").arg(world->below(6))});
        m_model.setDepth(world->below(3));
    }

    SettingsModel m_model;
    ModelReplica m_replica;
    const StableRows m_stable{&m_model, SettingsModel::ObjectRole};
    SettingsNavigation m_navigation;
};

class FavoritesPage : public Page
{
public:
    explicit FavoritesPage(bool picks)
        : m_replica(&m_model, FavoritesModel::ObjectRole)
    {
        m_model.setFilter(texts({"grid_favorites", "list_favorites"}));
        m_model.setShowPotential(picks);
        m_model.setUserModifiedKey(text("/apps/velka-settings/favoritesModified"));
        m_model.componentComplete();
    }

    void use(SoakWorld *world) override
    {
        readAllRoles(m_model);
        switch (world->below(4)) {
        case 0:
            add(world);
            break;
        case 1:
            remove(world);
            break;
        case 2:
            move(world);
            break;
        default:
            m_model.get(world->below(20));
            m_model.isFavorite(world->somePath());
        }
    }

    void interfere(SoakWorld *world) override
    {
        readAllRoles(m_model);
        m_model.setFilter(texts({"grid_favorites"}));
        m_model.setShowPotential(world->chance(50));
        m_model.setFilter(texts({"grid_favorites", "list_favorites"}));
    }

    QList<QAbstractItemModel *> models() override
    {
        return {&m_model};
    }

    QString violation(const SoakWorld &world) const override
    {
        if (!m_replica.isEqual()) {
            return text("A favourites model did not announce its rows");
        }
        if (!m_stable.areRight()) {
            return text("A stable model does not follow a favourites model");
        }
        const QStringList nodes = world.nodes();
        QStringList wanted = m_model.showPotential() ? nodes : world.favorites();
        const auto isHidden = [&nodes](const QString &path) { return !nodes.contains(path) || !isAdmitted(path); };
        wanted.erase(std::remove_if(wanted.begin(), wanted.end(), isHidden), wanted.end());
        return difference("A favourites model", sorted(rowPaths(m_model)), sorted(wanted));
    }

private:
    void add(SoakWorld *world)
    {
        if (world->favorites().size() >= MaxFavorites) {
            remove(world);
            return;
        }
        const QString path = world->somePath();
        world->setFavorites(world->favorites() + QStringList{path});
        m_model.addFavorite(path);
    }

    void remove(SoakWorld *world)
    {
        const QString path = world->one(world->favorites());
        if (m_model.showPotential() || m_model.indexOf(path) >= 0) {
            world->setFavorites(PathList::removedAll(world->favorites(), path));
        }
        m_model.removeFavorite(path);
    }

    void move(SoakWorld *world)
    {
        const QStringList rows = rowPaths(m_model);
        if (rows.isEmpty()) {
            return;
        }
        const int from = world->below(rows.size());
        const int to = world->below(rows.size());
        world->setFavorites(PathList::moved(world->favorites(), rows.at(from), rows.at(to)));
        m_model.move(from, to);
    }

    FavoritesModel m_model;
    ModelReplica m_replica;
    const StableRows m_stable{&m_model, FavoritesModel::ObjectRole};
};

class ApplicationsPage : public Page
{
public:
    explicit ApplicationsPage(ApplicationServices *services)
        : m_services(services)
        , m_replica(&m_model, ApplicationsSettingsModel::FileIdRole)
    {
        m_model.setUid(User);
        m_model.componentComplete();
        m_filter.setSourceModel(&m_model);
    }

    void use(SoakWorld *world) override
    {
        const QString application = text("app%1").arg(world->below(12));
        const bool flag = world->chance(50);
        readAllRoles(m_model);
        readAllRoles(m_filter);
        switch (world->below(9)) {
        case 0:
            m_model.setFilterMode(world->below(3) - 1);
            break;
        case 1:
            m_filter.setFilter(world->below(3) - 1);
            break;
        case 2:
            m_model.toggleSelectedApp(application + text(".desktop"));
            break;
        case 3:
            m_model.selectAllApps();
            break;
        case 4:
            m_model.clearSelectedApps();
            break;
        case 5:
            m_model.filterModeEnabled();
            m_model.setFilterModeEnabled(flag);
            break;
        case 6:
            m_model.getAllowedNotificationsConfig();
            break;
        case 7:
            m_model.setNotificationsEnabled(text("com.example.App%1").arg(world->below(12)), flag);
            break;
        default:
            tellOfNotifications(text("com.example.App%1").arg(world->below(12)), flag);
        }
    }

    void interfere(SoakWorld *world) override
    {
        use(world);
    }

    QList<QAbstractItemModel *> models() override
    {
        return {&m_model}; // a change of the source in the middle of one of its own breaks any filter
    }

    QString violation(const SoakWorld &) const override
    {
        return m_filter.count() <= m_model.count() ? QString() : text("A filter shows more than there is");
    }

    // A change of an application changes its row at once, and is announced with the next reset.
    bool isUpToDate(const SoakWorld &world) const override
    {
        QStringList ids;
        int admitted = 0;
        for (int row = 0; row < m_model.rowCount(); ++row) {
            const QModelIndex index = m_model.index(row);
            ids.append(index.data(ApplicationsSettingsModel::FileIdRole).toString());
            admitted += isAdmitted(index) ? 1 : 0;
        }
        return sorted(ids) == world.listedApplications() && m_replica.isEqual() && m_stable.areRight()
               && m_filter.count() == admitted;
    }

private:
    void tellOfNotifications(const QString &application, bool enabled)
    {
        DBusPeer &service = (*m_services)[ApplicationServices::Notifications];
        if (service.isOnBus()) {
            service.emitSignal(text("configChanged"), text("sa{sv}"),
                               {application, QVariantMap{{text("enabled"), enabled}}});
        }
    }

    bool isAdmitted(const QModelIndex &index) const
    {
        using Model = ApplicationsSettingsModel;
        switch (m_filter.filter()) {
        case Model::AllowedOnly:
            return index.data(Model::AllowedRole).toBool() || index.data(Model::AlwaysAllowedRole).toBool();
        case Model::AutostartedOnly:
            return index.data(Model::AutostartedRole).toBool();
        default:
            return false;
        }
    }

    ApplicationServices *const m_services;
    ApplicationsSettingsModel m_model;
    UserApplicationsFilterModel m_filter;
    ModelReplica m_replica;
    const StableRows m_stable{&m_model, ApplicationsSettingsModel::FileIdRole};
};

class QmlPage : public Page
{
public:
    QmlPage()
        : m_component(&m_engine)
    {
        VelkaSettingsPlugin().initializeEngine(&m_engine, "com.velka.settings");
        m_component.setData(R"(
            import QtQml 2.15
            import com.velka.settings 1.0
            QtObject {
                property var settings: SettingsModel { depth: 1 }
                property var titles: {
                    var list = []
                    for (var row = 0; row < settings.count; ++row)
                        list.push(settings.objectAt(row).title)
                    return list
                }
                property var favorites: FavoritesModel { filter: ["grid_favorites"] }
                property int applications: ApplicationsModel.count
                property int count: titles.length
            })",
                            {});
        m_page.reset(m_component.create());
        if (!m_page) {
            qFatal("%s", qPrintable(m_component.errorString()));
        }
    }

    void use(SoakWorld *) override
    {
        m_engine.collectGarbage();
    }

    QString violation(const SoakWorld &world) const override
    {
        const QStringList nodes = world.nodes();
        const auto children = std::count_if(nodes.cbegin(), nodes.cend(),
                                            [](const QString &node) { return !node.contains(QLatin1Char('/')); });
        const int shown = m_page->property("count").toInt();
        return shown == children ? QString() : text("QML shows %1 of %2 entries").arg(shown).arg(children);
    }

private:
    QQmlEngine m_engine;
    QQmlComponent m_component;
    std::unique_ptr<QObject> m_page;
};

constexpr int KindCount = 12; ///< a kind that occurs several times is opened more often

std::unique_ptr<Page> openKind(int kind, SoakWorld *world, ApplicationServices *services)
{
    switch (kind) {
    case 0:
        return std::make_unique<QmlPage>();
    case 10:
        return std::make_unique<LinksPage>();
    case 11:
        return std::make_unique<EntryPage>();
    case 1:
    case 2:
        return std::make_unique<ApplicationsPage>(services);
    case 3:
    case 4:
        return std::make_unique<FavoritesPage>(true);
    case 5:
    case 6:
    case 7:
        return std::make_unique<FavoritesPage>(false);
    default:
        return std::make_unique<SettingsPage>(world);
    }
}
}

void Page::interfere(SoakWorld *) {}

QList<QAbstractItemModel *> Page::models()
{
    return {};
}

bool Page::isUpToDate(const SoakWorld &) const
{
    return true;
}

std::unique_ptr<Page> openPage(SoakWorld *world, ApplicationServices *services)
{
    return openKind(world->below(KindCount), world, services);
}

void openAllKinds(SoakWorld *world, ApplicationServices *services)
{
    VelkaSettingsPlugin().registerTypes("com.velka.settings");
    for (int kind = 0; kind < KindCount; ++kind) {
        openKind(kind, world, services);
    }
}
