// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "soak/entrypage.h"

#include "soak/soakworld.h"
#include "text.h"

#include <QQmlComponent>

EntryPage::EntryPage()
{
    QQmlComponent component(&m_engine);
    component.setData("import QtQuick 2.15\nItem {}", {});
    m_item.reset(component.create());
    if (!m_item) {
        qFatal("%s", qPrintable(component.errorString()));
    }
    m_content = new EntryPageContent(m_item.get());
    QQmlEngine::setContextForObject(m_content, m_engine.rootContext());
    m_content->componentComplete();
}

EntryPage::~EntryPage() = default;

void EntryPage::use(SoakWorld *world)
{
    if (world->chance(20)) {
        delete m_content->item();
    } else {
        m_content->setPath(world->somePath());
    }
}

QString EntryPage::violation(const SoakWorld &world) const
{
    const EntryPageContent::Status status = m_content->status();
    const bool exists = status != EntryPageContent::Null && status != EntryPageContent::Gone;
    if (exists != world.nodes().contains(m_content->path())) {
        return text("The page of %1 has status %2").arg(m_content->path()).arg(status);
    }
    const QObject *const item = m_content->item();
    const QString shown = item ? item->property("path").toString() : m_content->path();
    return shown == m_content->path() ? QString() : text("The page of %1 shows %2").arg(m_content->path(), shown);
}

bool EntryPage::isUpToDate(const SoakWorld &) const
{
    return m_content->status() != EntryPageContent::Loading;
}
