// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "checker.h"
#include "text.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTest>
#include <QTextCodec>

using namespace Check;

/// The mistakes of mistakes.json, each planted into a package without any: each is found, by one finding, on its line.
class MistakesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void packageIsGood();
    void packageIsGoodForTheHost();
    void thereAreMany();
    void finds_data();
    void finds();

private:
    QString entriesFile(const QString &name) const;
    QString catalog(const QString &name) const;
    void installVocabulary() const;
    std::vector<FileFindings> check() const;
    /// Plants the mistake that @p row describes. Returns the path and the line where it is.
    QPair<QString, int> plant(const QJsonObject &row) const;
    void plantText(const QJsonObject &row, const QString &path, int *line) const;

    std::unique_ptr<QTemporaryDir> m_root;
};

namespace
{
const QString s_source = QStringLiteral(MISTAKES_DIR);
const QString s_catalogs = QStringLiteral(MISTAKES_CATALOGS);

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("Can't read %s", qPrintable(path));
    }
    return file.readAll();
}

void write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        qFatal("Can't write %s", qPrintable(path));
    }
}

QJsonArray mistakes()
{
    return QJsonDocument::fromJson(contentOf(s_source + text("/mistakes.json"))).array();
}

QByteArray encoded(const QString &text, const QString &encoding)
{
    if (encoding.isEmpty()) {
        return text.toUtf8();
    }
    if (encoding == QLatin1String("UTF-8 with a byte order mark")) {
        return "\xef\xbb\xbf" + text.toUtf8();
    }
    return QTextCodec::codecForName(encoding.toLatin1())->fromUnicode(text);
}

/// Returns the number of the first line that differs.
int firstDifference(const QString &before, const QString &after)
{
    const auto difference = std::mismatch(before.cbegin(), before.cend(), after.cbegin(), after.cend());
    return 1 + int(std::count(before.cbegin(), difference.first, QLatin1Char('\n')));
}

QStringList described(const std::vector<FileFindings> &report)
{
    QStringList lines;
    for (const FileFindings &file : report) {
        for (const Finding &finding : file.findings) {
            lines.append(QStringLiteral("%1:%2: %3 [%4]")
                             .arg(file.path)
                             .arg(finding.place.line)
                             .arg(finding.text, QLatin1String(info(finding.tag).name)));
        }
    }
    return lines;
}
}

void MistakesTest::init()
{
    m_root = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir(m_root->path()).mkpath(text("usr/share/translations")));
    QVERIFY(QDir(m_root->path()).mkpath(text("usr/share/velka-settings/entries")));
    QDirIterator files(s_source + text("/package"), QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString name = QDir(s_source + text("/package")).relativeFilePath(files.next());
        QVERIFY(QFile::copy(files.filePath(), m_root->filePath(text("usr/share/velka-settings/") + name)));
    }
    for (const char *name : {"garden-settings-de.qm", "garden-settings-fi.qm", "garden-settings_eng_en.qm"}) {
        QVERIFY(QFile::copy(s_catalogs + QLatin1Char('/') + text(name), catalog(text(name))));
    }
}

void MistakesTest::packageIsGood()
{
    QCOMPARE(described(check()), QStringList());
    QCOMPARE(int(check().size()), 4);
}

void MistakesTest::packageIsGoodForTheHost()
{
    installVocabulary();
    QCOMPARE(described(check()), QStringList());
}

void MistakesTest::thereAreMany()
{
    QVERIFY(mistakes().size() >= 150);
}

void MistakesTest::finds_data()
{
    QTest::addColumn<QJsonObject>("row");
    const QJsonArray rows = mistakes();
    for (const QJsonValue &row : rows) {
        QTest::newRow(qPrintable(row.toObject().value(text("mistake")).toString())) << row.toObject();
    }
}

void MistakesTest::finds()
{
    QFETCH(QJsonObject, row);
    const auto [path, line] = plant(row);
    const QStringList expected{QStringLiteral("%1:%2: %3 [%4]")
                                   .arg(path)
                                   .arg(line)
                                   .arg(row.value(text("message")).toString(), row.value(text("tag")).toString())};
    QCOMPARE(described(check()), expected);
}

QString MistakesTest::entriesFile(const QString &name) const
{
    const QString directory = name == QLatin1String("favorites-blacklist.json") ? QString() : text("entries/");
    return m_root->filePath(text("usr/share/velka-settings/") + directory + name);
}

QString MistakesTest::catalog(const QString &name) const
{
    return m_root->filePath(text("usr/share/translations/") + name);
}

void MistakesTest::installVocabulary() const
{
    QVERIFY(QFile::copy(s_source + text("/vocabulary.json"),
                        m_root->filePath(text("usr/share/velka-settings/vocabulary.json"))));
}

std::vector<FileFindings> MistakesTest::check() const
{
    return Checker(QString(), [](int, int) {}).check(QStringList(m_root->path()));
}

QPair<QString, int> MistakesTest::plant(const QJsonObject &row) const
{
    QString path = entriesFile(row.value(text("file")).toString());
    int line = 1;
    plantText(row, path, &line);
    if (row.contains(text("rename"))) {
        const QString renamed = entriesFile(row.value(text("rename")).toString());
        QFile::rename(path, renamed);
        path = renamed;
    }
    if (row.contains(text("link"))) {
        QFile::remove(path);
        QFile::link(row.value(text("link")).toString(), path);
    }
    if (row.contains(text("mkdir"))) {
        path = entriesFile(row.value(text("mkdir")).toString());
        QDir().mkdir(path);
    }
    if (row.value(text("host")).toBool()) {
        installVocabulary();
    }
    const QString replacement = row.value(text("catalog")).toString();
    if (!replacement.isEmpty()) {
        QFile::remove(catalog(text("garden-settings-fi.qm")));
        QFile::copy(s_catalogs + QLatin1Char('/') + replacement,
                    catalog(row.value(text("catalogName")).toString()));
    }
    return {path, row.value(text("line")).toInt(line)};
}

void MistakesTest::plantText(const QJsonObject &row, const QString &path, int *line) const
{
    const QString before = QString::fromUtf8(contentOf(path));
    QString after = row.value(text("content")).toString(before);
    const QString replaced = row.value(text("replace")).toString();
    if (!replaced.isEmpty()) {
        const int position = after.indexOf(replaced);
        QVERIFY2(position >= 0, qPrintable(replaced));
        after.replace(position, replaced.size(), row.value(text("with")).toString());
        *line = firstDifference(before, after);
    }
    write(path, encoded(after, row.value(text("encoding")).toString()));
}

QTEST_GUILESS_MAIN(MistakesTest)
#include "tst_mistakes.moc"
