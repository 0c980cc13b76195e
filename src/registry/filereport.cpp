// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/filereport.h"

#include "common/logging.h"
#include "common/logtext.h"
#include "common/messages.h"
#include "registry/entrysources.h"
#include "registry/textfile.h"

#include <regularfile.h>

#include <cerrno>

namespace
{
void parse(const EntrySources &sources, FileReport *report)
{
    report->file = parseRegistrationFile(report->content, report->name, &report->error);
    if (!report->file) {
        const bool isJson = report->error.error == QJsonParseError::NoError;
        report->status = isJson ? FileStatus::NotAnObject : FileStatus::NotJson;
        return;
    }
    errno = 0;
    report->status = statusByGroups(sources, *report->file);
    // The access-control library does not report why it finds no group.
    report->shortage = isShortage(errno) ? qt_error_string(errno) : QString();
}
}

FileReport readRegistrationFile(const EntrySources &sources, const QString &fileName)
{
    FileReport report;
    report.name = fileName;
    const std::optional<QByteArray> content = readTextFile(sources.entriesDirectory + QLatin1Char('/') + fileName,
                                                           &report.shortage);
    if (content) {
        report.content = *content;
        parse(sources, &report);
    } else if (report.shortage.isEmpty()) {
        qCWarning(lcSettings) << Messages::CannotReadEntries << quoted(fileName);
    }
    return report;
}

FileStatus statusByGroups(const EntrySources &sources, const RegistrationFile &file)
{
    if (!file.requiredGroup.isEmpty() && !sources.userHasGroup(file.requiredGroup)) {
        qCDebug(lcSettings) << sources.userId() << Messages::NotInGroup << quoted(file.requiredGroup);
        return FileStatus::LacksGroup;
    }
    if (!file.disabledGroup.isEmpty() && sources.userHasGroup(file.disabledGroup)) {
        qCDebug(lcSettings) << sources.userId() << Messages::DisabledForGroup << quoted(file.disabledGroup);
        return FileStatus::HasGroup;
    }
    return FileStatus::Loaded;
}
