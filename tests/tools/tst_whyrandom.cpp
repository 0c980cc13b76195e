// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "inspection.h"
#include "randomdirectory.h"
#include "registry/registrationfile.h"
#include "registry/treeitem.h"
#include "testsize.h"
#include "verdict.h"

#include <QLoggingCategory>
#include <QTemporaryDir>
#include <QTest>

namespace
{
constexpr int MaxReasons = 9; ///< one of each kind

QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}
}

/// Each declared entry is in the tree or has a reason why not. Without these reasons it is in the tree.
class WhyRandomTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyAbsenceHasOneReason();

private:
    /// The answer for an entry of a directory.
    struct Answer {
        bool isInTree = false;
        bool isInUnknownFile = false;
        QVector<Obstacle> obstacles;
    };

    Answer ask(const RandomDirectory &directory, int mark);
    Answer answerOf(const RandomDirectory &directory, int mark, const Inspection &inspection,
                    const Declarations &declarations) const;
    void bringBack(RandomDirectory directory, int mark, Answer answer);

    QTemporaryDir m_directory;
    int m_entries = 0;
    int m_absent = 0;
    int m_backAtOnce = 0;
};

void WhyRandomTest::initTestCase()
{
    QLoggingCategory::setFilterRules(text("org.orvantaos.settings.framework.warning=false"));
}

void WhyRandomTest::everyAbsenceHasOneReason()
{
    bool isGiven = false;
    const int given = qEnvironmentVariableIntValue("VELKA_RANDOM_DIRECTORIES", &isGiven);
    const int directories = isGiven ? given : testSize(3000);
    QRandomGenerator random(20260711);
    for (int i = 0; i < directories; ++i) {
        const RandomDirectory directory(&random);
        directory.writeTo(m_directory.path());
        QHash<int, Answer> answers;
        {
            const Inspection inspection({RandomDirectory::sources(m_directory.path()), {}}, directory.masked(),
                                        {});
            const Declarations declarations(inspection);
            for (const RandomDirectory::File &file : directory.files()) {
                for (const QJsonObject &entry : file.entries) {
                    const int mark = entry.value(text("mark")).toInt();
                    answers.insert(mark, answerOf(directory, mark, inspection, declarations));
                }
            }
        }
        for (auto it = answers.cbegin(); it != answers.cend(); ++it) {
            ++m_entries;
            if (!it->isInTree) {
                ++m_absent;
                bringBack(directory, it.key(), *it);
            }
            if (QTest::currentTestFailed()) {
                qWarning("directory %d, entry %d", i, it.key());
                return;
            }
        }
    }
    qInfo("%d directories, %d entries, %d absent, %d of them in the tree without their first reason", directories,
          m_entries, m_absent, m_backAtOnce);
    QVERIFY(m_backAtOnce > m_absent / 2);
}

WhyRandomTest::Answer WhyRandomTest::ask(const RandomDirectory &directory, int mark)
{
    directory.writeTo(m_directory.path());
    const Inspection inspection({RandomDirectory::sources(m_directory.path()), {}}, directory.masked(), {});
    return answerOf(directory, mark, inspection, Declarations(inspection));
}

WhyRandomTest::Answer WhyRandomTest::answerOf(const RandomDirectory &directory, int mark,
                                              const Inspection &inspection, const Declarations &declarations) const
{
    const auto [file, index] = directory.find(mark);
    const QString path = file->entries.at(index).value(text("path")).toString();
    const QStringList names = splitPath(path);
    const TreeItem *item = names.isEmpty() ? nullptr : inspection.root()->lookup(names);
    const bool isInTree = item && item->value(text("mark")).toInt() == mark;
    int found = 0;
    QVector<Obstacle> obstacles;
    for (const Declaration &declaration : declarations.all()) {
        // In a broken file only paths are found, and the position is that among them.
        const bool isBroken = !declaration.obstacles.isEmpty()
                              && (declaration.obstacles.last().kind == Obstacle::NotJson
                                  || declaration.obstacles.last().kind == Obstacle::NotAnObject
                                  || file->state != RandomDirectory::State::Good);
        const int position = isBroken ? int(std::count_if(
                                 file->entries.cbegin(), file->entries.cbegin() + index,
                                 [](const QJsonObject &entry) { return entry.contains(text("path")); }))
                                      : index;
        if (declaration.file == file->name && declaration.index == position && declaration.path == path) {
            ++found;
            obstacles = declaration.obstacles;
        }
    }
    const bool isUnknown = file->state == RandomDirectory::State::Unreadable
                           && declarations.unknownFiles().contains(file->name);
    const bool isUnlisted = file->state != RandomDirectory::State::Good
                            && !file->entries.at(index).contains(text("path"));
    if (found != (isUnknown || isUnlisted ? 0 : 1)) {
        QTest::qFail("the entry is listed another number of times", __FILE__, __LINE__);
    }
    if (isInTree != (found == 1 && obstacles.isEmpty())) {
        QTest::qFail("the tree and the answer disagree", __FILE__, __LINE__);
    }
    return {isInTree, isUnknown || isUnlisted, obstacles};
}

/// Removes one reason after the other. None occurs twice, and each next one was listed before if it was known.
void WhyRandomTest::bringBack(RandomDirectory directory, int mark, Answer answer)
{
    int undone = 0;
    while (!answer.isInTree && !QTest::currentTestFailed()) {
        QVERIFY(++undone <= MaxReasons);
        const QVector<Obstacle> before = answer.obstacles;
        if (answer.isInUnknownFile) {
            directory.makeReadable(mark);
        } else {
            QVERIFY(!before.isEmpty());
            directory.undo(before.first(), mark);
        }
        answer = ask(directory, mark);
        if (before.isEmpty() || answer.isInTree) {
            continue;
        }
        QVERIFY(answer.obstacles.first().kind > before.first().kind);
        // The groups of a broken file are not known.
        const bool wasBroken = before.first().kind == Obstacle::NotJson
                               || before.first().kind == Obstacle::NotAnObject;
        if (!wasBroken) {
            QVERIFY(before.size() > 1);
            QCOMPARE(int(answer.obstacles.first().kind), int(before.at(1).kind));
        }
    }
    m_backAtOnce += undone == 1 ? 1 : 0;
}

QTEST_GUILESS_MAIN(WhyRandomTest)
#include "tst_whyrandom.moc"
