// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications/applicationitem.h"

#include "registry/toqml.h"
#include "registry/treeitem.h"

#include <launcheritem.h>

ApplicationItem::ApplicationItem(LauncherItem *item, TreeItem *applicationsSection, QObject *parent)
    : QObject(parent)
    , m_item(item)
{
    if (!item) {
        return;
    }
    updateSection(applicationsSection);
    m_sandboxed = item->isSandboxed();
    connect(item, &LauncherItem::itemChanged, this, &ApplicationItem::updateSandboxed);
}

QVariant ApplicationItem::section() const
{
    return m_section ? QVariant::fromValue(toQml(m_section)) : QVariant();
}

QString ApplicationItem::iconId() const
{
    return m_item ? m_item->iconId() : QString();
}

QString ApplicationItem::iconMode() const
{
    return m_item ? m_item->readValue(QStringLiteral("IconMode"), QStringLiteral("X-Zephra-Application"))
                  : QString();
}

QString ApplicationItem::name() const
{
    return m_item ? m_item->title() : QString();
}

QString ApplicationItem::fileName() const
{
    return m_item ? m_item->filePath() : QString();
}

QString ApplicationItem::fileId() const
{
    return m_item ? m_item->fileID() : QString();
}

bool ApplicationItem::isValid() const
{
    return m_item && m_item->isValid();
}

bool ApplicationItem::sandboxed() const
{
    return m_sandboxed;
}

QString ApplicationItem::dBusServiceName() const
{
    return m_item ? m_item->dBusServiceName() : QString();
}

QString ApplicationItem::desktopFile() const
{
    const QString path = fileName();
    return path.mid(path.lastIndexOf(QLatin1Char('/')) + 1);
}

LauncherItem *ApplicationItem::launcherItem() const
{
    return m_item;
}

bool ApplicationItem::updateSection(TreeItem *applicationsSection)
{
    TreeItem *const section = lookUpSection(applicationsSection);
    const std::optional<QVariantMap> data = section ? std::make_optional(section->data()) : std::nullopt;
    const bool changed = section != m_section || data != m_sectionData;
    m_section = section;
    m_sectionData = data;
    return changed;
}

TreeItem *ApplicationItem::lookUpSection(TreeItem *applicationsSection) const
{
    if (!m_item) {
        return m_section; // the name is not known any more
    }
    return applicationsSection ? applicationsSection->lookup({desktopFile()}) : nullptr;
}

void ApplicationItem::updateSandboxed()
{
    const bool sandboxed = m_item && m_item->isSandboxed();
    if (sandboxed != m_sandboxed) {
        m_sandboxed = sandboxed;
        Q_EMIT sandboxedChanged();
    }
}

#include "moc_applicationitem.cpp"
