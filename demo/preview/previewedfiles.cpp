// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "previewedfiles.h"

#include "applications/filewatcher.h"
#include "brokenjson.h"
#include "entriesplace.h"
#include "pluginregistry.h"
#include "printable.h"

#include <QFileInfo>
#include <QJsonDocument>

namespace
{
/// Returns why the registry does not load @p content, empty when it does.
QString problemWith(const QByteArray &content)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(content, &error);
    if (document.isNull()) {
        return BrokenJson::errorOf(content, error);
    }
    return document.isObject() ? QString() : QStringLiteral("the top level is not an object");
}
}

PreviewedFiles::PreviewedFiles(const QStringList &paths, const QStringList &directories)
    : m_paths(paths)
    , m_directories(directories)
    , m_entries(QStringLiteral("/usr/share/velka-settings/entries"))
{
    for (const QString &path : paths) {
        copy(path);
    }
}

void PreviewedFiles::follow()
{
    for (const QString &path : std::as_const(m_paths)) {
        followFile(path);
    }
    connect(&m_directoryWatcher, &QFileSystemWatcher::directoryChanged, this, &PreviewedFiles::readDirectory);
    connect(&m_directoryWatcher, &QFileSystemWatcher::fileChanged, this,
            [this](const QString &path) { readDirectory(QFileInfo(path).path()); });
    for (const QString &directory : m_directories) {
        m_directoryWatcher.addPath(directory);
        readDirectory(directory);
    }
}

QStringList PreviewedFiles::problems() const
{
    QStringList lines;
    for (auto it = m_problems.cbegin(); it != m_problems.cend(); ++it) {
        lines.append(printable(QStringLiteral("%1: %2").arg(it.key(), it.value())));
    }
    return lines;
}

bool PreviewedFiles::copy(const QString &path)
{
    const QString name = QFileInfo(path).fileName();
    const QString target = m_entries.filePath(name);
    QFile::remove(target);
    QFile source(path);
    QFile copied(target);
    if (!source.open(QIODevice::ReadOnly) || !copied.open(QIODevice::WriteOnly)) {
        setProblem(name, QFileInfo::exists(path) ? QStringLiteral("cannot be read") : QString());
        return false;
    }
    const QByteArray content = source.readAll();
    setProblem(name, problemWith(content));
    return copied.write(content) == content.size();
}

void PreviewedFiles::reload(const QString &path)
{
    PluginRegistry *const registry = PluginRegistry::instance();
    const QString name = QFileInfo(path).fileName();
    registry->removeEntriesForFile(name);
    if (copy(path)) {
        registry->addEntriesForFile(name);
    }
    Q_EMIT registry->contentChanged();
}

void PreviewedFiles::followFile(const QString &path)
{
    const auto *watcher = new FileWatcher(path, &m_watchers);
    connect(watcher, &FileWatcher::fileChanged, this, [this, path] { reload(path); });
}

/// Loads the files that have appeared in @p directory. Those that are gone are followed one by one.
void PreviewedFiles::readDirectory(const QString &directory)
{
    followOtherFiles(directory);
    QString problem;
    const std::optional<EntriesPlace> place = EntriesPlace::find(directory, &problem);
    const QStringList present = place ? place->files : QStringList();
    for (const QString &path : present) {
        const bool isNew = QFileInfo(path).absolutePath() == QFileInfo(directory).absoluteFilePath()
                           && !m_paths.contains(path);
        if (isNew) {
            m_paths.append(path);
            m_directoryWatcher.removePath(path);
            followFile(path);
            reload(path);
        }
    }
}

/// Follows the other JSON files of @p directory: one that is still empty may become a registration file.
void PreviewedFiles::followOtherFiles(const QString &directory)
{
    const QFileInfoList files = QDir(directory).entryInfoList({QStringLiteral("*.json")}, QDir::Files);
    for (const QFileInfo &file : files) {
        if (!m_paths.contains(file.filePath())) {
            m_directoryWatcher.addPath(file.filePath());
        }
    }
}

void PreviewedFiles::setProblem(const QString &name, const QString &problem)
{
    if (m_problems.value(name) == problem) {
        return;
    }
    if (problem.isEmpty()) {
        m_problems.remove(name);
    } else {
        m_problems.insert(name, problem);
    }
    Q_EMIT problemsChanged();
}
