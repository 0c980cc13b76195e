// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "commandline.h"
#include "commands.h"
#include "entriesplace.h"
#include "hostvocabulary.h"
#include "localename.h"
#include "printable.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QHash>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <vector>

#include <unistd.h>

namespace
{
const char s_previewHelp[] = R"(Usage: velka-settings preview [OPTION]... FILE|DIR...

Shows the entries of registration files as a Settings application does, and
follows changes of the files, of directories and of catalogs. The machine's own
settings are neither read nor changed.

  --locale L             shows the texts of the locale L, such as fi_FI
  --translations DIR     takes translation catalogs (*.qm) from DIR; repeatable
  --mask PATH            masks the entry that is declared as PATH; repeatable
  --group GROUP          adds the user to GROUP; repeatable
  --phone, --wide        opens a phone-sized (the default) or a wide window
  --page PATH            opens the page of an entry
  --vocabulary FILE      shows what the host with this vocabulary does
  --no-system-vocabulary does not use the vocabulary of this system
  --screenshot FILE.png  saves a picture and quits; needs no display
  --smoke-test           opens every page, and fails on any warning; needs no
                         display
  -h, --help             prints this; --version prints the version

Exit status: 0; 1 when a page or a picture fails; 2 when there is no preview.
)";

/// Returns the program that shows the preview, where it is installed or was built. Empty when there is none.
QString previewProgram()
{
    for (const char *place : {"/" VELKA_TO_PROGRAMS "/preview", "/../../demo/preview/preview"}) {
        QString path = QCoreApplication::applicationDirPath() + QLatin1String(place);
        if (QFileInfo(path).isExecutable()) {
            return path;
        }
    }
    return {};
}

/// Replaces this process by the program. Returns only when that fails.
void execute(const QStringList &command)
{
    std::vector<QByteArray> words;
    for (const QString &word : command) {
        words.push_back(QFile::encodeName(word));
    }
    std::vector<char *> pointers;
    pointers.reserve(words.size() + 1);
    for (QByteArray &word : words) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    execv(pointers.front(), pointers.data());
}

/// The files and directories of the command line, as options and arguments of the program.
class PreviewedPlaces
{
public:
    /// Returns what is wrong with @p argument, if anything.
    QString add(const QString &argument)
    {
        QString problem;
        const std::optional<EntriesPlace> place = EntriesPlace::find(argument, &problem);
        if (!place) {
            return problem;
        }
        for (const QString &file : place->files) {
            problem = problem.isEmpty() ? addFile(file) : problem;
        }
        if (!place->isFile()) {
            addOption("directory", place->directory);
        }
        if (!place->translations.isEmpty()) {
            addOption("root", argument);
        }
        if (QFileInfo(place->translations).isDir()) {
            addOption("translations", place->translations);
        }
        if (QFileInfo(place->blacklist).isFile()) {
            addOption("blacklist", place->blacklist);
        }
        if (QFileInfo(place->vocabulary).isFile()) {
            m_vocabulary = place->vocabulary;
        }
        return problem;
    }

    /// Returns the vocabulary with the entries, or @p system if there is none.
    QString vocabularyOr(const QString &system) const
    {
        return m_vocabulary.isEmpty() ? system : m_vocabulary;
    }

    QStringList arguments() const
    {
        return m_options + QStringList(QStringLiteral("--")) + m_files;
    }

private:
    QString addFile(const QString &file)
    {
        const QFileInfo info(file);
        const QString known = m_known.value(info.fileName());
        if (known.isEmpty()) {
            m_known.insert(info.fileName(), file);
            m_files.append(info.absoluteFilePath());
        } else if (QFileInfo(known).canonicalFilePath() != info.canonicalFilePath()) {
            return QStringLiteral("two files have the same name: \"%1\" and \"%2\"")
                .arg(printable(known), printable(file));
        }
        return {};
    }

    void addOption(const char *name, const QString &path)
    {
        m_options += {QStringLiteral("--") + QLatin1String(name), QFileInfo(path).absoluteFilePath()};
    }

    QHash<QString, QString> m_known; ///< name -> file
    QStringList m_files;
    QStringList m_options;
    QString m_vocabulary;
};

/// Returns the options in the one form that the program reads: each followed by its value.
QStringList normalized(const QCommandLineParser &parser, const QStringList &flags, const QStringList &options)
{
    QStringList arguments;
    for (const QString &name : flags) {
        if (parser.isSet(name)) {
            arguments.append(QStringLiteral("--") + name);
        }
    }
    for (const QString &name : options) {
        const QStringList values = parser.values(name);
        for (const QString &value : values) {
            arguments += {QStringLiteral("--") + name, value};
        }
    }
    return arguments;
}

/// Returns the option for the program that selects the vocabulary at @p path, which may be empty. Sets @p problem if it
/// cannot be used.
QStringList vocabularyOption(const QString &path, QString *problem)
{
    return path.isEmpty() || !HostVocabulary::read(path, problem)
               ? QStringList()
               : QStringList{QStringLiteral("--vocabulary"), QFileInfo(path).absoluteFilePath()};
}

/// Returns the vocabulary that @p parser or @p places select, or that of the system. Empty if there is none.
QString vocabularyOf(const QCommandLineParser &parser, const PreviewedPlaces &places)
{
    if (parser.isSet(QStringLiteral("vocabulary"))) {
        return parser.value(QStringLiteral("vocabulary"));
    }
    const QString system = HostVocabulary::systemPath();
    const bool isUsed = !parser.isSet(QStringLiteral("no-system-vocabulary")) && QFileInfo::exists(system);
    return places.vocabularyOr(isUsed ? system : QString());
}

QString problemWith(const QCommandLineParser &parser)
{
    const QString locale = parser.value(QStringLiteral("locale"));
    if (parser.isSet(QStringLiteral("locale")) && !isLocale(locale)) {
        return QStringLiteral("there is no locale \"%1\"").arg(printable(locale));
    }
    const QStringList directories = parser.values(QStringLiteral("translations"));
    for (const QString &directory : directories) {
        if (!QFileInfo(directory).isDir()) {
            return QStringLiteral("there is no directory \"%1\"").arg(printable(directory));
        }
    }
    return {};
}
}

int Commands::preview(const QStringList &arguments)
{
    const QStringList flags{QStringLiteral("phone"), QStringLiteral("wide"), QStringLiteral("smoke-test")};
    const QStringList options{QStringLiteral("locale"), QStringLiteral("translations"),
                              QStringLiteral("mask"),   QStringLiteral("group"),
                              QStringLiteral("page"),   QStringLiteral("screenshot")};
    QCommandLineParser parser;
    for (const QString &name : flags) {
        parser.addOption(QCommandLineOption(name));
    }
    parser.addOption({QStringLiteral("vocabulary"), {}, QStringLiteral("VALUE")});
    parser.addOption(QCommandLineOption(QStringLiteral("no-system-vocabulary")));
    for (const QString &name : options) {
        parser.addOption({name, {}, QStringLiteral("VALUE")});
    }
    const CommandSyntax syntax{"preview", s_previewHelp, {}, 1, CommandSyntax::Unlimited, "FILE or DIR"};
    if (const std::optional<int> exitStatus = parseCommandLine(&parser, syntax, arguments)) {
        return *exitStatus;
    }
    PreviewedPlaces places;
    QString problem = problemWith(parser);
    const QStringList named = parser.positionalArguments();
    for (const QString &argument : named) {
        problem = problem.isEmpty() ? places.add(argument) : problem;
    }
    const QStringList host = problem.isEmpty() ? vocabularyOption(vocabularyOf(parser, places), &problem)
                                               : QStringList();
    if (!problem.isEmpty()) {
        return refuse(syntax, problem);
    }
    const QString program = previewProgram();
    if (program.isEmpty()) {
        std::fputs("velka-settings: the preview is not installed\n", stderr);
        return CannotRun;
    }
    execute(QStringList{program} + normalized(parser, flags, options) + host + places.arguments());
    std::fprintf(stderr, "velka-settings: cannot start %s: %s\n", qUtf8Printable(program), std::strerror(errno));
    return CannotRun;
}
