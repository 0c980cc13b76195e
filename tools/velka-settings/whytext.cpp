// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "whytext.h"

#include "common/constants.h"
#include "inspection.h"
#include "namedsources.h"
#include "pathsuggestion.h"
#include "unreadpaths.h"

namespace
{
QString fileNameText(const QString &name)
{
    return QStringLiteral("%1 is never loaded because its name %2").arg(name, whyNeverLoaded(name));
}
}

WhyText::WhyText(const Inspection &inspection)
    : m_inspection(inspection)
{
}

QString WhyText::reasonOf(const Verdict &verdict, const Declarations &declarations, const QString &node) const
{
    switch (verdict.kind) {
    case Verdict::Present:
        return QStringLiteral("declared by %1").arg(verdict.declarations.at(verdict.decisive).place());
    case Verdict::KeptOut: {
        const Declaration &declaration = verdict.declarations.at(verdict.decisive);
        return obstacleText(declaration, declaration.obstacles.first());
    }
    case Verdict::InUnknownFile:
    case Verdict::Undeclared:
        break;
    }
    return absenceOf(declarations, node);
}

/// Returns the text for a path that no file is known to declare.
QString WhyText::absenceOf(const Declarations &declarations, const QString &node) const
{
    QString text = QStringLiteral("no file declares it");
    if (!declarations.unknownFiles().isEmpty()) {
        text += QStringLiteral(", except possibly one that cannot be read: ")
                + declarations.unknownFiles().join(QLatin1String(", "));
    }
    const QStringList places = unreadPlacesOf(node, m_inspection);
    if (!places.isEmpty()) {
        return text
               + QStringLiteral(
                   "; but it is at a place that is not read, because it is not the \"path\" of an element "
                   "of \"entries\": ")
               + places.join(QLatin1String("; "));
    }
    const QString meant = suggestPath(node, declarations.paths());
    return meant.isEmpty() ? text : text + QStringLiteral("; did you mean \"%1\"?").arg(meant);
}

QString WhyText::obstacleText(const Declaration &declaration, const Obstacle &obstacle) const
{
    const QString user = QString::number(m_inspection.sources().userId());
    switch (obstacle.kind) {
    case Obstacle::FileName:
        return fileNameText(declaration.file);
    case Obstacle::NotJson:
        return QStringLiteral("%1 is broken at %2").arg(declaration.file, obstacle.detail);
    case Obstacle::NotAnObject:
        return QStringLiteral("the top level of %1 is not an object").arg(declaration.file);
    case Obstacle::LacksGroup:
        return QStringLiteral("the user %1 does not belong to the group \"%2\", the \"required_group\" of %3")
            .arg(user, obstacle.detail, declaration.file);
    case Obstacle::HasGroup:
        return QStringLiteral("the user %1 belongs to the group \"%2\", the \"disabled_group\" of %3")
            .arg(user, obstacle.detail, declaration.file);
    case Obstacle::Pathless:
        return QStringLiteral("%1 has no \"path\"").arg(declaration.place());
    case Obstacle::RootPath:
        return QStringLiteral(
                   "the path \"%1\" of %2 contains no name: it is that of the root, which is never shown")
            .arg(declaration.path, declaration.place());
    case Obstacle::Masked:
        return QStringLiteral("masked by the value \"%1\" of the key %2")
            .arg(obstacle.detail, Constants::MaskedSettingsKey);
    case Obstacle::Replaced:
        return QStringLiteral("replaced by %1").arg(obstacle.detail);
    }
    return {};
}

QString WhyText::kindOf(const Verdict &verdict)
{
    switch (verdict.kind) {
    case Verdict::Present:
        return QStringLiteral("present");
    case Verdict::KeptOut:
        return kindOf(verdict.declarations.at(verdict.decisive).obstacles.first());
    case Verdict::InUnknownFile:
        return QStringLiteral("unreadable");
    case Verdict::Undeclared:
        break;
    }
    return QStringLiteral("undeclared");
}

QString WhyText::kindOf(const Obstacle &obstacle)
{
    switch (obstacle.kind) {
    case Obstacle::FileName:
        return QStringLiteral("file-name");
    case Obstacle::NotJson:
        return QStringLiteral("broken");
    case Obstacle::NotAnObject:
        return QStringLiteral("no-object");
    case Obstacle::LacksGroup:
        return QStringLiteral("required-group");
    case Obstacle::HasGroup:
        return QStringLiteral("disabled-group");
    case Obstacle::Pathless:
        return QStringLiteral("no-path");
    case Obstacle::RootPath:
        return QStringLiteral("root-path");
    case Obstacle::Masked:
        return QStringLiteral("masked");
    case Obstacle::Replaced:
        return QStringLiteral("replaced");
    }
    return {};
}
