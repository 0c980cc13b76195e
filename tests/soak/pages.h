// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QList>
#include <QString>

#include <memory>

class QAbstractItemModel;

class ApplicationServices;
class SoakWorld;

/// A page that a user has opened: models that follow all changes until they are destroyed.
class Page
{
public:
    virtual ~Page() = default;

    /// Runs a random action of the user.
    virtual void use(SoakWorld *world) = 0;
    /// Runs a random action of a handler of its models' signals.
    virtual void interfere(SoakWorld *world);
    virtual QList<QAbstractItemModel *> models();
    /// Returns an error of its models, empty if there is none.
    virtual QString violation(const SoakWorld &world) const = 0;
    /// Returns true if it also shows changes that arrive late.
    virtual bool isUpToDate(const SoakWorld &world) const;
};

/// Opens a random page. Those with applications call @p services.
std::unique_ptr<Page> openPage(SoakWorld *world, ApplicationServices *services);
/// Opens and closes each kind of page, because Qt keeps some objects of the first one. Registers the types that the
/// pages in QML import.
void openAllKinds(SoakWorld *world, ApplicationServices *services);
