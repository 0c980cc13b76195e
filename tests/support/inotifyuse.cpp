// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "inotifyuse.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sys/inotify.h>
#include <unistd.h>

#include <array>

namespace
{
constexpr int MostTaken = 10000; // more than any limit that a test sets

void tooMany(const char *what)
{
    qFatal("%d %s are no limit: the test does not run with its own", MostTaken, what);
}
}

int inotifyInstances()
{
    int count = 0;
    const QFileInfoList descriptors
        = QDir(QStringLiteral("/proc/self/fd")).entryInfoList(QDir::System | QDir::Files);
    for (const QFileInfo &descriptor : descriptors) {
        std::array<char, 64> target = {};
        const QByteArray path = QFile::encodeName(descriptor.filePath());
        if (readlink(path.constData(), target.data(), target.size() - 1) > 0
            && qstrcmp(target.data(), "anon_inode:inotify") == 0) {
            ++count;
        }
    }
    return count;
}

int inotifyWatches()
{
    int count = 0;
    const QFileInfoList descriptors = QDir(QStringLiteral("/proc/self/fdinfo")).entryInfoList(QDir::Files);
    for (const QFileInfo &descriptor : descriptors) {
        QFile file(descriptor.filePath());
        if (file.open(QIODevice::ReadOnly)) {
            count += file.readAll().count("\ninotify wd:");
        }
    }
    return count;
}

NoInotifyInstances::NoInotifyInstances()
{
    for (int instance = 0; instance >= 0 && m_instances.size() < MostTaken;) {
        instance = inotify_init1(IN_CLOEXEC);
        if (instance >= 0) {
            m_instances.append(instance);
        }
    }
    if (m_instances.size() == MostTaken) {
        tooMany("instances");
    }
}

NoInotifyInstances::~NoInotifyInstances()
{
    for (int instance : qAsConst(m_instances)) {
        close(instance);
    }
}

NoInotifyWatches::NoInotifyWatches()
    : m_inotify(inotify_init1(IN_CLOEXEC))
{
    for (int taken = 0; taken < MostTaken; ++taken) {
        QFile file(m_files.filePath(QString::number(taken)));
        if (!file.open(QIODevice::WriteOnly)) {
            qFatal("Can't write %s", qPrintable(file.fileName()));
        }
        if (inotify_add_watch(m_inotify, QFile::encodeName(file.fileName()).constData(), IN_CREATE) < 0) {
            return;
        }
    }
    tooMany("watches");
}

NoInotifyWatches::~NoInotifyWatches()
{
    close(m_inotify);
}

OpenedFiles::OpenedFiles(const QString &directory)
    : m_inotify(inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
{
    if (inotify_add_watch(m_inotify, QFile::encodeName(directory).constData(), IN_OPEN) < 0) {
        qFatal("Can't watch %s", qPrintable(directory));
    }
}

OpenedFiles::~OpenedFiles()
{
    close(m_inotify);
}

QStringList OpenedFiles::take() const
{
    QStringList names;
    alignas(inotify_event) std::array<char, 65536> buffer;
    ssize_t length = 0;
    while ((length = read(m_inotify, buffer.data(), buffer.size())) > 0) {
        for (ssize_t offset = 0; offset < length;) {
            const auto *event = reinterpret_cast<const inotify_event *>(buffer.data() + offset);
            names.append(event->len ? QFile::decodeName(event->name) : QString());
            offset += ssize_t(sizeof(inotify_event)) + event->len;
        }
    }
    names.removeDuplicates();
    return names;
}
