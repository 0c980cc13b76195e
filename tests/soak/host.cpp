// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "soak/host.h"

#include "soak/soakworld.h"
#include "text.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace
{
constexpr int InterferencePercent = 5;

bool s_isInterfering = false;

int firstRole(const QAbstractItemModel &model)
{
    const QList<int> roles = model.roleNames().keys();
    return *std::min_element(roles.cbegin(), roles.cend());
}

QSortFilterProxyModel *sorted(QSortFilterProxyModel *proxy, QAbstractItemModel *model)
{
    proxy->setSourceModel(model);
    proxy->setSortRole(firstRole(*model));
    proxy->sort(0);
    return proxy;
}
}

Host::Host(QAbstractItemModel *model, Change change)
    : m_model(model)
    , m_change(std::move(change))
    , m_replica(sorted(&m_sorted, model), firstRole(*model))
{
    using Model = QAbstractItemModel;
    handle(&Model::rowsAboutToBeInserted);
    handle(&Model::rowsInserted);
    handle(&Model::rowsAboutToBeRemoved);
    handle(&Model::rowsRemoved);
    handle(&Model::rowsAboutToBeMoved);
    handle(&Model::rowsMoved);
    handle(&Model::modelAboutToBeReset);
    handle(&Model::modelReset);
    handle(&Model::dataChanged);
}

template<typename Signal>
void Host::handle(Signal signal)
{
    connect(m_model, signal, this, &Host::interfere);
}

void Host::interfere()
{
    if (!s_isInterfering) {
        const QScopedValueRollback<bool> isInterfering(s_isInterfering, true);
        m_change();
    }
}

bool Host::isComplete() const
{
    return m_sorted.rowCount() == m_model->rowCount();
}

bool Host::isUpToDate() const
{
    return m_replica.isEqual();
}

HostedPage::HostedPage(std::unique_ptr<Page> page, SoakWorld *world)
    : m_page(std::move(page))
{
    const auto interfere = [this, world] {
        if (world->chance(InterferencePercent)) {
            m_page->interfere(world);
        }
    };
    for (QAbstractItemModel *model : m_page->models()) {
        m_hosts.push_back(std::make_unique<Host>(model, interfere));
    }
}

void HostedPage::use(SoakWorld *world)
{
    m_page->use(world);
}

QString HostedPage::violation(const SoakWorld &world) const
{
    if (!std::all_of(m_hosts.cbegin(), m_hosts.cend(), [](const auto &host) { return host->isComplete(); })) {
        return text("A proxy has lost rows");
    }
    return m_page->violation(world);
}

bool HostedPage::isUpToDate(const SoakWorld &world) const
{
    return m_page->isUpToDate(world)
           && std::all_of(m_hosts.cbegin(), m_hosts.cend(), [](const auto &host) { return host->isUpToDate(); });
}
