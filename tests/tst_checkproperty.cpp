// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "actions/quickactionreader.h"
#include "checker.h"
#include "common/constants.h"
#include "common/messages.h"
#include "document.h"
#include "messagelog.h"
#include "registry/favoritesblacklist.h"
#include "registry/jsonvariant.h"
#include "registry/pluginregistry.h"
#include "registry/registrationfile.h"
#include "registry/textfile.h"
#include "registry/treeitem.h"
#include "testsize.h"
#include "tools/check/randomfiles.h"
#include "world.h"

#include <orvantaaccesscontrol.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLoggingCategory>
#include <QTest>

#include <grp.h>
#include <unistd.h>

using namespace Check;

/**
 * The checker and the library agree: for a file without warnings and errors the library logs nothing and loses no
 * entry, and each error is something that the library refuses, loses or misreads.
 *
 * VELKA_CHECK_FILES and VELKA_CHECK_SEED select the number of random files and their seed.
 */
class CheckPropertyTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void checkerAndLibraryAgree();

private:
    void tryDirectory(RandomFiles *files, int count);
    void judge(const FileFindings &file, const QStringList &log, const PluginRegistry &registry);
    void judgeClean(const Document &document, const QStringList &log, const PluginRegistry &registry);
    void judgeBlacklist(const FileFindings &file);

    int m_clean = 0;
    int m_errors = 0;
    QMap<QString, int> m_errorsByTag;
    qint64 m_checking = 0;
};

namespace
{
const QString s_directory = QStringLiteral("/usr/share/velka-settings");

int setting(const char *name, int usual)
{
    return qEnvironmentVariableIsSet(name) ? qEnvironmentVariableIntValue(name) : usual;
}

QString ownGroup()
{
    const group *own = getgrgid(getegid());
    return own ? QString::fromLocal8Bit(own->gr_name) : QStringLiteral("no-such-group");
}

bool hasGroup(const QJsonValue &name)
{
    return orvanta_access_control_hasgroup(geteuid(), name.toString().toLocal8Bit().constData());
}

bool isForUser(const Document &document)
{
    const QJsonObject read = document.read.toObject();
    const QJsonValue required = read.value(QLatin1String("required_group"));
    const QJsonValue disabled = read.value(QLatin1String("disabled_group"));
    return (required.toString().isEmpty() || hasGroup(required)) && !hasGroup(disabled);
}

/// Returns the warnings in @p log about the file @p name.
QStringList about(const QStringList &log, const QString &name)
{
    return log.filter(QLatin1Char('"') + name + QLatin1Char('"')).filter(QStringLiteral("warning "));
}

int pathsMissing(const QStringList &messages)
{
    return messages.filter(QLatin1String(Messages::PathMissing)).size();
}

TreeItem *nodeOf(const PluginRegistry &registry, const QJsonObject &entry)
{
    return registry.getItem(splitPath(pathOfEntry(entry).value_or(QString())));
}

bool isInTree(const PluginRegistry &registry, const QJsonObject &entry, const QString &fileName)
{
    const TreeItem *node = nodeOf(registry, entry);
    QVariantMap data = jsonToVariantMap(entry);
    data.insert(QStringLiteral("from_file"), fileName);
    return node && node->data() == data;
}

/// Returns true when the call of @p entry, an action, fails whatever services there are.
bool isBadCall(const Entry &entry)
{
    const MessageLog log;
    QuickActionReader reader(nullptr);
    const QVariantMap action = jsonToVariant(entry.read.value(QLatin1String("params"))).toMap();
    reader.trigger(action);
    // The library refuses some calls at once, Qt others.
    QStringList messages = MessageLog::take();
    if (!messages.filter(QStringLiteral("Failed to initialize dbus call")).isEmpty()
        || !messages.filter(QStringLiteral("could not send message")).isEmpty()) {
        return true;
    }
    // Without a service the bus itself is called, and answers.
    return action.value(QStringLiteral("remote-service")).toString().isEmpty() && QTest::qWaitFor([&messages] {
               messages += MessageLog::take();
               return !messages.filter(QStringLiteral("Failed to send dbus call to: service= ")).isEmpty();
           });
}

/// Returns the value in @p from that is written at @p offset, null when there is none.
const Written *valueAt(const Written &from, int offset)
{
    if (from.start == offset) {
        return &from;
    }
    for (const Written &child : from.children) {
        if (child.start <= offset && offset < child.end) {
            return valueAt(child, offset);
        }
    }
    return nullptr;
}

const Entry *entryAt(const Document &document, int offset)
{
    for (const Entry &entry : document.entries) {
        if (entry.written->start <= offset && offset < entry.written->end) {
            return &entry;
        }
    }
    return nullptr;
}

QByteArray literalAt(const Document &document, int offset)
{
    const Written *value = valueAt(document.root, offset);
    return value ? document.text.mid(offset, value->end - offset) : QByteArray();
}

int countMembers(const QJsonValue &value)
{
    int count = 0;
    const QJsonObject object = value.toObject();
    for (const QJsonValue &member : object) {
        count += 1 + countMembers(member);
    }
    const QJsonArray array = value.toArray();
    for (const QJsonValue &element : array) {
        count += countMembers(element);
    }
    return count;
}

/// Returns the number of members in @p text: that of the colons outside of strings.
int countWrittenMembers(const QByteArray &text)
{
    int count = 0;
    bool isString = false;
    for (int i = 0; i < text.size(); ++i) {
        if (isString && text.at(i) == '\\') {
            ++i;
        } else if (text.at(i) == '"') {
            isString = !isString;
        } else if (text.at(i) == ':' && !isString) {
            ++count;
        }
    }
    return count;
}

bool orderIsLost(const Entry &entry, const QByteArray &literal)
{
    bool isNumber = false;
    const double written = literal.toDouble(&isNumber);
    const TreeItem item({}, jsonToVariantMap(entry.read));
    return !isNumber || qAbs(item.order() - written) >= 1;
}

QString keyAt(const Written &object, int offset)
{
    const Written *value = valueAt(object, offset);
    return value ? value->key : QString();
}

/// Returns whether the library loses the value at @p offset, in @p entry or at the top level.
bool valueIsLost(const Document &document, const Entry *entry, int offset)
{
    if (!entry) {
        const QString key = keyAt(document.root, offset);
        const QJsonValue value = document.read.toObject().value(key);
        return key == QLatin1String("entries") ? value.toArray().isEmpty() : value.toString().isEmpty();
    }
    const QString key = keyAt(*entry->written, offset);
    const Written *direct = entry->written->member(QLatin1String(key.toLatin1()));
    if (key == QLatin1String("params") && direct && direct->start == offset) {
        return jsonToVariant(entry->read.value(key)).toMap().isEmpty();
    }
    const bool isParam = !direct || direct->start != offset;
    return jsonToVariant((isParam ? entry->params : entry->read).value(key)).toString().isEmpty();
}

QString keyAtTop(const Document &document, int offset)
{
    for (const Written &member : document.root.children) {
        if (member.keyStart == offset) {
            return member.key;
        }
    }
    return {};
}

/// Returns whether the library reads another value than the one at @p offset in @p entry.
bool valueIsMisread(const Document &document, const Entry &entry, int offset)
{
    const QByteArray literal = literalAt(document, offset);
    const QString key = keyAt(*entry.written, offset);
    if (key == QLatin1String("order")) {
        const int order = TreeItem({}, jsonToVariantMap(entry.read)).order();
        return QByteArray::number(order) != literal;
    }
    const QVariantMap params = jsonToVariant(entry.read.value(QLatin1String("params"))).toMap();
    const Written *written = valueAt(document.root, offset);
    return written && params.value(written->key).toBool() != (literal == "true");
}

bool argumentsAreLost(const Entry &entry)
{
    const QVariantMap params = jsonToVariant(entry.read.value(QLatin1String("params"))).toMap();
    const QVariant arguments = params.value(QStringLiteral("remote-arguments"));
    return arguments.userType() != QMetaType::QVariantList || arguments.toList().isEmpty();
}

/// Returns whether @p error describes what the library does with the parsed @p document.
bool isTrueOf(const Document &document, const Finding &error, const PluginRegistry &registry)
{
    const QString fileName = QFileInfo(document.path).fileName();
    const Entry *entry = entryAt(document, error.offset);
    switch (error.tag) {
    case Tag::DoubledKey:
        return countMembers(document.read) < countWrittenMembers(document.text);
    case Tag::DuplicatePath:
        return !isInTree(registry, entry->read, fileName);
    case Tag::PathEmpty:
        return nodeOf(registry, entry->read) == registry.getItem({});
    case Tag::OrderLost:
        return orderIsLost(*entry, literalAt(document, error.offset));
    case Tag::NumberPrecision: {
        const QByteArray literal = literalAt(document, error.offset);
        return !literal.isEmpty() && QByteArray::number(literal.toDouble(), 'f', 0) != literal;
    }
    case Tag::ValueLost:
        return valueIsLost(document, entry, error.offset);
    case Tag::ValueMisread:
        return valueIsMisread(document, *entry, error.offset);
    case Tag::EntryAtTopLevel:
        return !entry && !keyAtTop(document, error.offset).isEmpty();
    case Tag::ArgumentsLost:
        return argumentsAreLost(*entry);
    case Tag::ActionIncomplete:
    case Tag::ArgumentNull:
    case Tag::ArgumentsRefused:
    case Tag::DBusInterface:
    case Tag::DBusMethod:
    case Tag::DBusPath:
    case Tag::DBusService:
        return isBadCall(*entry);
    case Tag::EntryNotObject:
    case Tag::PathMissing:
        return true; // counted with the others of the file
    default:
        return false;
    }
}

bool declaresNothing(const PluginRegistry &registry, const QString &fileName)
{
    const QList<TreeItem *> items = registry.getItem({})->getSubitems(TreeItem::orderLessThan, -1);
    return std::none_of(items.cbegin(), items.cend(),
                        [&fileName](const TreeItem *item) { return item->fromFile() == fileName; });
}

bool isPathMissing(const Finding &finding)
{
    return finding.tag == Tag::EntryNotObject || finding.tag == Tag::PathMissing;
}

QByteArray describe(const FileFindings &file, const Finding &finding)
{
    return QStringLiteral("%1:%2:%3: %4 [%5]\n")
               .arg(file.path)
               .arg(finding.place.line)
               .arg(finding.place.column)
               .arg(finding.text, QLatin1String(info(finding.tag).name))
               .toUtf8()
           + readTextFile(file.path).value_or(QByteArray());
}
}

void CheckPropertyTest::checkerAndLibraryAgree()
{
    constexpr int FilesOfDirectory = 50;
    const int total = setting("VELKA_CHECK_FILES", testSize(100000));
    QLoggingCategory::setFilterRules(QStringLiteral("org.orvantaos.settings.framework.debug=true\n"
                                                    "org.orvantaos.settings.framework.info=false"));
    RandomFiles files(quint32(setting("VELKA_CHECK_SEED", 1)), ownGroup());
    QElapsedTimer timer;
    timer.start();
    for (int done = 0; done < total; done += FilesOfDirectory) {
        tryDirectory(&files, FilesOfDirectory);
        if (QTest::currentTestFailed()) {
            return;
        }
    }
    qInfo("%d files in %lld ms, %lld ms of it checking; %d without findings, %d errors", total, timer.elapsed(),
          m_checking / 1000000, m_clean, m_errors);
    for (auto it = m_errorsByTag.cbegin(); it != m_errorsByTag.cend(); ++it) {
        qInfo("%6d %s", it.value(), qPrintable(it.key()));
    }
    QVERIFY(m_clean > total / 10);
    QVERIFY(m_errors > total / 10);
}

void CheckPropertyTest::tryDirectory(RandomFiles *files, int count)
{
    World::reset();
    for (int i = 0; i < count; ++i) {
        const RandomFiles::File file = files->next();
        World::writeEntries(file.name, file.content);
    }
    World::writeBlacklist(files->blacklist());
    const MessageLog log;
    const PluginRegistry registry;
    const QStringList messages = MessageLog::take();
    QElapsedTimer timer;
    timer.start();
    const std::vector<FileFindings> results = Checker(Constants::TranslationsDirectory, [](int, int) {
                                              }).check({s_directory});
    m_checking += timer.nsecsElapsed();
    QCOMPARE(int(results.size()), count + 1);
    for (const FileFindings &file : results) {
        if (file.path == Constants::FavoritesBlacklistFile) {
            judgeBlacklist(file);
        } else {
            judge(file, messages, registry);
        }
        if (QTest::currentTestFailed()) {
            return;
        }
    }
}

void CheckPropertyTest::judge(const FileFindings &file, const QStringList &log, const PluginRegistry &registry)
{
    const QString name = QFileInfo(file.path).fileName();
    const QStringList messages = about(log, name);
    Document document;
    document.path = file.path;
    document.text = readTextFile(file.path).value_or(QByteArray());
    Findings ignored(document.text);
    const bool isParsed = parse(&document, &ignored);
    const bool isClean = std::none_of(file.findings.cbegin(), file.findings.cend(), [](const Finding &finding) {
        return info(finding.tag).severity >= Severity::Warning;
    });
    if (isClean) {
        QVERIFY(isParsed);
        judgeClean(document, messages, registry);
        return;
    }
    const int missing = int(std::count_if(file.findings.cbegin(), file.findings.cend(), isPathMissing));
    const bool isLoaded = std::none_of(file.findings.cbegin(), file.findings.cend(), [](const Finding &finding) {
        return finding.tag == Tag::NameNeverLoaded || finding.tag == Tag::NameAside;
    });
    if (isParsed && isLoaded && document.root.kind == Written::Object && isForUser(document)) {
        QCOMPARE(pathsMissing(messages), missing);
    }
    for (const Finding &finding : file.findings) {
        if (info(finding.tag).severity != Severity::Error) {
            continue;
        }
        ++m_errors;
        ++m_errorsByTag[QLatin1String(info(finding.tag).name)];
        bool isTrue = false;
        switch (finding.tag) {
        case Tag::EmptyFile:
        case Tag::JsonSyntax:
        case Tag::Nesting:
        case Tag::NotUtf8:
        case Tag::TopLevel:
            isTrue = !isLoaded || !messages.isEmpty();
            break;
        case Tag::GroupsContradict:
        case Tag::NameNeverLoaded:
            isTrue = declaresNothing(registry, name);
            break;
        default:
            isTrue = isParsed && isTrueOf(document, finding, registry);
        }
        QVERIFY2(isTrue, describe(file, finding).constData());
    }
}

void CheckPropertyTest::judgeClean(const Document &document, const QStringList &messages,
                                   const PluginRegistry &registry)
{
    ++m_clean;
    QCOMPARE(messages, QStringList());
    if (!isForUser(document)) {
        return;
    }
    for (const Entry &entry : document.entries) {
        QVERIFY2(isInTree(registry, entry.read, QFileInfo(document.path).fileName()), document.text.constData());
        if (entry.read.value(QLatin1String("type")) == QLatin1String("action")) {
            QVERIFY2(!isBadCall(entry), document.text.constData());
        }
    }
}

void CheckPropertyTest::judgeBlacklist(const FileFindings &file)
{
    const MessageLog log;
    const QSet<QString> read = readFavoritesBlacklist();
    const bool isLogged = !MessageLog::take().isEmpty();
    const QByteArray text = readTextFile(file.path).value_or(QByteArray());
    const QJsonArray elements = QJsonDocument::fromJson(text).array();
    int skipped = 0;
    bool hasErrors = false;
    for (const Finding &finding : file.findings) {
        hasErrors = hasErrors || info(finding.tag).severity == Severity::Error;
        skipped += finding.tag == Tag::BlacklistElement ? 1 : 0;
    }
    int strings = 0;
    for (const QJsonValue &element : elements) {
        strings += element.isString() ? 1 : 0;
    }
    if (file.findings.isEmpty()) {
        QVERIFY2(!isLogged, text.constData());
        QCOMPARE(strings, elements.size());
    }
    if (hasErrors) {
        QVERIFY2(isLogged || skipped == elements.size() - strings, text.constData());
        QVERIFY2(isLogged || read.size() <= strings, text.constData());
    }
}

QTEST_GUILESS_MAIN(CheckPropertyTest)
#include "tst_checkproperty.moc"
