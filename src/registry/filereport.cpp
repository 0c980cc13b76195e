// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/filereport.h"

#include "registry/entrysources.h"
#include "registry/logging.h"
#include "registry/messages.h"

#include <QFile>
#include <QFileInfo>

namespace
{
/// The content of a registration file, nothing and a warning when it cannot be read.
std::optional<QByteArray> readContent(const QString &directory, const QString &fileName)
{
    QFile file(directory + QLatin1Char('/') + fileName);
    // To open a pipe would wait for its writer.
    if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly)) {
        qCWarning(lcSettings) << Messages::CannotReadEntries << fileName;
        return {};
    }
    // What QIODevice::Text does, at a fraction of its cost
    QByteArray content = file.readAll();
    if (content.contains('\r')) {
        content.replace('\r', "");
    }
    return content;
}
}

FileReport readRegistrationFile(const EntrySources &sources, const QString &fileName)
{
    FileReport report;
    report.name = fileName;
    const std::optional<QByteArray> content = readContent(sources.entriesDirectory, fileName);
    if (!content) {
        return report;
    }
    report.content = *content;
    report.file = parseRegistrationFile(report.content, fileName, &report.error);
    if (report.file) {
        report.fate = fateByGroups(sources, *report.file);
    } else {
        const bool isJson = report.error.error == QJsonParseError::NoError;
        report.fate = isJson ? FileFate::NotAnObject : FileFate::NotJson;
    }
    return report;
}

FileFate fateByGroups(const EntrySources &sources, const RegistrationFile &file)
{
    if (!file.requiredGroup.isEmpty() && !sources.userHasGroup(file.requiredGroup)) {
        qCDebug(lcSettings) << sources.userId() << Messages::NotInGroup << file.requiredGroup;
        return FileFate::LacksGroup;
    }
    if (!file.disabledGroup.isEmpty() && sources.userHasGroup(file.disabledGroup)) {
        qCDebug(lcSettings) << sources.userId() << Messages::DisabledForGroup << file.disabledGroup;
        return FileFate::HasGroup;
    }
    return FileFate::Loaded;
}
