// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "modelreplica.h"
#include "soak/pages.h"

#include <QSortFilterProxyModel>

#include <functional>
#include <memory>
#include <vector>

/**
 * A program that shows a model sorted by a proxy, and whose handlers of the model's signals change things again, now and
 * then.
 */
class Host : public QObject
{
    Q_OBJECT

public:
    using Change = std::function<void()>;

    /// @p change is called from handlers, but from one at a time in the whole program.
    Host(QAbstractItemModel *model, Change change);

    bool isComplete() const; ///< the proxy has as many rows as the model
    bool isUpToDate() const; ///< the proxy has announced what its rows show

private:
    template<typename Signal>
    void handle(Signal signal);
    void interfere();

    QAbstractItemModel *const m_model;
    const Change m_change;
    QSortFilterProxyModel m_sorted;
    ModelReplica m_replica;
};

/// A page whose models are used by hosts, which interfere() with its page.
class HostedPage : public Page
{
public:
    HostedPage(std::unique_ptr<Page> page, SoakWorld *world);

    void use(SoakWorld *world) override;
    QString violation(const SoakWorld &world) const override;
    bool isUpToDate(const SoakWorld &world) const override;

private:
    const std::unique_ptr<Page> m_page;
    std::vector<std::unique_ptr<Host>> m_hosts;
};
