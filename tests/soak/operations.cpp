// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "soak/operations.h"

#include "applicationservices.h"
#include "nodescriptors.h"
#include "soak/host.h"
#include "soak/pages.h"
#include "soak/soakworld.h"

#include <numeric>

namespace
{
constexpr std::size_t MaxPages = 12;

struct Context {
    SoakWorld *world;
    ApplicationServices *services;
    Pages *pages;
    Mode mode;
};

void open(const Context &context)
{
    if (context.pages->size() == MaxPages) {
        return;
    }
    std::unique_ptr<Page> page = openPage(context.world, context.services);
    if (context.mode == Mode::Chaos) {
        page = std::make_unique<HostedPage>(std::move(page), context.world);
    }
    context.pages->push_back(std::move(page));
}

void close(const Context &context)
{
    if (!context.pages->empty()) {
        context.pages->erase(context.pages->begin() + context.world->below(int(context.pages->size())));
    }
}

void use(const Context &context)
{
    if (!context.pages->empty()) {
        (*context.pages)[std::size_t(context.world->below(int(context.pages->size())))]->use(context.world);
    }
}

/// All edits of favourites are refused.
void useWithoutDescriptors(const Context &context)
{
    if (context.mode == Mode::Chaos) {
        const QStringList favorites = context.world->favorites();
        const NoDescriptors none;
        use(context);
        context.world->setFavorites(favorites);
    }
}

void addFileWithoutDescriptors(const Context &context)
{
    if (context.mode == Mode::Chaos) {
        context.world->addFileWithoutDescriptors();
    }
}

void useAll(const Context &context)
{
    for (const auto &page : *context.pages) {
        page->use(context.world);
    }
}

void restartService(const Context &context)
{
    const auto service = ApplicationServices::Service(context.world->below(3));
    context.services->stop(service);
    useAll(context);
    context.services->start(service);
}

void spoilService(const Context &context)
{
    if (context.mode == Mode::Usual) {
        return;
    }
    static const QByteArrayList methods{"GetAllowlist", "GetAllowlistEnabled", "GetAlwaysAllowedApplications",
                                        "GetAppInfo",   "GetEnabled",          "getList"};
    const auto fault = ApplicationServices::Fault(context.world->below(ApplicationServices::AnswersTooLate));
    context.services->spoil(methods.at(context.world->below(methods.size())), fault);
    useAll(context);
    context.services->reset();
}

template<void (SoakWorld::*Change)()>
void change(const Context &context)
{
    (context.world->*Change)();
}

struct Operation {
    int weight; ///< in thousandths
    void (*run)(const Context &context);
};

const Operation s_operations[] = {
    {100, change<&SoakWorld::addFile>},
    {80, change<&SoakWorld::removeFile>},
    {60, change<&SoakWorld::changeFile>},
    {60, change<&SoakWorld::toggleMask>},
    {5, change<&SoakWorld::toggleMaskFromOutside>},
    {15, change<&SoakWorld::storeFavoritesFromOutside>},
    {10, change<&SoakWorld::forgetFavorites>},
    {25, change<&SoakWorld::addApplication>},
    {15, change<&SoakWorld::removeApplication>},
    {20, change<&SoakWorld::changeApplication>},
    {70, open},
    {50, close},
    {489, use},
    {1, restartService},
    {1, spoilService},
    {5, useWithoutDescriptors},
    {5, addFileWithoutDescriptors},
};
}

void operate(SoakWorld *world, ApplicationServices *services, Pages *pages, Mode mode)
{
    const auto addWeight = [](int sum, const Operation &operation) { return sum + operation.weight; };
    static const int total = std::accumulate(std::begin(s_operations), std::end(s_operations), 0, addWeight);
    int chosen = world->below(total);
    for (const Operation &operation : s_operations) {
        chosen -= operation.weight;
        if (chosen < 0) {
            operation.run({world, services, pages, mode});
            return;
        }
    }
}
