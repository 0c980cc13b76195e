// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "screenshottour.h"

#include "pluginregistry.h"
#include "qmlcall.h"
#include "registrationfiles.h"
#include "treeitem.h"

#include <QIcon>
#include <QQuickWindow>

namespace
{
constexpr QSize PhoneSize(412, 870);
constexpr QSize WideSize(1180, 760);

const QStringList s_topPath = {QStringLiteral("system_settings")};
const QString s_addedFile = QStringLiteral("printing.json");
const QString s_removedFile = QStringLiteral("bluetooth.json");
const QStringList s_removedPath = s_topPath
                                  + QStringList{QStringLiteral("connectivity"), QStringLiteral("bluetooth")};
const QString s_maskedFile = QStringLiteral("sounds.json");

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

ScreenshotTour::ScreenshotTour(QQuickWindow *window, RegistrationFiles *files, ServiceFaults *faults,
                               const QDir &directory)
    : m_window(window)
    , m_files(files)
    , m_pictures(window, directory, [this] { return m_window->property("settled").toBool() && showsTree(); })
    , m_favorites(window, &m_pictures)
    , m_applications(window, faults, &m_pictures)
{
}

bool ScreenshotTour::run()
{
    m_window->resize(PhoneSize);
    if (!walkPages(QStringLiteral("phone"), -1) || !walkDrawer(QStringLiteral("phone"))
        || !m_favorites.walkPages(QStringLiteral("phone")) || !m_applications.walkPages(QStringLiteral("phone"))) {
        return false;
    }
    m_window->resize(WideSize);
    return walkPages(QStringLiteral("wide"), 2) && walkDrawer(QStringLiteral("wide"))
           && m_favorites.walkPages(QStringLiteral("wide")) && m_applications.walkPages(QStringLiteral("wide"))
           && walkChanges(QStringLiteral("wide")) && m_favorites.walkEdits(QStringLiteral("wide"))
           && m_favorites.walkActions(QStringLiteral("wide")) && m_applications.walkEdits(QStringLiteral("wide"))
           && m_applications.walkFaults(QStringLiteral("wide"));
}

bool ScreenshotTour::runShort()
{
    m_window->resize(PhoneSize);
    if (!showEntry(s_topPath, false, QStringLiteral("phone-top")) || !m_favorites.showPage(QStringLiteral("phone"))
        || !m_applications.showPage(QStringLiteral("phone"))) {
        return false;
    }
    m_window->resize(WideSize);
    return showEntry(s_topPath, false, QStringLiteral("wide-top")) && m_favorites.showPage(QStringLiteral("wide"))
           && m_applications.showPage(QStringLiteral("wide"));
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
        const bool isPageWithoutEntries = item->type() == QLatin1String("page") && item->count() == 0;
        if (!isPageWithoutEntries && !showEntry(path, true, name + QLatin1String("-details"))) {
            return false;
        }
    }
    return true;
}

bool ScreenshotTour::walkDrawer(const QString &form)
{
    callQml(m_window, "showEntry", s_topPath, false);
    callQml(m_window, "setDrawerOpen", true);
    callQml(m_window, "scrollToBeginning");
    if (!m_pictures.save(form + QLatin1String("-drawer"))) {
        return false;
    }
    const bool atEnd = m_pictures.waitFor([this] { return callQml(m_window, "scrollToEnd").toBool(); });
    if (!atEnd) {
        return fail(QStringLiteral("The lists do not scroll to their end"));
    }
    if (!m_pictures.save(form + QLatin1String("-drawer-end"))) {
        return false;
    }
    callQml(m_window, "setDrawerOpen", false);
    return m_pictures.save(form + QLatin1String("-top-end"));
}

bool ScreenshotTour::walkChanges(const QString &form)
{
    callQml(m_window, "setDrawerOpen", true);
    callQml(m_window, "showEntry", s_removedPath, true);
    if (!m_pictures.save(form + QLatin1String("-drawer-unchanged")) || !changeFiles(true)) {
        return false;
    }
    if (m_window->property("openPages").toInt() != 1) {
        return fail(QStringLiteral("The pages of a removed entry stay open"));
    }
    return m_pictures.save(form + QLatin1String("-drawer-changed")) && m_favorites.walkChanges(form)
           && changeFiles(false);
}

bool ScreenshotTour::changeFiles(bool changed)
{
    m_files->setInstalled(m_files->rowOf(s_addedFile), changed);
    m_files->setInstalled(m_files->rowOf(s_removedFile), !changed);
    m_files->setMasked(m_files->rowOf(s_maskedFile), changed);
    const bool followed = m_pictures.waitFor([changed] {
        return hasEntriesOf(s_addedFile) == changed && hasEntriesOf(s_removedFile) != changed
               && hasEntriesOf(s_maskedFile) != changed;
    });
    return followed || fail(QStringLiteral("The tree does not follow the registration files"));
}

bool ScreenshotTour::showEntry(const QStringList &path, bool details, const QString &name)
{
    callQml(m_window, "showEntry", path, details);
    return m_pictures.save(name);
}

bool ScreenshotTour::showsTree() const
{
    const TreeItem *const top = PluginRegistry::instance()->getItem(s_topPath);
    const auto isTopRow = [top](const TreeItem *item) { return item->depth(top) == 2; };
    return m_window->property("topRows").toInt() == entries(isTopRow, 2).count();
}
