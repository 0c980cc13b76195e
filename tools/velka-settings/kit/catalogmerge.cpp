// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "catalogmerge.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QProcess>
#include <QStandardPaths>

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

QByteArray sourceOf(const QVector<IdentifiedText> &texts)
{
    QByteArray source;
    int line = 1;
    for (const IdentifiedText &text : texts) {
        source += QByteArray(qMax(0, text.line - line), '\n');
        line = qMax(line, text.line);
        source += "/*% " + literal(text.text) + " */ qtTrId(" + literal(text.id) + "); ";
    }
    return source + '\n';
}

bool write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    return QDir().mkpath(QFileInfo(path).path()) && file.open(QIODevice::WriteOnly)
           && file.write(content) == content.size();
}

/// Returns the comments before the document type, which lupdate drops.
QByteArray commentsOf(const QByteArray &catalog)
{
    const int begin = catalog.indexOf("<!--");
    const int end = catalog.indexOf("<!DOCTYPE");
    return begin >= 0 && begin < end ? catalog.mid(begin, end - begin) : QByteArray();
}
}

void CatalogMerge::add(const QString &path, const QVector<IdentifiedText> &texts)
{
    const QString source = mirrored(path);
    if (write(source, sourceOf(texts))) {
        m_sources.append(source);
    }
}

std::optional<QByteArray> CatalogMerge::merged(const QString &path, const QByteArray &content,
                                               const QString &language, QString *problem) const
{
    const QString program = lupdate();
    if (program.isEmpty()) {
        *problem = QStringLiteral("lupdate is missing: install Qt's linguist tools, such as qttools5-dev-tools");
        return {};
    }
    const QString catalog = mirrored(path);
    QFile::remove(catalog);
    if (!content.isEmpty() && !write(catalog, content)) {
        *problem = QStringLiteral("cannot write \"%1\"").arg(catalog);
        return {};
    }
    QDir().mkpath(QFileInfo(catalog).path());
    const QString errors = run(program, catalog, language);
    QFile file(catalog);
    if (!file.open(QIODevice::ReadOnly)) {
        *problem = QStringLiteral("lupdate fails: ") + errors;
        return {};
    }
    if (!errors.isEmpty()) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(errors));
    }
    return file.readAll().replace("<!DOCTYPE", commentsOf(content) + "<!DOCTYPE");
}

/// Merges all texts into @p catalog, which is removed if that fails. Returns what lupdate reports.
QString CatalogMerge::run(const QString &program, const QString &catalog, const QString &language) const
{
    QProcess process;
    process.start(program, QStringList{QStringLiteral("-silent"), QStringLiteral("-source-language"),
                                       QStringLiteral("en"), QStringLiteral("-target-language"), language}
                               + m_sources + QStringList{QStringLiteral("-ts"), catalog});
    process.waitForFinished(-1);
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
        QFile::remove(catalog);
    }
    return QString::fromLocal8Bit(process.readAllStandardError()).remove(m_mirror.path()).trimmed();
}

QString CatalogMerge::mirrored(const QString &path) const
{
    return m_mirror.path() + QDir::cleanPath(QFileInfo(path).absoluteFilePath());
}
