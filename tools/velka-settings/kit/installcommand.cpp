// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "commandline.h"
#include "commands.h"
#include "contentname.h"
#include "entriesplace.h"
#include "printable.h"
#include "registry/registrationfile.h"
#include "userfile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QSet>

#include <cstdio>

namespace
{
const char s_installHelp[] = R"(Usage: velka-settings install [OPTION]... FILE|DIR...

Gives registration files names with a hash of their content, such as
sound-3f9a2c.json. Running programs know files by their names only: with these
names, they follow an upgrade as one removal and one arrival.

  --into DIR         copies the files into DIR, which is created if needed, and
                     removes the earlier versions there that have such names;
                     without it, the files are renamed where they are. A file
                     that was edited there is not overwritten
  --list             prints the new names and changes nothing
  -h, --help         prints this; --version prints the version

DIR is a directory of registration files, one with entries/ in it, or the root
of an unpacked package. Files that the library never loads are left out.

Exit status: 0; 2 when a file cannot be read or written.
)";

const CommandSyntax s_installSyntax{"install", s_installHelp, {}, 1, CommandSyntax::Unlimited, "FILE or DIR"};

/// A registration file and its new name.
struct NamedFile {
    QString path;
    QByteArray content;
    QString name;
};

QString failed(const char *what, const QString &path, const QFileDevice &file)
{
    return QStringLiteral("cannot %1 \"%2\": %3").arg(QLatin1String(what), printable(path), file.errorString());
}

bool isLoaded(const QString &name)
{
    return isRegistrationFile(name) && !name.startsWith(QLatin1Char('.'));
}

/// Adds the files that @p argument stands for to @p files. Returns what is wrong with it, if anything.
QString collect(const QString &argument, QVector<NamedFile> *files)
{
    QString problem;
    const std::optional<EntriesPlace> place = EntriesPlace::find(argument, &problem);
    for (const QString &path : place ? place->files : QStringList()) {
        const QString name = QFileInfo(path).fileName();
        if (!isLoaded(name)) {
            continue;
        }
        const auto content = UserFile::read(path, &problem);
        if (!content) {
            return problem;
        }
        files->append({path, *content, ContentName::of(name, *content)});
    }
    return problem;
}

/// Renames @p file where it is. A file that has the new name is a copy of it.
QString rename(const NamedFile &file)
{
    const QFileInfo info(file.path);
    if (info.fileName() == file.name) {
        return {};
    }
    QFile renamed(file.path);
    const QString path = info.dir().filePath(file.name);
    const bool isDone = QFileInfo::exists(path) ? renamed.remove() : renamed.rename(path);
    return isDone ? QString() : failed("rename", file.path, renamed);
}

QString removeOlder(const NamedFile &file, const QDir &directory)
{
    const QStringList names = directory.entryList({QStringLiteral("*.json")}, QDir::Files);
    for (const QString &name : names) {
        QFile other(directory.filePath(name));
        QString problem;
        const QByteArray content = UserFile::read(other.fileName(), &problem).value_or(QByteArray());
        if (problem.isEmpty() && ContentName::isOlder(name, content, file.name) && !other.remove()) {
            return failed("remove", other.fileName(), other);
        }
    }
    return {};
}

QString copy(const NamedFile &file, const QDir &directory)
{
    constexpr QFile::Permissions ForAll(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup
                                        | QFile::ReadOther);
    directory.mkpath(QStringLiteral(".")); // if that fails, so does the next line
    const QString problem = UserFile::write(directory.filePath(file.name), file.content, ForAll);
    return problem.isEmpty() ? removeOlder(file, directory) : problem;
}

/// Returns which file in @p directory @p file would overwrite, if any: one that was edited after it got its name.
QString problemIn(const QDir &directory, const NamedFile &file)
{
    const QString path = directory.filePath(file.name);
    QString problem;
    if (!QFileInfo::exists(path)) {
        return problem;
    }
    const auto content = UserFile::read(path, &problem);
    return content && *content != file.content
               ? QStringLiteral("\"%1\" has other content than its name says: remove or rename it")
                     .arg(printable(path))
               : problem;
}

/// Returns which of @p files cannot be renamed where they are, if any.
QString problemOfRenaming(const QVector<NamedFile> &files)
{
    QSet<QString> paths;
    for (const NamedFile &file : files) {
        const QString path = QFileInfo(file.path).canonicalFilePath();
        if (paths.contains(path)) {
            return QStringLiteral("\"%1\" is given twice").arg(printable(file.path));
        }
        paths.insert(path);
        QString problem = problemIn(QFileInfo(file.path).dir(), file);
        if (!problem.isEmpty()) {
            return problem;
        }
    }
    return {};
}

/// Returns which of @p files cannot be copied into @p directory, if any. Of two versions of a file, one would replace
/// the other.
QString problemOfCopying(const QVector<NamedFile> &files, const QDir &directory)
{
    QHash<QString, const NamedFile *> known;
    for (const NamedFile &file : files) {
        const QString name = ContentName::withoutHash(file.name);
        const NamedFile *&other = known[name];
        if (other && (other->name != file.name || other->content != file.content)) {
            return QStringLiteral("two files have the name \"%1\"").arg(printable(name));
        }
        other = &file;
        QString problem = problemIn(directory, file);
        if (!problem.isEmpty()) {
            return problem;
        }
    }
    return {};
}

QString problemWith(const QVector<NamedFile> &files, const QString &directory)
{
    return directory.isEmpty() ? problemOfRenaming(files) : problemOfCopying(files, QDir(directory));
}

QString install(const QVector<NamedFile> &files, const QCommandLineParser &parser)
{
    for (const NamedFile &file : files) {
        QString problem;
        if (!parser.isSet(QStringLiteral("list"))) {
            const QString directory = parser.value(QStringLiteral("into"));
            problem = directory.isEmpty() ? rename(file) : copy(file, QDir(directory));
        }
        if (!problem.isEmpty()) {
            return problem;
        }
        std::puts(qUtf8Printable(printable(file.name)));
    }
    return {};
}
}

int Commands::install(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.addOptions(
        {{QStringLiteral("into"), {}, QStringLiteral("DIR")}, QCommandLineOption(QStringLiteral("list"))});
    if (const std::optional<int> exitStatus = parseCommandLine(&parser, s_installSyntax, arguments)) {
        return *exitStatus;
    }
    QVector<NamedFile> files;
    QString problem;
    const QStringList named = parser.positionalArguments();
    for (const QString &argument : named) {
        problem = problem.isEmpty() ? collect(argument, &files) : problem;
    }
    problem = problem.isEmpty() ? problemWith(files, parser.value(QStringLiteral("into"))) : problem;
    problem = problem.isEmpty() ? ::install(files, parser) : problem;
    return problem.isEmpty() ? Success : refuse(s_installSyntax, problem);
}
