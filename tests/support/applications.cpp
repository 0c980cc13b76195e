// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "applications.h"

#include <launcherfoldermodel.h>

#include <QDir>
#include <QFile>
#include <QSaveFile>

namespace
{
void mustDo(bool done, const QString &path)
{
    if (!done) {
        qFatal("Can't change %s", qPrintable(path));
    }
}

template<typename File>
void fill(File *file, const QByteArray &content)
{
    mustDo(file->open(QIODevice::WriteOnly) && file->write(content) == content.size(), file->fileName());
}

QString title(const QObject *object)
{
    if (const auto *folder = qobject_cast<const LauncherFolderItem *>(object)) {
        return folder->title() + QLatin1Char('{') + rows(*folder) + QLatin1Char('}');
    }
    return qobject_cast<const LauncherItem *>(object)->title();
}
}

Applications::Applications()
{
    qputenv("XDG_DATA_HOME", QFile::encodeName(path("user")));
    qputenv("XDG_DATA_DIRS", QFile::encodeName(path("first") + QLatin1Char(':') + path("second")));
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(path("config")));
}

QString Applications::path(const char *relative) const
{
    QString path = m_directory.filePath(QString::fromUtf8(relative));
    for (const char *root : {"user", "first", "second"}) {
        const QString data = m_directory.filePath(QLatin1String(root));
        if (path.startsWith(data + QLatin1Char('/'))) {
            path.insert(data.size(), QStringLiteral("/applications"));
        }
    }
    return path;
}

QString Applications::menuFile() const
{
    return path("config/menus/kavari-applications.menu");
}

void Applications::write(const char *file, const QByteArray &content) const
{
    makeParent(path(file));
    QFile target(path(file));
    fill(&target, content);
}

void Applications::replace(const char *file, const QByteArray &content) const
{
    QSaveFile target(path(file));
    fill(&target, content);
    mustDo(target.commit(), target.fileName());
}

void Applications::remove(const char *path) const
{
    const QFileInfo target(this->path(path));
    const bool isDirectory = target.isDir() && !target.isSymLink();
    mustDo(isDirectory ? QDir(target.filePath()).removeRecursively() : QFile::remove(target.filePath()),
           target.filePath());
}

void Applications::rename(const char *from, const char *to) const
{
    makeParent(path(to));
    mustDo(QDir().rename(path(from), path(to)), path(from));
}

void Applications::link(const QString &target, const char *path) const
{
    makeParent(this->path(path));
    mustDo(QFile::link(target, this->path(path)), this->path(path));
}

void Applications::writeMenu(const QByteArray &content) const
{
    write("config/menus/kavari-applications.menu", content);
}

void Applications::makeParent(const QString &path) const
{
    const QString parent = QFileInfo(path).path();
    mustDo(QDir().mkpath(parent), parent);
}

UnsharedLauncher::UnsharedLauncher()
{
    // What is read depends on the languages. Nothing is written in the last one.
    const QByteArray languages = qgetenv("LANGUAGE");
    static int s_number = 0;
    qputenv("LANGUAGE", languages + ":unshared" + QByteArray::number(++s_number));
    m_model = std::make_unique<LauncherFolderModel>();
    qputenv("LANGUAGE", languages);
}

UnsharedLauncher::~UnsharedLauncher() = default;

const LauncherFolderModel &UnsharedLauncher::model() const
{
    return *m_model;
}

QByteArray application(const QByteArray &name, const QByteArray &lines)
{
    return "[Desktop Entry]\nType=Application\nName=" + name + "\n" + lines;
}

QString rows(const LauncherFolderItem &folder)
{
    QStringList titles;
    for (int row = 0; row < folder.itemCount(); ++row) {
        titles.append(title(folder.get(row)));
    }
    return titles.join(QLatin1Char(' '));
}

QStringList fileIds(const LauncherFolderItem &folder)
{
    QStringList ids;
    for (int row = 0; row < folder.itemCount(); ++row) {
        if (const LauncherItem *item = itemAt(folder, row)) {
            ids.append(item->fileID());
        }
    }
    return ids;
}

LauncherItem *itemAt(const LauncherFolderItem &folder, int row)
{
    return qobject_cast<LauncherItem *>(folder.get(row));
}
