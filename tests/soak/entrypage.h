// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "soak/pages.h"
#include "toolkit/entrypagecontent.h"

#include <QQmlEngine>

/// A page that shows the QML files of entries, without a window.
class EntryPage : public Page
{
public:
    EntryPage();
    ~EntryPage() override;

    void use(SoakWorld *world) override;
    QString violation(const SoakWorld &world) const override;
    bool isUpToDate(const SoakWorld &world) const override;

private:
    QQmlEngine m_engine;
    std::unique_ptr<QObject> m_item;
    EntryPageContent *m_content; ///< a child of the item
};
