// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "codeblock.h"
#include "messagelog.h"

#include <favoritesblacklist.h>
#include <pluginregistry.h>
#include <treeitem.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLoggingCategory>
#include <QProcess>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <unistd.h>

#include <algorithm>
#include <memory>
#include <utility>

/**
 * Runs every code block of the documentation:
 *
 *   json NAME [refused]  is a registration file with that name. The registry logs the text of the console block after
 *                        it, and has its entries, or none of them if it is refused.
 *   json favorites-blacklist.json  is the favourites blacklist.
 *   qml [NAME]           is a document that can be created with the entries of all json blocks. It prints its
 *                        console block and no warning. In its output its own path is page.qml. Modules are imported
 *                        from the working directory, too.
 *   qml /PATH            is the page of an entry, which qml blocks show. It is written to that path.
 *   LANGUAGE NAME file   is a file in the working directory of the sh blocks after it; so are cpp and cmake blocks.
 *   sh                   is run in the working directory that all sh blocks of the document share. Its output ends with
 *                        its console block. Commands of the project itself are not run (scripts/test would run this
 *                        test again): their names, options and presets are checked.
 *   text                 is a list of messages of the library.
 *   mermaid              names functions and classes of the sources.
 */
class DocsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void codeBlocks_data();
    void codeBlocks();
    void everyMessageIsDocumented();
    void everyLinkLeadsSomewhere_data();
    void everyLinkLeadsSomewhere();

private:
    void checkJson(const CodeBlock &block);
    void checkBlacklist(const CodeBlock &block);
    void checkQml(const CodeBlock &block);
    void checkFile(const CodeBlock &block);
    void checkShell(const CodeBlock &block);
    void checkOwnCommand(const QString &command);
    void checkMessages(const CodeBlock &block);
    void checkPicture(const CodeBlock &block);

    const QTemporaryDir &workingDirectory(const QString &document);

    QStringList m_documents;
    QVector<CodeBlock> m_blocks;
    std::unique_ptr<QTemporaryDir> m_workingDirectory;
    QString m_documentOfDirectory;
};

namespace
{
const QDir s_project(QStringLiteral(PROJECT_DIR));
const QString s_entries = QStringLiteral("/usr/share/velka-settings/entries/");
const QString s_blacklist = QStringLiteral("/usr/share/velka-settings/favorites-blacklist.json");

QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeFile(const QString &path, const QString &text)
{
    QFile file(path);
    QVERIFY2(file.open(QIODevice::WriteOnly), qPrintable(path));
    file.write(text.toUtf8());
}

bool isBlacklist(const CodeBlock &block)
{
    return block.name == QFileInfo(s_blacklist).fileName();
}

/// Returns true if @p block is the file of a page.
bool isPage(const CodeBlock &block)
{
    return block.language == QLatin1String("qml") && block.name.startsWith(QLatin1Char('/'));
}

/// Returns true if @p block is a file that sh blocks use.
bool isFile(const CodeBlock &block)
{
    return block.language == QLatin1String("cpp") || block.language == QLatin1String("cmake")
           || block.flags.contains(QStringLiteral("file"));
}

/// Returns the texts of the messages since the last call, without levels and categories.
QStringList takeTexts()
{
    QStringList texts = MessageLog::take();
    for (QString &text : texts) {
        text = text.section(QLatin1String(": "), 1);
    }
    return texts;
}

/// Returns the texts that @p pattern captures in @p text.
QStringList captures(const QString &pattern, const QString &text)
{
    QStringList found;
    auto matches = QRegularExpression(pattern).globalMatch(text);
    while (matches.hasNext()) {
        found.append(matches.next().captured(1));
    }
    return found;
}

QStringList libraryMessages()
{
    const QString header = QString::fromUtf8(
        readFile(s_project.filePath(QStringLiteral("src/common/messages.h"))));
    QStringList messages = captures(QStringLiteral("= \"(.*)\";"), header);
    messages.replaceInStrings(QStringLiteral("\\\""), QStringLiteral("\""));
    return messages;
}

struct Finished {
    int exitCode;
    QString output;
};

Finished run(const QString &program, const QStringList &arguments, const QString &directory)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.setWorkingDirectory(directory);
    process.start(program, arguments);
    if (!process.waitForFinished(120000) || process.exitStatus() != QProcess::NormalExit) {
        return {-1, process.errorString()};
    }
    return {process.exitCode(), QString::fromUtf8(process.readAll())};
}
}

void DocsTest::initTestCase()
{
    if (!qEnvironmentVariableIsSet("VELKA_SANDBOX")) {
        qFatal("This test writes into system directories: run it through tests/docs/run");
    }
    QLoggingCategory::setFilterRules(
        QStringLiteral("org.orvantaos.settings.framework.debug=true\nqml.debug=true"));
    m_documents = QStringList{QStringLiteral("README.md"), QStringLiteral("CONTRIBUTING.md")};
    const QStringList docs = QDir(s_project.filePath(QStringLiteral("docs"))).entryList({QStringLiteral("*.md")});
    for (const QString &name : docs) {
        m_documents.append(QStringLiteral("docs/") + name);
    }
    for (const QString &document : std::as_const(m_documents)) {
        if (document != QLatin1String("docs/tutorial.md")) { // tests/docs/tutorial runs it
            m_blocks += readCodeBlocks(s_project.filePath(document));
        }
    }

    writeFile(s_blacklist, QStringLiteral("[]"));
    for (const CodeBlock &block : std::as_const(m_blocks)) {
        if (block.language == QLatin1String("json") && !isBlacklist(block) && !isFile(block)) {
            QVERIFY2(!QFile::exists(s_entries + block.name), qPrintable(block.name));
            writeFile(s_entries + block.name, block.text);
        } else if (isPage(block)) {
            QVERIFY(QDir().mkpath(QFileInfo(block.name).path()));
            writeFile(block.name, block.text);
        }
    }
    const MessageLog log; // the messages of each file are checked below
    PluginRegistry::instance();
}

void DocsTest::codeBlocks_data()
{
    QTest::addColumn<CodeBlock>("block");
    for (const CodeBlock &block : std::as_const(m_blocks)) {
        const QString place = s_project.relativeFilePath(block.document);
        QTest::addRow("%s:%d %s", qPrintable(place), block.line, qPrintable(block.language)) << block;
    }
}

void DocsTest::codeBlocks()
{
    static const QHash<QString, void (DocsTest::*)(const CodeBlock &)> checks{
        {QStringLiteral("json"), &DocsTest::checkJson},
        {QStringLiteral("qml"), &DocsTest::checkQml},
        {QStringLiteral("sh"), &DocsTest::checkShell},
        {QStringLiteral("text"), &DocsTest::checkMessages},
        {QStringLiteral("mermaid"), &DocsTest::checkPicture}};
    QFETCH(CodeBlock, block);
    const auto check = isFile(block) ? &DocsTest::checkFile : checks.value(block.language);
    QVERIFY2(check, "No way to check a block of this language");
    (this->*check)(block);
}

void DocsTest::checkJson(const CodeBlock &block)
{
    if (isBlacklist(block)) {
        checkBlacklist(block);
        return;
    }
    QVERIFY2(block.name.endsWith(QLatin1String(".json")), "The block needs a file name");
    PluginRegistry *registry = PluginRegistry::instance();
    const MessageLog log;
    registry->removeEntriesForFile(block.name);
    registry->addEntriesForFile(block.name);
    QStringList expected = block.output;
    expected.replaceInStrings(QStringLiteral("UID"), QString::number(geteuid()));
    QCOMPARE(takeTexts(), expected);

    const bool refused = block.flags.contains(QStringLiteral("refused"));
    const QJsonObject file = QJsonDocument::fromJson(block.text.toUtf8()).object();
    const QJsonArray entries = file.value(QStringLiteral("entries")).toArray();
    for (const QJsonValue &entry : entries) {
        const QJsonValue path = entry[QStringLiteral("path")];
        if (path.isUndefined()) {
            continue; // the output has shown it
        }
        const TreeItem *item = registry->getItem(path.toString().split(QLatin1Char('/'), Qt::SkipEmptyParts));
        QVERIFY2((item && item->fromFile() == block.name) != refused, qPrintable(path.toString()));
    }
}

void DocsTest::checkBlacklist(const CodeBlock &block)
{
    writeFile(s_blacklist, block.text);
    QSet<QString> strings;
    const QJsonArray paths = QJsonDocument::fromJson(block.text.toUtf8()).array();
    for (const QJsonValue &path : paths) {
        QVERIFY(path.isString());
        strings.insert(path.toString());
    }
    const MessageLog log;
    QCOMPARE(readFavoritesBlacklist(), strings);
    QCOMPARE(takeTexts(), block.output);
}

void DocsTest::checkQml(const CodeBlock &block)
{
    const MessageLog log;
    QQmlEngine engine;
    engine.addImportPath(workingDirectory(block.document).path());
    QQmlComponent component(&engine);
    const QString page = QStringLiteral("page.qml");
    const QUrl place = QUrl::fromLocalFile(QFileInfo(block.document).dir().filePath(page));
    component.setData(block.text.toUtf8(), place);
    if (isPage(block)) {
        QVERIFY2(component.isReady(), qPrintable(component.errorString()));
        return;
    }
    std::unique_ptr<QObject> object(component.create());
    QVERIFY2(object, qPrintable(component.errorString()));
    const QString expected = block.output.join(QLatin1Char('\n'));
    QStringList printed;
    const auto collect = [&] {
        printed += takeTexts().replaceInStrings(place.toString(), page);
        return printed.join(QLatin1Char('\n'));
    };
    QTRY_COMPARE(collect(), expected);
    object.reset();
    QCOMPARE(collect(), expected);
}

void DocsTest::checkFile(const CodeBlock &block)
{
    QVERIFY2(!block.name.isEmpty(), "The block needs a file name");
    const auto usesIt = [&block](const CodeBlock &other) {
        return other.document == block.document && other.line > block.line && other.language == QLatin1String("sh")
               && !other.output.isEmpty();
    };
    QVERIFY2(std::any_of(m_blocks.cbegin(), m_blocks.cend(), usesIt), "No sh block uses the file");
    const QString path = workingDirectory(block.document).filePath(block.name);
    QVERIFY(QDir().mkpath(QFileInfo(path).path()));
    writeFile(path, block.text);
}

void DocsTest::checkShell(const CodeBlock &block)
{
    static const QRegularExpression own(QStringLiteral("^scripts/|--preset "));
    const QStringList commands = block.text.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    const QStringList ownCommands = commands.filter(own);
    if (!ownCommands.isEmpty()) {
        QCOMPARE(ownCommands, commands); // not mixed with others
        for (const QString &command : ownCommands) {
            checkOwnCommand(command.section(QStringLiteral(" #"), 0, 0));
        }
        return;
    }
    const Finished shell = run(
        QStringLiteral("bash"),
        {QStringLiteral("-euo"), QStringLiteral("pipefail"), QStringLiteral("-c"), block.text},
        workingDirectory(block.document).path());
    QVERIFY2(shell.exitCode == 0, qPrintable(shell.output));
    const QStringList printed = shell.output.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QStringList expected = block.output;
    expected.removeAll(QString());
    const QStringList end = printed.mid(printed.size() - expected.size());
    QVERIFY2(end == expected, qPrintable(shell.output));
}

/// Returns the working directory of a document, which is deleted when that of the next document is created.
const QTemporaryDir &DocsTest::workingDirectory(const QString &document)
{
    if (m_documentOfDirectory != document) {
        m_documentOfDirectory = document;
        m_workingDirectory = std::make_unique<QTemporaryDir>();
    }
    return *m_workingDirectory;
}

void DocsTest::checkOwnCommand(const QString &command)
{
    const QString presets = QString::fromUtf8(readFile(s_project.filePath(QStringLiteral("CMakePresets.json"))));
    const QStringList named = captures(QStringLiteral("--preset (\\S+)"), command);
    for (const QString &preset : named) {
        QVERIFY2(presets.contains(QStringLiteral("{\"name\": \"%1\", ").arg(preset)), qPrintable(preset));
    }
    const QString program = command.section(QLatin1Char(' '), 0, 0);
    if (!program.startsWith(QLatin1String("scripts/"))) {
        return;
    }
    QVERIFY2(QFileInfo(s_project.filePath(program)).isExecutable(), qPrintable(program));
    const QStringList options = captures(QStringLiteral(" (--[a-z-]+)"), command);
    if (options.isEmpty()) {
        return;
    }
    const Finished help = run(s_project.filePath(program), {QStringLiteral("--help")}, s_project.path());
    QCOMPARE(help.exitCode, 0);
    for (const QString &option : options) {
        QVERIFY2(help.output.contains(option), qPrintable(option));
    }
}

void DocsTest::checkMessages(const CodeBlock &block)
{
    const QStringList known = libraryMessages();
    const QStringList lines = block.text.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        const QString text = line.section(QStringLiteral(" \""), 0, -2);
        QVERIFY2(known.contains(text.isEmpty() ? line : text), qPrintable(line));
    }
}

void DocsTest::checkPicture(const CodeBlock &block)
{
    QString sources;
    const QStringList folders{QStringLiteral("plugin"),       QStringLiteral("registry"),
                              QStringLiteral("models"),       QStringLiteral("actions"),
                              QStringLiteral("applications"), QStringLiteral("toolkit")};
    for (const QString &folder : folders) {
        const QDir directory(s_project.filePath(QStringLiteral("src/") + folder));
        const QStringList names = directory.entryList({QStringLiteral("*.cpp"), QStringLiteral("*.h")});
        for (const QString &name : names) {
            sources += QString::fromUtf8(readFile(directory.filePath(name)));
        }
    }
    const QStringList words = captures(QStringLiteral("\\b([A-Z]\\w*[a-z][A-Z]\\w*|\\w+(?=\\(\\)))"), block.text);
    QVERIFY(!words.isEmpty());
    for (const QString &word : words) {
        QVERIFY2(sources.contains(word), qPrintable(word));
    }
}

void DocsTest::everyMessageIsDocumented()
{
    QString text;
    for (const QString &document : std::as_const(m_documents)) {
        text += QString::fromUtf8(readFile(s_project.filePath(document)));
    }
    const QStringList messages = libraryMessages();
    QVERIFY(!messages.isEmpty());
    for (const QString &message : messages) {
        QVERIFY2(text.contains(message), qPrintable(message));
    }
}

void DocsTest::everyLinkLeadsSomewhere_data()
{
    QTest::addColumn<QString>("document");
    for (const QString &document : std::as_const(m_documents)) {
        QTest::newRow(qPrintable(document)) << document;
    }
}

void DocsTest::everyLinkLeadsSomewhere()
{
    QFETCH(QString, document);
    const QFileInfo file(s_project.filePath(document));
    const QStringList links = captures(QStringLiteral("\\]\\(([^)#:]+)"),
                                       QString::fromUtf8(readFile(file.filePath())));
    for (const QString &link : links) {
        QVERIFY2(file.dir().exists(link), qPrintable(link));
    }
}

QTEST_MAIN(DocsTest)
#include "tst_docs.moc"
