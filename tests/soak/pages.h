// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QList>
#include <QString>

#include <memory>

class QAbstractItemModel;

class ApplicationServices;
class SoakWorld;

/// A page that a user has opened: models that follow the world until they are destroyed.
class Page
{
public:
    virtual ~Page() = default;

    /// Does at random what its user may do.
    virtual void use(SoakWorld *world) = 0;
    /// Does at random what a handler of its models' signals may do.
    virtual void interfere(SoakWorld *world);
    virtual QList<QAbstractItemModel *> models();
    /// What is wrong with its models, empty if nothing.
    virtual QString violation(const SoakWorld &world) const = 0;
    /// Whether it shows what the world has by now, as far as that comes late.
    virtual bool isUpToDate(const SoakWorld &world) const;
};

/// Any page. The ones with applications talk to @p services.
std::unique_ptr<Page> openPage(SoakWorld *world, ApplicationServices *services);
/// Opens and closes each kind of page, for the first of a kind leaves behind what Qt makes once. Makes the types known
/// that the pages in QML import.
void openAllKinds(SoakWorld *world, ApplicationServices *services);
