// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "harness.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QLoggingCategory>

#include <cstdio>
#include <cstdlib>

// Null without the sanitizer
extern "C" void __lsan_disable() __attribute__((weak));
extern "C" void __lsan_enable() __attribute__((weak));

namespace
{
void handleMessage(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type == QtFatalMsg) {
        std::fprintf(stderr, "%s\n", qPrintable(text)); // then Qt ends the process
    }
}
}

int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    static int count = *argc;
    static auto *const application = new QCoreApplication(count, *argv);
    Q_UNUSED(application)
    qInstallMessageHandler(handleMessage);
    // Most inputs cause warnings, and their text would take longer than the rest.
    QLoggingCategory::setFilterRules(QStringLiteral("*=false"));
    if (!qEnvironmentVariableIsSet("VELKA_SANDBOX")) {
        qFatal("This program writes into system directories: run it through scripts/sandbox");
    }
    return 0;
}

void require(bool holds, const char *what)
{
    if (!holds) {
        std::fprintf(stderr, "Not so: %s\n", what);
        std::abort();
    }
}

LeakPermission::LeakPermission(bool granted)
    : m_granted(granted && __lsan_disable)
{
    if (m_granted) {
        __lsan_disable();
    }
}

LeakPermission::~LeakPermission()
{
    if (m_granted) {
        __lsan_enable();
    }
}

bool isJson(const QByteArray &bytes)
{
    const LeakPermission permission(true);
    return !QJsonDocument::fromJson(bytes).isNull();
}

QString Scratch::path(const QString &name) const
{
    return m_directory.filePath(name);
}

void Scratch::makeDirectory(const QString &name) const
{
    require(QDir(m_directory.path()).mkpath(name), "a directory can be made");
}

void Scratch::write(const QString &name, const QByteArray &content) const
{
    QFile file(path(name));
    require(file.open(QIODevice::WriteOnly) && file.write(content) == content.size(), "the input can be written");
}

void Scratch::remove(const QString &name) const
{
    QFile::remove(path(name));
}
