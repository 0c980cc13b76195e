// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "previewedfiles.h"

#include "applications/filewatcher.h"
#include "pluginregistry.h"

#include <QFileInfo>

PreviewedFiles::PreviewedFiles(const QStringList &paths)
    : m_paths(paths)
    , m_entries(QStringLiteral("/usr/share/velka-settings/entries"))
{
    for (const QString &path : m_paths) {
        copy(path);
    }
}

void PreviewedFiles::follow()
{
    for (const QString &path : m_paths) {
        const auto *watcher = new FileWatcher(path, &m_watchers);
        QObject::connect(watcher, &FileWatcher::fileChanged, watcher, [this, path] { reload(path); });
    }
}

bool PreviewedFiles::copy(const QString &path) const
{
    const QString target = m_entries.filePath(QFileInfo(path).fileName());
    QFile::remove(target);
    const bool copied = QFile::copy(path, target);
    if (!copied) {
        qWarning("Can't read %s", qPrintable(path));
    }
    return copied;
}

void PreviewedFiles::reload(const QString &path) const
{
    PluginRegistry *const registry = PluginRegistry::instance();
    const QString name = QFileInfo(path).fileName();
    registry->removeEntriesForFile(name);
    if (copy(path)) {
        registry->addEntriesForFile(name);
    }
    Q_EMIT registry->contentChanged();
}
