// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

// Measures how long a process takes to import the module and show its first page, in wall time, each time in a fresh
// process. The start of the QML engine is not included. For a cold start the registration files and all files that the
// import loads have been dropped from the page cache; the report has the share that stayed, because other processes map
// it. Directories, inodes and the files of the QML engine stay in memory, so that a start after booting takes longer.

#include "childprocess.h"
#include "comparison.h"
#include "filecache.h"
#include "report.h"
#include "statistics.h"
#include "workload.h"

#include "common/constants.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <iterator>
#include <numeric>
#include <vector>

namespace
{
const QString s_import = QStringLiteral("import");
const QString s_page = QStringLiteral("page");
const QString s_libraries = QStringLiteral("libraries");

struct Module {
    QString importPath;
    QString uri;
};
const Module s_real{QStringLiteral(VELKA_QML_DIR), QStringLiteral("com.velka.settings")};
const Module s_toolkit{s_real.importPath, QStringLiteral("com.velka.settings.toolkit")};
const Module s_search{s_real.importPath, QStringLiteral("com.velka.settings.search")};
const Module s_empty{QStringLiteral(EMPTY_PLUGINS_DIR), QStringLiteral("org.velkasettings.empty")};
const Module s_linked{QStringLiteral(EMPTY_PLUGINS_DIR), QStringLiteral("org.velkasettings.emptylinked")};

const QStringList s_steps = {QStringLiteral("import"), QStringLiteral("registry"), QStringLiteral("rows"),
                             QStringLiteral("titles")};
constexpr int RegistryStep = 1;

QStringList startLines(const Module &module, const QString &mode)
{
    return linesOf(siblingProgram(QStringLiteral("startchild")), {module.importPath, module.uri, mode});
}

double importSeconds(const Module &module)
{
    return startLines(module, s_import).constFirst().toDouble();
}

/// Returns the files that only a process with the module maps, and none with the engine alone.
QStringList moduleFiles()
{
    QStringList files{QStringLiteral("%1/com/velka/settings/qmldir").arg(s_real.importPath)};
    const QStringList lines = startLines(s_real, s_libraries);
    const auto isFile = [](const QString &line) { return QFileInfo(line).isFile(); };
    std::copy_if(lines.cbegin(), lines.cend(), std::back_inserter(files), isFile);
    return files;
}

/// The samples of one kind of start with one number of files.
class Starts
{
public:
    Starts(const QString &kind, int fileCount)
        : m_kind(kind)
        , m_fileCount(fileCount)
        , m_steps(s_steps.size())
    {
    }

    void makeOne()
    {
        const QStringList lines = startLines(s_real, s_page);
        if (lines.size() != m_steps.size()) {
            qFatal("A start has not printed the times of its steps");
        }
        for (int step = 0; step < m_steps.size(); ++step) {
            m_steps[step].append(lines.at(step).toDouble());
        }
    }

    Cost cost() const
    {
        QVector<double> sums;
        for (int start = 0; start < m_steps.constFirst().size(); ++start) {
            sums.append(sum(start));
        }
        return {m_kind, m_fileCount, sums};
    }

    Cost registryCost() const
    {
        return {m_kind + QStringLiteral(", registry"), m_fileCount, m_steps.at(RegistryStep)};
    }

    QVector<Measure> shares() const
    {
        QVector<Measure> measures;
        for (int step = 0; step < s_steps.size(); ++step) {
            const QString name = QStringLiteral("%1, %2 files, share of %3");
            Measure measure{name.arg(m_kind, sizeText(m_fileCount), s_steps.at(step)), {}, {}};
            for (int start = 0; start < m_steps.at(step).size(); ++start) {
                measure.samples.append(m_steps.at(step).at(start) / sum(start));
            }
            measures.append(measure);
        }
        return measures;
    }

private:
    double sum(int start) const
    {
        const auto add = [start](double sum, const QVector<double> &samples) { return sum + samples.at(start); };
        return std::accumulate(m_steps.cbegin(), m_steps.cend(), 0.0, add);
    }

    QString m_kind;
    int m_fileCount;
    QVector<QVector<double>> m_steps;
};

/// The starts that showed the first page of a tree of one size.
struct Tree {
    explicit Tree(int fileCount)
        : workload(fileCount)
        , warm(QStringLiteral("start: warm"), fileCount)
        , cold(QStringLiteral("start: cold"), fileCount)
    {
    }

    void makeStarts(const QStringList &files)
    {
        workload.putInPlace();
        warm.makeOne();
        cachedShares.append(dropFromCache(files + workload.files()));
        cold.makeOne();
        workload.takeAway();
    }

    Workload workload;
    Starts warm;
    Starts cold;
    QVector<double> cachedShares;
};

void addStarts(Report &report, int count)
{
    std::vector<Tree> trees{Tree(100), Tree(1000), Tree(10000)};
    writeBack(QFileInfo(Constants::EntriesDirectory).path());
    const QStringList files = moduleFiles() + QStringList{Constants::FavoritesBlacklistFile};
    for (int i = 0; i < count; ++i) {
        for (Tree &tree : trees) {
            tree.makeStarts(files);
        }
    }
    for (const Tree &tree : trees) {
        report.costs += {tree.warm.cost(), tree.cold.cost()};
        report.measures += tree.warm.shares() + tree.cold.shares();
        const QString size = sizeText(tree.workload.fileCount());
        report.measures.append(
            {QStringLiteral("start: cold, %1 files, share still cached").arg(size), {}, tree.cachedShares});
    }
    // The other steps do not grow.
    report.measures += growths({trees.at(1).warm.registryCost(), trees.at(2).warm.registryCost()});
}

void addImports(Report &report, int count)
{
    Runs overEmpty;
    Runs overLinked;
    for (int i = 0; i < count; ++i) {
        const double emptyBefore = importSeconds(s_empty);
        const double linkedBefore = importSeconds(s_linked);
        const double import = importSeconds(s_real);
        const double linkedAfter = importSeconds(s_linked);
        const double emptyAfter = importSeconds(s_empty);
        overEmpty.add(emptyBefore, import, emptyAfter);
        overLinked.add(linkedBefore, import, linkedAfter);
    }
    report.measures += {
        // The platform's libraries cause nearly all of it.
        {QStringLiteral("loading the plugin / an empty one"), {}, overEmpty.overBaseline},
        {QStringLiteral("loading the plugin / an empty one that links the same libraries"),
         QStringLiteral("≤ 1.2"), overLinked.overBaseline, 2},
        {QStringLiteral("loading an empty plugin that links the same libraries, noise"), {}, overLinked.noise},
    };
}

/// Adds the import of @p module, compared with that of the base module.
void addOtherImport(Report &report, const Module &module, int count)
{
    Runs overBase;
    for (int i = 0; i < count; ++i) {
        const double before = importSeconds(s_real);
        const double import = importSeconds(module);
        overBase.add(before, import, importSeconds(s_real));
    }
    report.measures.append({QStringLiteral("import of %1 / of %2").arg(module.uri, s_real.uri),
                            QStringLiteral("≤ 1.3"), overBase.overBaseline, 1.3});
}

Report measureAll(Effort effort)
{
    Report report;
    addImports(report, effort == Effort::Full ? 51 : 9);
    for (const Module &module : {s_toolkit, s_search}) {
        addOtherImport(report, module, effort == Effort::Full ? 51 : 9);
    }
    addStarts(report, effort == Effort::Full ? 21 : 5);
    return report;
}

/// Moves the registration files to the disk. In the sandbox their directory is in memory, and the home is on the disk.
void moveToDisk()
{
    const QString directory = QFileInfo(Constants::EntriesDirectory).path();
    const QString onDisk = QDir::homePath() + QStringLiteral("/velka-settings");
    const bool isSandbox = qEnvironmentVariableIsSet("VELKA_SANDBOX");
    if (!isSandbox || !QDir().rmdir(Constants::EntriesDirectory) || !QDir().rmdir(directory)
        || !QDir().mkdir(onDisk) || !QFile::link(onDisk, directory)) {
        qFatal("Can't put a link in the place of %s: run this program through scripts/sandbox",
               qPrintable(directory));
    }
}
}

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    moveToDisk();
    return runBenchmark(QCoreApplication::arguments(), measureAll);
}
