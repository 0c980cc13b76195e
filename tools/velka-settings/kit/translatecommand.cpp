// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "catalogmerge.h"
#include "commandline.h"
#include "commands.h"
#include "entriesplace.h"
#include "printable.h"
#include "pseudotext.h"
#include "tsfile.h"
#include "userfile.h"

#include <QFileInfo>

#include <algorithm>
#include <iterator>

#include <cstdio>

namespace
{
const char s_translateHelp[] = R"(Usage: velka-settings translate extract FILE|DIR... -o NAME_eng_en.ts
       velka-settings translate update FILE|DIR... NAME-LANG.ts...
       velka-settings translate check FILE|DIR... NAME-LANG.ts...
       velka-settings translate pseudo NAME_eng_en.ts -o NAME-en_XA.ts

Makes and updates the translations (*.ts) of registration files with Qt's
lupdate. The texts are those of entries that have an id for them. "lrelease
-idbased" compiles the results.

  extract            writes each id with its engineering English and its place
  update             merges new and changed texts into translations, and keeps
                     finished, unfinished and vanished ones
  check              prints for each language what is missing
  pseudo             writes longer texts with accents, for tests of pages with
                     velka-settings preview --locale en_XA
  --mirrored         lets these texts run from right to left (ar_XB)
  -o, --output FILE  the file to write
  -h, --help         prints this; --version prints the version

Exit status: 0; 1 when translations are missing; 2 when a file cannot be read or
written, or when Qt's tools are missing.
)";

const CommandSyntax s_translateSyntax{"translate", s_translateHelp,          {},
                                      2,           CommandSyntax::Unlimited, "an action and FILE"};

/// What the command line names. Functions set the problem, after which nothing else is done.
struct Work {
    QVector<TextFile> files;
    QStringList catalogs;
    QString output;
    bool isMirrored;
    bool isComplete = true; ///< whether all checked translations are
    QString problem;
};

void addPlace(const QString &argument, Work *work)
{
    const std::optional<EntriesPlace> place = EntriesPlace::find(argument, &work->problem);
    for (const QString &path : place ? place->files : QStringList()) {
        const auto texts = identifiedTexts(path, &work->problem);
        if (!texts) {
            return;
        }
        work->files.append({path, *texts});
    }
}

void addArguments(const QStringList &arguments, Work *work)
{
    for (const QString &argument : arguments) {
        if (argument.endsWith(QLatin1String(".ts"))) {
            work->catalogs.append(argument);
        } else if (work->problem.isEmpty()) {
            addPlace(argument, work);
        }
    }
}

/// Returns the content of the catalog at @p path.
QByteArray contentOf(const QString &path, Work *work)
{
    return UserFile::read(path, &work->problem).value_or(QByteArray());
}

/// Returns the messages of @p content of the catalog at @p path.
TsFile::Messages messagesOf(const QString &path, const QByteArray &content, Work *work)
{
    const auto messages = TsFile::messagesOf(content, &work->problem);
    if (!messages) {
        work->problem.prepend(printable(path) + QLatin1Char(':'));
    }
    return messages.value_or(TsFile::Messages());
}

void write(const QString &path, const std::optional<QByteArray> &content, Work *work)
{
    if (content) {
        work->problem = UserFile::write(path, *content);
    }
}

void extract(Work *work)
{
    const NamedCatalog output{work->output, {}, QStringLiteral("en")};
    const std::optional<QByteArray> catalog = mergeTexts(work->files, output, &work->problem);
    if (catalog) {
        const auto source = [](const QString &text) { return text; };
        write(work->output, TsFile::translated(*catalog, QStringLiteral("en"), source, &work->problem), work);
    }
}

/// Returns why the catalog at @p path cannot be updated, if so.
QString problemOfUpdate(const NamedCatalog &catalog)
{
    if (catalog.path.endsWith(QLatin1String("_eng_en.ts"))) {
        return QStringLiteral("\"%1\" is not a translation: \"extract\" writes it").arg(printable(catalog.path));
    }
    if (catalog.content.isEmpty() && catalog.language.isEmpty()) {
        return QStringLiteral("the name \"%1\" has no language: use NAME-LANG.ts").arg(printable(catalog.path));
    }
    return TsFile::isUtf8(catalog.content) ? QString()
                                           : QStringLiteral("\"%1\" is not in UTF-8").arg(printable(catalog.path));
}

void updateCatalog(const QString &path, Work *work)
{
    const QByteArray content = QFileInfo::exists(path) ? contentOf(path, work) : QByteArray();
    const NamedCatalog catalog{path, content, TsFile::languageOf(path)};
    if (work->problem.isEmpty()) {
        work->problem = problemOfUpdate(catalog);
    }
    if (work->problem.isEmpty()) {
        messagesOf(path, content, work); // for its errors
    }
    if (work->problem.isEmpty()) {
        write(path, mergeTexts(work->files, catalog, &work->problem), work);
    }
}

void update(Work *work)
{
    for (const QString &path : std::as_const(work->catalogs)) {
        if (work->problem.isEmpty()) {
            updateCatalog(path, work);
        }
    }
}

void makePseudo(Work *work)
{
    const QString path = work->catalogs.constFirst();
    const QByteArray content = contentOf(path, work);
    if (work->problem.isEmpty()) {
        messagesOf(path, content, work); // for its errors
    }
    if (work->problem.isEmpty()) {
        const auto pseudo = [work](const QString &text) { return pseudoText(text, work->isMirrored); };
        const QString language = work->isMirrored ? QStringLiteral("ar_XB") : QStringLiteral("en_XA");
        write(work->output, TsFile::translated(content, language, pseudo, &work->problem), work);
    }
}

/// Returns why @p text is not translated in @p messages. Empty if it is.
QString problemWith(const IdentifiedText &text, const TsFile::Messages &messages)
{
    const auto message = messages.constFind(text.id);
    if (message == messages.cend()) {
        return QStringLiteral("is missing");
    }
    if (message->source != text.text) {
        return QStringLiteral("translates an older text");
    }
    if (message->isFinished) {
        return {};
    }
    return text.text.isEmpty() ? QStringLiteral("has no engineering English")
                               : QStringLiteral("is not translated");
}

/// Returns a line for each text of @p files that is not translated in @p messages.
QStringList untranslated(const QVector<TextFile> &files, const TsFile::Messages &messages)
{
    QStringList lines;
    for (const TextFile &file : files) {
        for (const IdentifiedText &text : file.texts) {
            const QString problem = problemWith(text, messages);
            if (!problem.isEmpty()) {
                lines.append(
                    QStringLiteral("  %1:%2: \"%3\" %4\n")
                        .arg(printable(file.path), QString::number(text.line), printable(text.id), problem));
            }
        }
    }
    return lines;
}

/// Prints what the catalog at @p path lacks.
void checkCatalog(const QString &path, Work *work)
{
    const QByteArray content = contentOf(path, work);
    const TsFile::Messages messages = work->problem.isEmpty() ? messagesOf(path, content, work)
                                                              : TsFile::Messages();
    if (!work->problem.isEmpty()) {
        return;
    }
    int all = 0;
    for (const TextFile &file : std::as_const(work->files)) {
        all += file.texts.size();
    }
    const QStringList lines = untranslated(work->files, messages);
    work->isComplete = work->isComplete && lines.isEmpty();
    const QString language = TsFile::languageOf(path);
    std::printf("%s: %d of %d texts are translated into %s\n%s", qUtf8Printable(printable(path)),
                all - lines.size(), all, language.isEmpty() ? "its language" : qUtf8Printable(language),
                qUtf8Printable(lines.join(QString())));
}

void check(Work *work)
{
    for (const QString &path : std::as_const(work->catalogs)) {
        if (!work->problem.isEmpty()) {
            return;
        }
        checkCatalog(path, work);
    }
}

struct Action {
    const char *name;
    void (*run)(Work *work);
    bool readsFiles;
    bool readsCatalogs;
    bool writesOutput;
};

const Action s_actions[] = {
    {"extract", extract, true, false, true},
    {"update", update, true, true, false},
    {"check", check, true, true, false},
    {"pseudo", makePseudo, false, true, true},
};

/// Returns what the command line lacks for @p action.
QString missingFor(const Action &action, const Work &work)
{
    if (action.readsFiles && work.files.isEmpty()) {
        return QStringLiteral("a registration file is needed");
    }
    if (action.readsCatalogs && work.catalogs.isEmpty()) {
        return QStringLiteral("a catalog (*.ts) is needed");
    }
    return action.writesOutput && work.output.isEmpty() ? QStringLiteral("-o is needed: the file to write")
                                                        : QString();
}

void run(const QString &name, Work *work)
{
    const auto *const action = std::find_if(
        std::begin(s_actions), std::end(s_actions),
        [&](const Action &candidate) { return name == QLatin1String(candidate.name); });
    if (action == std::end(s_actions)) {
        work->problem = QStringLiteral("there is no action \"%1\"").arg(name);
    }
    if (work->problem.isEmpty()) {
        work->problem = missingFor(*action, *work);
    }
    if (work->problem.isEmpty()) {
        work->problem = unifyTexts(&work->files);
    }
    if (work->problem.isEmpty()) {
        action->run(work);
    }
}
}

int Commands::translate(const QStringList &arguments)
{
    const QCommandLineOption output({QStringLiteral("o"), QStringLiteral("output")}, {}, QStringLiteral("FILE"));
    const QCommandLineOption mirrored(QStringLiteral("mirrored"));
    QCommandLineParser parser;
    parser.addOptions({output, mirrored});
    if (const std::optional<int> exitStatus = parseCommandLine(&parser, s_translateSyntax, arguments)) {
        return *exitStatus;
    }
    QStringList named = parser.positionalArguments();
    const QString action = named.takeFirst();
    Work work{{}, {}, parser.value(output), parser.isSet(mirrored), true, {}};
    addArguments(named, &work);
    run(action, &work);
    if (!work.problem.isEmpty()) {
        return refuse(s_translateSyntax, work.problem);
    }
    return work.isComplete ? Success : Findings;
}
