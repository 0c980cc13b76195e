// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "randomdirectory.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

namespace
{
const QString s_mark = QStringLiteral("mark");
const QString s_path = QStringLiteral("path");

template<typename List>
auto oneOf(const List &list, QRandomGenerator *random)
{
    return list.at(random->bounded(list.size()));
}

bool happens(int percent, QRandomGenerator *random)
{
    return random->bounded(100) < percent;
}

QString fileName(QRandomGenerator *random, int number)
{
    static const QStringList bad{QStringLiteral("fake%1.json"), QStringLiteral("%1.json.bak"),
                                 QStringLiteral("%1.JSON"), QStringLiteral(".%1.json")};
    const QString form = happens(10, random) ? oneOf(bad, random) : QStringLiteral("%1.json");
    return form.arg(QLatin1Char(char('a' + random->bounded(3) * 5 + number)));
}

void write(const QString &path, const RandomDirectory::File &file)
{
    QFile out(path);
    const QByteArray content = RandomDirectory::contentOf(file);
    if (!out.open(QIODevice::WriteOnly) || out.write(content) != content.size()) {
        qFatal("Can't write %s", qUtf8Printable(path));
    }
    if (file.state == RandomDirectory::State::Unreadable) {
        out.setPermissions({});
    }
}

void empty(const QDir &directory)
{
    const QStringList names = directory.entryList(QDir::Files | QDir::Hidden);
    for (const QString &name : names) {
        QFile::remove(directory.filePath(name));
    }
}
}

RandomDirectory::RandomDirectory(QRandomGenerator *random)
{
    const int count = 1 + random->bounded(4);
    for (int i = 0; i < count; ++i) {
        m_files.append(randomFile(random, i));
    }
    while (happens(40, random)) {
        m_masked.append(randomPath(random));
    }
}

const QVector<RandomDirectory::File> &RandomDirectory::files() const
{
    return m_files;
}

QStringList RandomDirectory::masked() const
{
    return m_masked;
}

void RandomDirectory::writeTo(const QString &directory) const
{
    empty(QDir(directory));
    for (const File &file : m_files) {
        write(directory + QLatin1Char('/') + file.name, file);
    }
}

QByteArray RandomDirectory::contentOf(const File &file)
{
    QJsonArray entries;
    for (const QJsonObject &entry : file.entries) {
        entries.append(entry);
    }
    if (file.state == State::NotAnObject) {
        return QJsonDocument(entries).toJson();
    }
    QJsonObject object{{QStringLiteral("entries"), entries}};
    if (!file.requiredGroup.isEmpty()) {
        object.insert(QStringLiteral("required_group"), file.requiredGroup);
    }
    if (!file.disabledGroup.isEmpty()) {
        object.insert(QStringLiteral("disabled_group"), file.disabledGroup);
    }
    QByteArray json = QJsonDocument(object).toJson();
    if (file.state == State::NotJson) {
        json.insert(json.lastIndexOf(']'), ',');
    }
    return json;
}

void RandomDirectory::undo(const Obstacle &obstacle, int mark)
{
    File *file = fileOf(mark);
    QJsonObject &entry = file->entries[find(mark).second];
    switch (obstacle.kind) {
    case Obstacle::FileName:
        file->name = QStringLiteral("z%1.json").arg(mark);
        break;
    case Obstacle::NotJson:
    case Obstacle::NotAnObject:
        file->state = State::Good;
        break;
    case Obstacle::LacksGroup:
        file->requiredGroup.clear();
        break;
    case Obstacle::HasGroup:
        file->disabledGroup.clear();
        break;
    case Obstacle::Pathless:
    case Obstacle::RootPath:
        entry.insert(s_path, QStringLiteral("fixed/%1").arg(mark));
        break;
    case Obstacle::Masked:
        m_masked.removeAll(obstacle.detail);
        break;
    case Obstacle::Replaced:
        removePlaces(obstacle.detail);
        break;
    }
}

void RandomDirectory::removePlaces(const QString &places)
{
    const QStringList each = places.split(QStringLiteral("; "));
    for (const QString &place : each) {
        const QStringList parts = place.split(QStringLiteral(", entry "));
        for (File &file : m_files) {
            if (file.name == parts.at(0)) {
                file.entries[parts.at(1).toInt() - 1].remove(s_path);
            }
        }
    }
}

void RandomDirectory::makeReadable(int mark)
{
    fileOf(mark)->state = State::Good;
}

QPair<const RandomDirectory::File *, int> RandomDirectory::find(int mark) const
{
    for (const File &file : m_files) {
        for (int i = 0; i < file.entries.size(); ++i) {
            if (file.entries.at(i).value(s_mark).toInt() == mark) {
                return {&file, i};
            }
        }
    }
    qFatal("No entry has the mark %d", mark);
}

EntrySources RandomDirectory::sources(const QString &directory)
{
    const auto isMember = [](uid_t, const QString &group) { return group == QLatin1String("mine"); };
    return {directory, {}, {}, 1000, isMember};
}

RandomDirectory::File *RandomDirectory::fileOf(int mark)
{
    return &m_files[int(find(mark).first - m_files.constData())];
}

QString RandomDirectory::randomPath(QRandomGenerator *random) const
{
    static const QStringList paths{
        QStringLiteral("a"),     QStringLiteral("/a"),           QStringLiteral("a/b"), QStringLiteral("a/b/c"),
        QStringLiteral("a//b"),  QStringLiteral("a/\u00e4\"\\"), QStringLiteral("d/e"), QStringLiteral("d"),
        QStringLiteral("f/g/h"), QStringLiteral("f/g/h/"),       QStringLiteral("/"),   QStringLiteral("i")};
    return oneOf(paths, random);
}

RandomDirectory::File RandomDirectory::randomFile(QRandomGenerator *random, int number)
{
    static const QVector<State> bad{State::NotJson, State::NotAnObject, State::Unreadable};
    static const QStringList groups{QStringLiteral("mine"), QStringLiteral("theirs")};
    const auto group = [random] { return happens(15, random) ? oneOf(groups, random) : QString(); };
    File file{
        fileName(random, number), happens(15, random) ? oneOf(bad, random) : State::Good, group(), group(), {}};
    for (int i = random->bounded(4); i > 0; --i) {
        file.entries.append(randomEntry(random));
    }
    return file;
}

QJsonObject RandomDirectory::randomEntry(QRandomGenerator *random)
{
    QJsonObject entry{{s_mark, ++m_lastMark}};
    if (random->bounded(12) != 0) {
        entry.insert(s_path, randomPath(random));
    }
    return entry;
}
