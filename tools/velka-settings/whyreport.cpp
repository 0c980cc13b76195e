// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "whyreport.h"

#include "inspection.h"
#include "printable.h"
#include "registry/blacklistfile.h"
#include "registry/registrationfile.h"
#include "registry/treeitem.h"
#include "terminal.h"
#include "titletext.h"

#include <QFileInfo>
#include <QJsonArray>

namespace
{
QSet<QString> blacklistOf(const EntrySources &sources)
{
    const QString &file = sources.favoritesBlacklistFile;
    return QFileInfo::exists(file) ? readBlacklistFile(file) : QSet<QString>();
}

TreeItem *findItem(const Inspection &inspection, const QString &node)
{
    return node.isEmpty() ? nullptr : inspection.root()->lookup(splitPath(node));
}

void printLine(const Terminal &out, const QString &line)
{
    out.writeLine(QStringLiteral("  ") + printable(line));
}
}

WhyReport::WhyReport(const Inspection &inspection, const QString &node)
    : m_inspection(inspection)
    , m_node(node)
    , m_declarations(inspection)
    , m_verdict(verdictOn(m_declarations, node))
    , m_text(inspection)
    , m_blacklist(blacklistOf(inspection.sources()))
    , m_item(findItem(inspection, node))
{
}

bool WhyReport::isPresent() const
{
    return m_verdict.kind == Verdict::Present;
}

void WhyReport::print(const Terminal &out) const
{
    const QString answer = isPresent() ? out.good(QStringLiteral("is in the tree"))
                                       : out.bad(QStringLiteral("is not in the tree"));
    const QString reason = printable(m_text.reasonOf(m_verdict, m_declarations, m_node));
    const QString end = reason.endsWith(QLatin1Char('?')) ? QString() : QStringLiteral(".");
    out.writeLine(QStringLiteral("%1 %2: %3%4").arg(out.strong(printable(m_node)), answer, reason, end));
    if (m_item && !isPresent()) {
        printLine(
            out,
            QStringLiteral("The tree has a node for the entries below it, titled \"%1\".").arg(m_item->title()));
    }
    printDeclarations(out);
    if (isPresent()) {
        printTitles(out);
        printFavorites(out);
    }
}

void WhyReport::printDeclarations(const Terminal &out) const
{
    if (m_verdict.declarations.isEmpty()) {
        return;
    }
    out.writeLine(QStringLiteral("\n") + out.strong(QStringLiteral("Declared by")));
    for (const Declaration &declaration : m_verdict.declarations) {
        printLine(out, QStringLiteral("%1, as \"%2\"").arg(declaration.place(), declaration.path));
        const QStringList notes = notesOn(declaration);
        for (const QString &note : notes) {
            printLine(out, QStringLiteral("  ") + note);
        }
    }
}

QStringList WhyReport::notesOn(const Declaration &declaration) const
{
    QStringList notes = notesOnSpelling(declaration);
    if (declaration.obstacles.isEmpty()) {
        notes.prepend(QStringLiteral("in the tree"));
        return notes;
    }
    for (const Obstacle &obstacle : declaration.obstacles) {
        const QString text = m_text.obstacleText(declaration, obstacle);
        notes.append(&obstacle == &declaration.obstacles.first() ? text : QStringLiteral("and then: ") + text);
        if (obstacle.kind == Obstacle::Masked && m_blacklist.contains(declaration.path)) {
            notes.append(QStringLiteral("the favourites blacklist contains it: running programs show it after the "
                                        "next change of the key"));
        }
    }
    return notes;
}

/// Returns a line for each mask and each path of the favourites blacklist that is meant for @p declaration, but is
/// spelled in another way.
QStringList WhyReport::notesOnSpelling(const Declaration &declaration) const
{
    const auto isMeant = [&declaration](const QString &path) {
        return path != declaration.path
               && splitPath(path).join(QLatin1Char('/')).compare(declaration.node(), Qt::CaseInsensitive) == 0;
    };
    QStringList notes;
    for (const QString &mask : m_inspection.masked()) {
        if (isMeant(mask)) {
            notes.append(
                QStringLiteral("the mask \"%1\" has no effect on it: it is not spelled like the declaration")
                    .arg(mask));
        }
    }
    for (const QString &path : m_blacklist) {
        if (isMeant(path)) {
            notes.append(
                QStringLiteral("\"%1\" in the favourites blacklist has no effect on it: it is not spelled "
                               "like the declaration")
                    .arg(path));
        }
    }
    return notes;
}

void WhyReport::printTitles(const Terminal &out) const
{
    const auto print = [&out](const char *heading, const QString &title, const QStringList &origin) {
        out.writeLine(QStringLiteral("\n%1 \"%2\"").arg(out.strong(QLatin1String(heading)), printable(title)));
        for (const QString &line : origin) {
            printLine(out, line);
        }
    };
    print("Title", m_item->title(), titleOrigin(*m_item, m_inspection.record()));
    if (m_item->shortTitle().isEmpty() && m_item->value(QStringLiteral("translation_id_short")).isNull()) {
        return;
    }
    print("Short title", m_item->shortTitle(), shortTitleOrigin(*m_item, m_inspection.record()));
}

void WhyReport::printFavorites(const Terminal &out) const
{
    out.writeLine(QStringLiteral("\n") + out.strong(QStringLiteral("Favourites")));
    const QVector<FavoritesAnswer> answers = favoritesAnswers(m_item, m_blacklist);
    for (const FavoritesAnswer &answer : answers) {
        const QString verdict = answer.isAdmitted ? out.good(QStringLiteral("admits it:  "))
                                                  : out.faint(QStringLiteral("excludes it:"));
        out.writeLine(
            QStringLiteral("  %1 %2 %3").arg(answer.kind.leftJustified(21), verdict, printable(answer.rule)));
    }
}

QJsonObject WhyReport::toJson() const
{
    QJsonObject json{{QStringLiteral("path"), m_node},
                     {QStringLiteral("present"), isPresent()},
                     {QStringLiteral("kind"), WhyText::kindOf(m_verdict)},
                     {QStringLiteral("reason"), m_text.reasonOf(m_verdict, m_declarations, m_node)},
                     {QStringLiteral("node"), m_item != nullptr},
                     {QStringLiteral("declarations"), declarationsToJson()}};
    if (isPresent()) {
        const LoadRecord &record = m_inspection.record();
        json.insert(QStringLiteral("title"), m_item->title());
        json.insert(QStringLiteral("titleOrigin"), QJsonArray::fromStringList(titleOrigin(*m_item, record)));
        json.insert(QStringLiteral("shortTitle"), m_item->shortTitle());
        json.insert(QStringLiteral("shortTitleOrigin"),
                    QJsonArray::fromStringList(shortTitleOrigin(*m_item, record)));
        json.insert(QStringLiteral("favorites"), favoritesToJson());
    }
    return json;
}

QJsonArray WhyReport::declarationsToJson() const
{
    QJsonArray declarations;
    for (const Declaration &declaration : m_verdict.declarations) {
        QJsonArray obstacles;
        for (const Obstacle &obstacle : declaration.obstacles) {
            obstacles.append(QJsonObject{{QStringLiteral("kind"), WhyText::kindOf(obstacle)},
                                         {QStringLiteral("text"), m_text.obstacleText(declaration, obstacle)}});
        }
        declarations.append(
            QJsonObject{{QStringLiteral("file"), declaration.file},
                        {QStringLiteral("entry"), declaration.index + 1},
                        {QStringLiteral("path"), declaration.path},
                        {QStringLiteral("obstacles"), obstacles},
                        {QStringLiteral("spelling"), QJsonArray::fromStringList(notesOnSpelling(declaration))}});
    }
    return declarations;
}

QJsonObject WhyReport::favoritesToJson() const
{
    QJsonObject favorites;
    const QVector<FavoritesAnswer> answers = favoritesAnswers(m_item, m_blacklist);
    for (const FavoritesAnswer &answer : answers) {
        favorites.insert(answer.kind, QJsonObject{{QStringLiteral("admitted"), answer.isAdmitted},
                                                  {QStringLiteral("rule"), answer.rule}});
    }
    return favorites;
}
