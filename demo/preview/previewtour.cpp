// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "previewtour.h"

#include "pluginregistry.h"
#include "qmlcall.h"
#include "treeitem.h"

#include <QFile>
#include <QQmlEngine>
#include <QQuickWindow>

#include <algorithm>

namespace
{
const QString s_name = QStringLiteral("preview");
}

PreviewTour::PreviewTour(QQuickWindow *window, const QStringList &topPath, const PageFiles &pages)
    : m_window(window)
    , m_topPath(topPath)
    , m_pages(pages)
    , m_pictures(window, m_directory.path(), [window] { return window->property("settled").toBool(); })
{
}

bool PreviewTour::openPage(const QStringList &path, bool details)
{
    if (!PluginRegistry::instance()->getItem(path)) {
        return fail(QStringLiteral("There is no entry ") + path.join(QLatin1Char('/')));
    }
    callQml(m_window, "showEntry", path, details);
    return m_pictures.save(s_name); // waits for the page: one that is deleted during its creation would warn
}

bool PreviewTour::openAllPages()
{
    TreeItem *const top = PluginRegistry::instance()->getItem({});
    const auto acceptAll = [](const TreeItem *) { return true; };
    const QList<TreeItem *> items = top->getSubitems(TreeItem::orderLessThan, acceptAll, -1);
    if (items.isEmpty()) {
        return fail(QStringLiteral("There is no entry to show"));
    }
    return std::all_of(items.cbegin(), items.cend(), [this](const TreeItem *item) { return openItem(item); });
}

bool PreviewTour::openItem(const TreeItem *item)
{
    const QStringList path = item->location();
    const QString error = m_pages.load(item, qmlEngine(m_window));
    if (!error.isEmpty()) {
        return fail(path.join(QLatin1Char('/')) + QStringLiteral(": ") + error);
    }
    if (path.constFirst() == QLatin1String("applications")) {
        // Their list needs services of a device, which the sandbox does not have.
        callQml(m_window, "openDetails", path, 0);
        return m_pictures.save(s_name);
    }
    const bool hasDetailsBesides = item->count() > 0; // otherwise the details are its page
    return openPage(path) && (!hasDetailsBesides || openPage(path, true));
}

bool PreviewTour::savePicture(const QString &file)
{
    if (!m_pictures.save(s_name)) {
        return false;
    }
    QFile::remove(file);
    return QFile::copy(m_pictures.file(s_name), file) || fail(QStringLiteral("Can't write ") + file);
}
