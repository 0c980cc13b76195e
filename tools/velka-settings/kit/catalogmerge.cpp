// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "catalogmerge.h"

#include "catalogparts.h"
#include "printable.h"
#include "tsfile.h"
#include "userfile.h"

#include <QDir>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <cstdio>

namespace
{
QString lupdate()
{
    for (const char *name : {"lupdate-qt5", "lupdate"}) {
        const QStringList directories[] = {{QLibraryInfo::location(QLibraryInfo::BinariesPath)}, {}};
        for (const QStringList &places : directories) {
            QString program = QStandardPaths::findExecutable(QLatin1String(name), places);
            if (!program.isEmpty()) {
                return program;
            }
        }
    }
    return {};
}

/// Returns a string literal. Slashes are escaped, too, because they may end the comment around it.
QByteArray literal(const QString &text)
{
    QByteArray escaped;
    const QByteArray bytes = text.toUtf8();
    for (const char byte : bytes) {
        const bool isSpecial = uchar(byte) < ' ' || byte == '"' || byte == '\\' || byte == '/';
        escaped += isSpecial ? '\\' + QByteArray::number(uchar(byte), 8).rightJustified(3, '0')
                             : QByteArray(1, byte);
    }
    return '"' + escaped + '"';
}

/// Returns C++ with @p texts. Those that have plurals in @p messages keep them.
QByteArray sourceOf(const QVector<IdentifiedText> &texts, const TsFile::Messages &messages)
{
    QByteArray source;
    int line = 1;
    for (const IdentifiedText &text : texts) {
        source += QByteArray(qMax(0, text.line - line), '\n');
        line = qMax(line, text.line);
        const QByteArray number = messages.value(text.id).isPlural ? ", n" : "";
        source += "/*% " + literal(text.text) + " */ qtTrId(" + literal(text.id) + number + "); ";
    }
    return source + '\n';
}

/// A directory in which lupdate works. It mirrors the root directory, so that relative places in catalogs are right.
class Mirror
{
public:
    /// Creates the directory of @p path. Returns what is wrong, if anything.
    QString prepare(const QString &path) const
    {
        if (!m_directory.isValid()) {
            return QStringLiteral("cannot create a temporary directory: ") + m_directory.errorString();
        }
        const QString directory = QFileInfo(mirrored(path)).path();
        return QDir().mkpath(directory) ? QString()
                                        : QStringLiteral("cannot create \"%1\"").arg(printable(directory));
    }

    QString write(const QString &path, const QByteArray &content) const
    {
        const QString problem = prepare(path);
        return problem.isEmpty() ? UserFile::write(mirrored(path), content) : problem;
    }

    QString mirrored(const QString &path) const
    {
        return m_directory.path() + QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    }

    QString withoutPath(QString text) const
    {
        return text.remove(m_directory.path());
    }

private:
    QTemporaryDir m_directory;
};

QSet<QString> idsOf(const QVector<TextFile> &files)
{
    QSet<QString> ids;
    for (const TextFile &file : files) {
        for (const IdentifiedText &text : file.texts) {
            ids.insert(text.id);
        }
    }
    return ids;
}

/// Writes the sources of @p files, and what lupdate gets of @p catalog.
QString fill(const Mirror &mirror, const QVector<TextFile> &files, const NamedCatalog &catalog)
{
    QString problem;
    const TsFile::Messages messages = TsFile::messagesOf(catalog.content, &problem).value_or(TsFile::Messages());
    for (const TextFile &file : files) {
        problem = problem.isEmpty() ? mirror.write(file.path, sourceOf(file.texts, messages)) : problem;
    }
    if (!problem.isEmpty()) {
        return problem;
    }
    return catalog.content.isEmpty()
               ? mirror.prepare(catalog.path)
               : mirror.write(catalog.path, CatalogParts::merged(catalog.content, idsOf(files)));
}

QStringList argumentsFor(const Mirror &mirror, const QVector<TextFile> &files, const NamedCatalog &catalog)
{
    QStringList arguments{QStringLiteral("-silent")};
    if (catalog.content.isEmpty()) {
        arguments += {QStringLiteral("-source-language"), QStringLiteral("en"), QStringLiteral("-target-language"),
                      catalog.language};
    }
    for (const TextFile &file : files) {
        arguments.append(mirror.mirrored(file.path));
    }
    return arguments + QStringList{QStringLiteral("-ts"), mirror.mirrored(catalog.path)};
}

/// Merges the texts. Returns what is wrong, if anything.
QString run(const Mirror &mirror, const QStringList &arguments)
{
    const QString program = lupdate();
    if (program.isEmpty()) {
        return QStringLiteral("lupdate is missing: install Qt's linguist tools, such as qttools5-dev-tools");
    }
    QProcess process;
    process.start(program, arguments);
    const bool hasRun = process.waitForFinished(-1) && process.exitStatus() == QProcess::NormalExit;
    const QString errors = mirror.withoutPath(QString::fromLocal8Bit(process.readAllStandardError())).trimmed();
    if (!hasRun || process.exitCode() != 0) {
        return QStringLiteral("lupdate fails: ") + errors;
    }
    if (!errors.isEmpty()) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(errors));
    }
    return {};
}

/// Returns which of the texts of @p files @p ts lacks, if any.
QString missingIn(const QByteArray &ts, const QVector<TextFile> &files)
{
    QString problem;
    const auto messages = TsFile::messagesOf(ts, &problem);
    for (const TextFile &file : messages ? files : QVector<TextFile>()) {
        for (const IdentifiedText &text : file.texts) {
            const auto message = messages->constFind(text.id);
            if (message == messages->cend() || message->source != text.text) {
                return QStringLiteral("lupdate loses the text of \"%1\"").arg(printable(text.id));
            }
        }
    }
    return problem;
}
}

std::optional<QByteArray> mergeTexts(const QVector<TextFile> &files, const NamedCatalog &catalog, QString *problem)
{
    const Mirror mirror;
    *problem = fill(mirror, files, catalog);
    *problem = problem->isEmpty() ? run(mirror, argumentsFor(mirror, files, catalog)) : *problem;
    if (!problem->isEmpty()) {
        return {};
    }
    const QByteArray updated = UserFile::read(mirror.mirrored(catalog.path), problem).value_or(QByteArray());
    QByteArray merged = CatalogParts::withOthers(updated, catalog.content, idsOf(files));
    *problem = problem->isEmpty() ? missingIn(merged, files) : *problem;
    *problem = problem->isEmpty() ? TsFile::lostTranslation(catalog.content, merged) : *problem;
    return problem->isEmpty() ? std::make_optional(merged) : std::nullopt;
}
