// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "screenshottour.h"

#include "pluginregistry.h"
#include "registrationfiles.h"
#include "treeitem.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QIcon>
#include <QQuickItem>
#include <QQuickItemGrabResult>
#include <QQuickWindow>
#include <QTimer>

#include <cstdio>

namespace
{
constexpr int PatienceMs = 10000;
constexpr QSize PhoneSize(412, 870);
constexpr QSize WideSize(1180, 760);

const QStringList s_topPath = {QStringLiteral("system_settings")};
const QString s_addedFile = QStringLiteral("printing.json");
const QString s_removedFile = QStringLiteral("bluetooth.json");
const QStringList s_removedPath = s_topPath
                                  + QStringList{QStringLiteral("connectivity"), QStringLiteral("bluetooth")};
const QString s_maskedFile = QStringLiteral("sounds.json");

bool fail(const QString &reason)
{
    std::fprintf(stderr, "%s\n", qPrintable(reason));
    return false;
}

bool acceptAll(const TreeItem *)
{
    return true;
}

QList<TreeItem *> entries(const TreeItem::Predicate &filter, int depth)
{
    TreeItem *const top = PluginRegistry::instance()->getItem(s_topPath);
    return top ? top->getSubitems(TreeItem::orderLessThan, filter, depth) : QList<TreeItem *>();
}

bool hasEntriesOf(const QString &fileName)
{
    const auto isOfFile = [&fileName](const TreeItem *item) { return item->fromFile() == fileName; };
    return !entries(isOfFile, -1).isEmpty();
}

bool hasIcon(const QString &name)
{
    return name.isEmpty() || QIcon::hasThemeIcon(name);
}

bool isPresentable(const TreeItem *item)
{
    return !item->title().startsWith(QLatin1String("!!")) && !item->icon().isEmpty() && hasIcon(item->icon())
           && hasIcon(item->controlIcon());
}
}

ScreenshotTour::ScreenshotTour(QQuickWindow *window, RegistrationFiles *files, const QDir &directory,
                               const QString &language)
    : m_window(window)
    , m_files(files)
    , m_directory(directory)
    , m_language(language)
{
}

bool ScreenshotTour::run()
{
    m_window->resize(PhoneSize);
    if (!walkPages(QStringLiteral("phone"), -1) || !walkDrawer(QStringLiteral("phone"))) {
        return false;
    }
    m_window->resize(WideSize);
    return walkPages(QStringLiteral("wide"), 2) && walkDrawer(QStringLiteral("wide"))
           && walkChanges(QStringLiteral("wide"));
}

template<typename... Arguments>
QVariant ScreenshotTour::call(const char *function, const Arguments &...arguments)
{
    QVariant result;
    QMetaObject::invokeMethod(m_window, function, Q_RETURN_ARG(QVariant, result),
                              Q_ARG(QVariant, QVariant(arguments))...);
    return result;
}

bool ScreenshotTour::walkPages(const QString &form, int depth)
{
    if (!showEntry(s_topPath, false, form + QLatin1String("-top"))) {
        return false;
    }
    const QList<TreeItem *> items = entries(acceptAll, depth);
    for (const TreeItem *item : items) {
        const QStringList path = item->location();
        const QString name = form + QLatin1Char('-') + path.mid(s_topPath.count()).join(QLatin1Char('-'));
        if (!isPresentable(item)) {
            return fail(QStringLiteral("Title or icon missing: ") + path.join(QLatin1Char('/')));
        }
        if (!showEntry(path, false, name)) {
            return false;
        }
        if (item->count() > 0 && !showEntry(path, true, name + QLatin1String("-details"))) {
            return false;
        }
    }
    return true;
}

bool ScreenshotTour::walkDrawer(const QString &form)
{
    call("showEntry", s_topPath, false);
    call("setDrawerOpen", true);
    call("scrollToBeginning");
    if (!save(form + QLatin1String("-drawer"))) {
        return false;
    }
    const bool atEnd = waitFor([this] { return call("scrollToEnd").toBool(); });
    if (!atEnd) {
        return fail(QStringLiteral("The lists do not scroll to their end"));
    }
    if (!save(form + QLatin1String("-drawer-end"))) {
        return false;
    }
    call("setDrawerOpen", false);
    return save(form + QLatin1String("-top-end"));
}

bool ScreenshotTour::walkChanges(const QString &form)
{
    call("setDrawerOpen", true);
    call("showEntry", s_removedPath, true);
    if (!save(form + QLatin1String("-drawer-unchanged")) || !changeFiles(true)) {
        return false;
    }
    if (m_window->property("openPages").toInt() != 1) {
        return fail(QStringLiteral("The pages of a removed entry stay open"));
    }
    return save(form + QLatin1String("-drawer-changed")) && changeFiles(false);
}

bool ScreenshotTour::changeFiles(bool changed)
{
    m_files->setInstalled(m_files->rowOf(s_addedFile), changed);
    m_files->setInstalled(m_files->rowOf(s_removedFile), !changed);
    m_files->setMasked(m_files->rowOf(s_maskedFile), changed);
    const bool followed = waitFor([changed] {
        return hasEntriesOf(s_addedFile) == changed && hasEntriesOf(s_removedFile) != changed
               && hasEntriesOf(s_maskedFile) != changed;
    });
    return followed || fail(QStringLiteral("The tree does not follow the registration files"));
}

bool ScreenshotTour::showEntry(const QStringList &path, bool details, const QString &name)
{
    call("showEntry", path, details);
    return save(name);
}

bool ScreenshotTour::save(const QString &name)
{
    QImage last;
    const bool steady = waitFor([this, &last] {
        if (!m_window->property("settled").toBool() || !showsTree()) {
            return false;
        }
        const QImage previous = last;
        last = grab();
        return !last.isNull() && last == previous;
    });
    const QString file = m_directory.filePath(QStringLiteral("%1-%2.png").arg(m_language, name));
    if (!steady) {
        return fail(QStringLiteral("The window does not come to rest: ") + file);
    }
    return last.save(file) || fail(QStringLiteral("Can't write ") + file);
}

bool ScreenshotTour::waitFor(const std::function<bool()> &condition)
{
    QElapsedTimer timer;
    timer.start();
    do {
        waitForFrame();
        if (condition()) {
            return true;
        }
    } while (!timer.hasExpired(PatienceMs));
    return false;
}

void ScreenshotTour::waitForFrame()
{
    QEventLoop loop;
    QObject::connect(m_window, &QQuickWindow::frameSwapped, &loop, &QEventLoop::quit);
    QTimer::singleShot(PatienceMs, &loop, &QEventLoop::quit);
    m_window->update();
    loop.exec();
}

QImage ScreenshotTour::grab()
{
    // QQuickWindow::grabWindow() gives nothing on the offscreen platform.
    const QSharedPointer<QQuickItemGrabResult> result = m_window->contentItem()->grabToImage();
    if (!result) {
        return {};
    }
    QEventLoop loop;
    QObject::connect(result.data(), &QQuickItemGrabResult::ready, &loop, &QEventLoop::quit);
    QTimer::singleShot(PatienceMs, &loop, &QEventLoop::quit);
    loop.exec();
    return result->image();
}

bool ScreenshotTour::showsTree() const
{
    const TreeItem *const top = PluginRegistry::instance()->getItem(s_topPath);
    const auto isTopRow = [top](const TreeItem *item) { return item->depth(top) == 2; };
    return m_window->property("topRows").toInt() == entries(isTopRow, 2).count();
}
