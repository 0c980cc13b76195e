// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "launcheritem.h"

#include <mdesktopentry.h>

#include <utility>

namespace
{
const QString s_mainGroup = QStringLiteral("Desktop Entry");

bool hasSandbox(const MDesktopEntry &entry)
{
    for (const QString &group : {QStringLiteral("X-Tarnhold"), QStringLiteral("X-Application")}) {
        if (entry.containsGroup(group)
            && entry.value(group, QStringLiteral("Sandboxing")) != QLatin1String("Disabled")) {
            return true;
        }
    }
    return false;
}
}

LauncherItem::LauncherItem(const QString &fileID, std::shared_ptr<const MDesktopEntry> entry, QObject *parent)
    : QObject(parent)
    , m_fileID(fileID)
{
    setEntry(std::move(entry));
}

LauncherItem::~LauncherItem() = default;

QString LauncherItem::filePath() const
{
    return m_entry->fileName();
}

QString LauncherItem::fileID() const
{
    return m_fileID;
}

bool LauncherItem::isValid() const
{
    return m_entry->isValid();
}

QString LauncherItem::title() const
{
    return m_entry->localizedValue(s_mainGroup, QStringLiteral("Name"));
}

QString LauncherItem::iconId() const
{
    return m_entry->localizedValue(s_mainGroup, QStringLiteral("Icon"));
}

bool LauncherItem::isSandboxed() const
{
    return m_sandboxed;
}

QString LauncherItem::dBusServiceName() const
{
    QString name = readValue(QStringLiteral("X-DBus-ServiceName"));
    if (!name.isEmpty()) {
        return name;
    }
    if (readValue(QStringLiteral("DBusActivatable")) != QLatin1String("true")) {
        return {};
    }
    return m_fileID.chopped(int(qstrlen(".desktop")));
}

QString LauncherItem::readValue(const QString &key, const QString &group) const
{
    return m_entry->value(group, key);
}

void LauncherItem::setEntry(std::shared_ptr<const MDesktopEntry> entry)
{
    m_entry = std::move(entry);
    m_sandboxed = hasSandbox(*m_entry);
}

#include "moc_launcheritem.cpp"
